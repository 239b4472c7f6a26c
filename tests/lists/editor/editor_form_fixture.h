// tests/lists/editor/editor_form_fixture.h: drives any of the list editors.
#pragma once

#include "tests/lists/list_fixture.h"
#include "tests/support/forms.h"

#include "screen/diagram/datasetViewer.h"

namespace tarvik {

/// Records the diagrams that editors show.
class FakeDatasetForms final : public DatasetForms {
public:
    FakeDatasetForms()
    {
        TheDatasetForms().Set(*this);
    }
    bool ShowModal(WindowId, const QString& name) override
    {
        Names.append(name);
        return true;
    }

    QStringList Names;
};

template <typename Form>
class EditorFormTest : public FormTest, protected ListStart {
protected:
    ~EditorFormTest() override
    {
        if (!form.IsClosed())
            GiveUp();
    }

    /// Shows the editor with a new list, or with `path`.
    void Open(const QString& path = {})
    {
        Editor().EditorOpenFile = path;
        ShowForm(form);
    }

    /// Closes the editor without saving.
    void GiveUp()
    {
        Editor().EditorDirty = false;
        form.Unload();
        EXPECT_TRUE(form.IsClosed());
    }

    QString TextIn(const QString& name)
    {
        return TextOf(form, name);
    }
    void TypeIn(const QString& name, const QString& text)
    {
        Type(form, name, text);
    }
    void TypeAndLeave(const QString& name, const QString& text)
    {
        TypeIn(name, text);
        Key(Qt::Key_Tab);
    }
    bool IsEnabled(const QString& name)
    {
        return FindControl(form, name).isEnabled();
    }
    bool IsFocused(const QString& name)
    {
        return HasFocus(form, name);
    }
    QColor Background(const QString& name)
    {
        return FindControl(form, name).palette().color(QPalette::Base);
    }

    Form form;
};

} // namespace tarvik
