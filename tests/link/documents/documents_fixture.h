// tests/link/documents/documents_fixture.h: documents and file dialogs for tests of saving and converting.
#pragma once

#include "app/platform/seams.h"
#include "link/documents/fileConvert.h"
#include "link/documents/fileDialogs.h"
#include "link/documents/fileSave.h"
#include "tests/support/fakeDocuments.h"
#include "tests/support/fixture.h"

namespace tarvik {

class DocumentsTest : public ProgramTest {
protected:
    DocumentsTest()
    {
        TheSeams().SaveFile = [this](const SaveFileQuestion& question) {
            Question = question;
            return SaveAnswer;
        };
        TheSeams().OpenFiles = [this](const OpenFilesQuestion& question) {
            OpenQuestion = question;
            return OpenAnswer;
        };
    }

    /// The user cancels the form that asks for the target.
    static bool Refuse()
    {
        return false;
    }

    FakeDocuments Windows;
    QStringList& Log = Windows.Log;
    SaveFileQuestion Question;
    QString SaveAnswer;
    OpenFilesQuestion OpenQuestion;
    QStringList OpenAnswer;
};

} // namespace tarvik
