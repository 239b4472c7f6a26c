#include "lists/bindEditors.h"

#include "app/menu/commands.h"
#include "link/documents/documents.h"
#include "lists/antenna/FmEditorAntenna.h"
#include "lists/correction/FmEditorCorrectionSet.h"
#include "lists/editor/editorGeneral.h"
#include "lists/kfactor/FmEditorKfactor.h"
#include "lists/memory/FmEditorMemory.h"
#include "lists/suppress/FmEditorSuppress.h"

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
    FileClass ListType;
    void (*Show)();
};
constexpr std::array kEditorForms{ EditorForm{ FileClassAntennaList, ShowForm<FmEditorAntenna> },
    EditorForm{ FileClassKfactorTable, ShowForm<FmEditorKfactor> },
    EditorForm{ FileClassMemoryList, ShowForm<FmEditorMemory> },
    EditorForm{ FileClassSuppressList, ShowForm<FmEditorSuppress> },
    EditorForm{ FileClassCorrectionSet, ShowForm<FmEditorCorrectionSet> } };

class EditorForms final : public ListEditors {
public:
    bool HasEditor(FileClass listType) const override
    {
        return Find(listType) != kEditorForms.end();
    }
    void ShowEditor(FileClass listType) override
    {
        Find(listType)->Show();
    }
    bool ReadKfactorBand(const QString& path, double& firstHz, double& lastHz) override
    {
        if (!LoadKfactorFile(path, Kfactors()))
            return false;
        if (FirstKfactorFrequency(Kfactors(), firstHz))
            LastKfactorFrequency(Kfactors(), lastHz);
        return true;
    }

private:
    static decltype(kEditorForms)::const_iterator Find(FileClass listType)
    {
        return std::find_if(kEditorForms.begin(), kEditorForms.end(),
            [listType](const EditorForm& form) { return form.ListType == listType; });
    }
};

constexpr std::array kCommands{ CommandBinding{ Command::Editor1, [] { OpenEditor(FileClassAntennaList); } },
    CommandBinding{ Command::Editor2, [] { OpenEditor(FileClassKfactorTable); } },
    CommandBinding{ Command::Editor3, [] { OpenEditor(FileClassMemoryList); } },
    CommandBinding{ Command::Editor4, [] { OpenEditor(FileClassSuppressList); } },
    CommandBinding{ Command::Editor6, [] { OpenEditor(FileClassCorrectionSet); } } };

class EditedFiles final : public ListFiles {
public:
    bool Open(const QString& path, FileClass fileClass) override
    {
        Editor().EditorOpenFile = path;
        OpenEditor(fileClass);
        Editor().EditorOpenFile.clear(); // also without an editor for the class
        return true;
    }
    bool OpenText(const QString& path, bool show) override
    {
        return OpenListFile(path, show) != FileClassUnknown;
    }
};

} // namespace

void BindListEditors()
{
    TheListEditors().Implement<EditorForms>();
    TheListFiles().Implement<EditedFiles>();
    CommandsBind(kCommands);
}

} // namespace tarvik
