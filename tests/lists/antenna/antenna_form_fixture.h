// tests/lists/antenna/antenna_form_fixture.h: drives the antenna list editor.
#pragma once

#include "tests/lists/antenna/antenna_fixture.h"
#include "tests/support/forms.h"

#include "lists/antenna/FmEditorAntenna.h"

#include <QComboBox>
#include <QFile>
#include <QLineEdit>

namespace tarvik {

class AntennaForm : public AntennaTest<FormTest> {
protected:
    ~AntennaForm() override
    {
        if (!form.IsClosed())
            GiveUp();
    }
    void Open(const QString& path = {})
    {
        Editor().EditorIsOpen = true; // as OpenEditor does
        Editor().EditorOpenFile = path;
        ShowForm(form);
    }
    void OpenList(const QList<AntennaRow>& rows)
    {
        EXPECT_TRUE(WriteAntennaFile(FilePath("Site.tva"), List(rows)));
        Open(FilePath("Site.tva"));
    }
    void GiveUp()
    {
        Editor().EditorDirty = false;
        form.Unload();
        EXPECT_TRUE(form.IsClosed());
    }
    void TypeAndLeave(const QString& name, const QString& text)
    {
        Type(form, name, text);
        Key(Qt::Key_Tab);
    }
    QString TextIn(const QString& name)
    {
        return TextOf(form, name);
    }
    int Choice(const QString& name)
    {
        return Find<QComboBox>(form, name).currentIndex();
    }
    QColor Background(const QString& name)
    {
        return FindControl(form, name).palette().color(QPalette::Base);
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

    FmEditorAntenna form;
};

} // namespace tarvik
