// tests/lists/antenna/antenna_form_fixture.h: drives the antenna list editor.
#pragma once

#include "tests/lists/antenna/antenna_fixture.h"
#include "tests/lists/editor/editor_form_fixture.h"

#include "lists/antenna/FmEditorAntenna.h"

#include <QComboBox>
#include <QFile>
#include <QLineEdit>

namespace tarvik {

class AntennaForm : public AntennaTest<EditorFormTest<FmEditorAntenna>> {
protected:
    void Open(const QString& path = {})
    {
        Editor().EditorIsOpen = true; // as OpenEditor does
        EditorFormTest::Open(path);
    }
    void OpenList(const QList<AntennaRow>& rows)
    {
        EXPECT_TRUE(WriteAntennaFile(FilePath("Site.tva"), List(rows)));
        Open(FilePath("Site.tva"));
    }
    int Choice(const QString& name)
    {
        return Find<QComboBox>(form, name).currentIndex();
    }
    AntennaTable Saved()
    {
        AntennaTable table;
        EXPECT_TRUE(ReadAntennaFile(FilePath("Site.tva"), table));
        return table;
    }
    void ExpectSaved()
    {
        AnswerFolder(Folder());
        if (QFile::exists(FilePath("Site.tva")))
            Answers().Expect(12734, { QStringLiteral("Site.tva") }, Yes);
        EXPECT_TRUE(form.Save());
    }
};

} // namespace tarvik
