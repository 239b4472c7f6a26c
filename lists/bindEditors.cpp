#include "lists/bindEditors.h"

#include "app/frame/commands.h"
#include "link/classes/model.h"
#include "link/documents/file.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/FmEditorMemory.h"

#include <QApplication>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

template <typename Form>
void ShowForm()
{
    Form form(QApplication::activeWindow());
    DialogShow(form);
}

struct EditorForm {
    int ListType;
    void (*Show)();
};
constexpr std::array kEditorForms{ EditorForm{ FileClassMemoryList, ShowForm<FmEditorMemory> } };

class EditorForms final : public ListEditors {
public:
    bool HasEditor(int listType) const override
    {
        return Find(listType) != kEditorForms.end();
    }
    void ShowEditor(int listType) override
    {
        Find(listType)->Show();
    }

private:
    static decltype(kEditorForms)::const_iterator Find(int listType)
    {
        return std::find_if(kEditorForms.begin(), kEditorForms.end(),
            [listType](const EditorForm& form) { return form.ListType == listType; });
    }
};

bool OpenFileInEditor(int fileClass, const QString& path)
{
    Editor().EditorOpenFile = path;
    OpenEditor(fileClass);
    Editor().EditorOpenFile.clear(); // also when no editor is bound
    return true;
}

} // namespace

void BindListEditors()
{
    TheListEditors().Implement<EditorForms>();
    TheCommandHooks()[Command::Editor3] = [] { OpenEditor(FileClassMemoryList); };
    TheFileOpeners().OpenEditor = OpenFileInEditor;
    TheFileOpeners().OpenListFile = [](const QString& path, bool show) {
        return OpenListFile(path, show) != FileClassUnknown;
    };
}

} // namespace tarvik
