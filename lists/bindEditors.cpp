#include "lists/bindEditors.h"

#include "app/frame/commands.h"
#include "link/classes/model.h"
#include "link/documents/file.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/FmEditorMemory.h"

#include <QApplication>

namespace tarvik {

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

} // namespace tarvik
