// tests/link/documents/fakeDocuments.h: documents for the tests of saving and converting: they open, are saved and
// close by name.
#pragma once

#include "app/platform/seams.h"
#include "link/documents/file.h"
#include "link/documents/fileConvert.h"
#include "link/documents/fileDialogs.h"
#include "link/documents/fileSave.h"
#include "tests/support/fixture.h"

#include <QStringList>

#include <utility>

namespace tarvik {

/// Keeps a log of what is done to documents. Each one opened gets the next window number and is the active one.
class DocumentsTest : public ProgramTest {
protected:
    DocumentsTest()
    {
        FileDocumentHooks& hooks = TheFileDocumentHooks();
        hooks.ActiveWindow = [this] { return Active; };
        hooks.TakeOpened = [this] { return std::exchange(JustOpened, 0); };
        hooks.IsDataSet = [this](int) { return DataSet; };
        hooks.SavePicture = [this](const QString& path, int window) {
            Log.append(QStringLiteral("save %1 %2").arg(window).arg(path));
            return Outcome;
        };
        hooks.Close = [this](int window) { Log.append(QStringLiteral("close %1").arg(window)); };
        TheFileOpeners().OpenPicture = [this](const QString& path, int) {
            Log.append(QStringLiteral("open ") + path);
            if (path.contains(QLatin1String("bad")))
                return false;
            Active = JustOpened = ++Opened;
            return true;
        };
        TheSeams().SaveFile = [this](const SaveFileQuestion& question) {
            Question = question;
            return SaveAnswer;
        };
        TheSeams().OpenFiles = [this](const OpenFilesQuestion& question) {
            OpenQuestion = question;
            return OpenAnswer;
        };
    }

    int Active = 0;
    int Opened = 0;
    int JustOpened = 0;
    bool DataSet = false;
    PictureSaved Outcome = PictureSaved::Written;
    QStringList Log;
    SaveFileQuestion Question;
    QString SaveAnswer;
    OpenFilesQuestion OpenQuestion;
    QStringList OpenAnswer;
};

} // namespace tarvik
