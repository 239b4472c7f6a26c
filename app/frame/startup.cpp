#include "app/frame/startup.h"

#include "app/forms/dialog.h"
#include "app/menu/frameDocuments.h"
#include "app/message/message.h"
#include "app/platform/instrumentLink.h"
#include "app/platform/paths.h"
#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/settings/settings.h"
#include "app/state/frame.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/general.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tarvik {

namespace {

constexpr int kHelpCommandContext = 1;
constexpr int kLogoEndsProcess = 3;

QString WithSeparator(const QString& folder)
{
    const QString native = QDir::toNativeSeparators(folder);
    return native.endsWith(QDir::separator()) ? native : native + QDir::separator();
}

void SetPaths(const ProjectHost& host)
{
    ProgramState& program = Program();
    const QString folder = QDir::toNativeSeparators(host.ExecutableFolder());
    program.AppPath = WithSeparator(folder);
    program.HelpFilePath = program.AppPath + HelpFileName();
    program.PopupHelpSource = program.HelpFilePath + QStringLiteral("::/popup/popupid.txt");
    TheCommonDialog() = { program.HelpFilePath, kHelpCommandContext, folder };
}

/// Without these there are no texts, not even for the report.
bool IsNeededForTexts(Module module)
{
    return module == Module::General || module == Module::Language;
}

void ReportMissing(Module module, const QString& reason)
{
    const QString name = ModuleFileName(module).toUpper();
    const QString text = LngStr1(TextId::LibraryMissing, name);
    const bool usesTexts = !IsNeededForTexts(module) && !text.isEmpty();
    // Also to standard error: a script may have run the program.
    const QString shown = usesTexts ? text : ModuleMissingText(module);
    TheSeams().PrintError(Program().ProgramTitle + QStringLiteral(": ") + shown + u'\r' + reason);
    if (usesTexts)
        MsgOk1(TextId::LibraryMissing, name);
    else
        TheSeams().SystemBox(Program().ProgramTitle, shown);
}

bool LoadModules(ProjectHost& host)
{
    bool allLoaded = true;
    for (const Module module : kModulesCheckedAtStart) {
        const ModuleLoadResult result = host.LoadModule(module, Program().AppPath);
        if (result)
            continue;
        ReportMissing(module, result.Reason);
        allLoaded = false;
    }
    return allLoaded;
}

void RemoveTemporaryFiles()
{
    for (int number = 0; number < kTemporaryFiles; ++number) {
        for (const QString& extension : { QStringLiteral("set"), QStringLiteral("png") })
            QFile::remove(Program().AppPath + TemporaryFileName(number, extension));
    }
}

void ReportPreRelease()
{
    if (Program().PreRelease.isEmpty())
        return;
    MsgOk1(TextId::PreReleaseVersion,
        Program().ProgramTitle + u' ' + ProductVersionNumbers() + u' ' + ProductVersionText());
}

void ReportUnkeptSettings()
{
    if (!Program().CloseRequested && !IniHasPlace())
        MsgOk1(TextId::SettingsNotSaved, QFileInfo(IniFileName()).path());
}

/// Neither starts after a close request, since both wait for the user.
void OpenFileOrConnect()
{
    if (Program().CloseRequested || OpenStartFile(Program().CommandLine))
        return;
    TheInstrumentLink()->AutoConnect(Program().ConnectedAtExit);
}

bool CanBeRead(const QString& path)
{
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly);
}

bool OpenWhileBusy(const QString& path)
{
    const BusyScope busy;
    return TheFrameDocuments()->Open(path);
}

} // namespace

CommonDialog& TheCommonDialog()
{
    static ProcessState<CommonDialog> dialog;
    return dialog.Get();
}

QString ModuleMissingText(Module module)
{
    return QStringLiteral("%1 library %2 can not be loaded.\rRun setup again.\r%1 aborted.")
        .arg(ProductTitle(), ModuleFileName(module).toUpper());
}

bool ProjectInit(ProjectHost& host)
{
    ProgramState& program = Program();
    program.Started = false;
    program.Ended = false;
    program.NonModalDialogs = false;
    program.CommandLine = host.CommandLine();
    program.ProgramTitle = ProductTitle();
    DialogReset();
    SetPaths(host);
    program.Idle = true;
    if (!LoadModules(host))
        return false;
    program.ProgramTitle = LngStr(TextId::ProgramTitle);
    IniRead();
    TheFrameDocuments()->ClearTable();
    program.MenusDisabled = false;
    program.AutoTile = false; // after the settings: a stored value is never honoured at start
    host.BuildTexts();
    return true;
}

bool ProjectStart(ProjectHost& host)
{
    if (host.ShowLogo() == kLogoEndsProcess)
        return false;
    host.FreeLogo();
    host.InstallKeyboardHook();
    host.ApplyBars();
    RemoveTemporaryFiles();
    host.ShowFrame();
    ReportPreRelease();
    ReportUnkeptSettings();
    OpenFileOrConnect();
    Program().Started = true;
    TheFrame()->MenuUpdate();
    host.FocusFirstButton();
    return true;
}

bool OpenStartFile(const QString& path)
{
    QString name = path;
    if (name.size() >= 2 && name.startsWith(u'"') && name.endsWith(u'"'))
        name = name.mid(1, name.size() - 2);
    name = name.trimmed();
    if (name.isEmpty() || !CanBeRead(name))
        return false;

    // Stored for later runs, which may start in another folder.
    name = QFileInfo(ResolveParentSteps(name)).absoluteFilePath();
    SetLastFile(name);
    const bool opened = OpenWhileBusy(name);
    TheSeams().PumpEvents();
    return opened;
}

bool ProjectQueryUnload()
{
    if (!CanAct())
        return false;
    const BusyScope busy;
    const bool closed = TheFrameDocuments()->CloseAll();
    IniWrite();
    return closed;
}

void ProjectUnload(ProjectHost& host)
{
    Program().Ended = true;
    if (ModuleIsBound(Module::Channel))
        TvScpi().scpiDisconnect();
    host.RemoveKeyboardHook();
}

} // namespace tarvik
