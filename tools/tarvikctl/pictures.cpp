#include "tools/tarvikctl/pictures.h"

#include "link/fileConvert.h"
#include "screen/descriptionEdit.h"
#include "screen/documentFiles.h"
#include "screen/palette.h"

#include <QFileInfo>

bool CtlDrawsPictures(const QString& word)
{
    return word == QLatin1String("picture") || word == QLatin1String("capture");
}

void CtlPrepareDocument(const CtlArguments& arguments, WindowId id, Terminal& terminal)
{
    if (arguments.Palette)
        PaletteSet(*arguments.Palette, id, true);
    if (!arguments.Description)
        return;
    DescrSetVisible(true, id);
    if (!DescrSetText(id, *arguments.Description))
        terminal.Refuse(QStringLiteral("the description has more than ten lines, the rest of it is left out"));
}

void CtlRunPictures(const CtlArguments& arguments, Terminal& terminal)
{
    FileConvertState& state = FileConvert();
    state.TargetExtension = u'.' + arguments.ImageFormat;
    state.TargetFolder = arguments.Into;
    terminal.SetFile(arguments.Into);
    if (!arguments.Into.isEmpty() && !FileMakeTargetFolder(arguments.Into))
        return;
    for (const QString& operand : arguments.Operands)
        state.Sources.append(QFileInfo(operand).absoluteFilePath());

    BindDocumentFiles();
    FileBatchHooks hooks;
    hooks.Prepare = [&](int window) { CtlPrepareDocument(arguments, static_cast<WindowId>(window), terminal); };
    hooks.Progress = [&](int done, int total, const QString&) {
        terminal.SetFile(arguments.Operands[done]);
        terminal.ShowProgress(QStringLiteral("%1 of %2: %3").arg(done + 1).arg(total).arg(arguments.Operands[done]));
    };
    const int converted = FileConvertRun(hooks);
    terminal.ShowProgress({});
    if (converted < arguments.Operands.size())
        terminal.SetFailed();
}
