#include "lists/bindEditors.h"

#include "app/commands.h"
#include "link/file.h"
#include "link/model.h"
#include "lists/FmEditorMemory.h"
#include "lists/editorGeneral.h"

#include <QApplication>

namespace {

template <typename Form>
void ShowEditor()
{
    Form form(QApplication::activeWindow());
    DialogShow(form);
}

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
    BindEditor(FileClassMemoryList, ShowEditor<FmEditorMemory>);
    TheCommandHooks()[Command::Editor3] = [] { OpenEditor(FileClassMemoryList); };
    TheFileOpeners().OpenEditor = OpenFileInEditor;
    TheFileOpeners().OpenListFile = [](const QString& path, bool show) {
        return OpenListFile(path, show) != FileClassUnknown;
    };
}
