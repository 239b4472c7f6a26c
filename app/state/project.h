// app/state/project.h: product constants and the process-wide state that every other module reads.
#pragma once

#include <QString>

namespace tarvik {

QString ProductTitle(); ///< also the settings file's base name and a settings section
QString ProductVersionText(); ///< like "1.2.3"
int ProductMajor();
int ProductMinor();
int ProductBuild();
int ProductSecondBuild();
QString ProductVersionNumbers(); ///< major, minor and build joined by points

/// State of a window; the numbers are those of the settings file.
enum class WinState : qint16 { Normal = 0, Minimised = 1, Maximised = 2 };

/// The file last opened or saved. `Folder` ends in the separator.
struct LastFileName {
    QString Path;
    QString Folder; ///< trimmed; upper-cased where the file system ignores case
    QString Name; ///< base name without extension
    QString Extension; ///< lower-cased, without its point
};

/// Process-wide state; each member names its writer.
struct ProgramState {
    bool Started = false; ///< start-up has finished; its last steps
    bool CloseRequested = false; ///< the system has asked the program to end, and it can't act yet; the frame
    bool Ended = false; ///< the frame has closed: no new work starts; ProjectUnload
    QString PreRelease; ///< tag after the version; nothing sets it in this version
    QString ProgramTitle; ///< title of messages and of the frame; start-up
    QString AppPath; ///< executable's folder, always ending in the separator; start-up
    QString CommandLine; ///< the arguments joined by blanks; start-up
    QString HelpFilePath; ///< start-up
    QString PopupHelpSource; ///< place of the What's This texts inside the help file; start-up
    WinState MainWindowState = WinState::Maximised; ///< settings
    int DialogResult = 1; ///< status of the dialog that closed last; DialogEnd
    bool NonModalDialogs = false; ///< nothing sets it in this version
    bool Idle = true; ///< false while a command runs; BeginBusy, EndBusy
    bool DialogBusy = false; ///< a command runs on the document in the newest dialog; CommandRunOnDialog
    bool StatusHold = false; ///< a running job owns the status text; StatusJob
    bool ShiftDown = false; ///< keyboard hook
    bool MenusDisabled = false; ///< MenuUpdate
    bool StatusBarOn = true; ///< settings, the toggling commands
    bool ToolbarOn = true; ///< settings, the toggling commands
    bool AutoTile = false; ///< a stored value is read and then cleared at start
    bool ConnectedAtExit = false; ///< link was up when the program last ended; settings
    LastFileName LastFile;
};
ProgramState& Program();

/// True if no dialog is open and no command runs: the only gate for commands.
bool CanAct();

/// Splits a full path into `LastFile`.
void SetLastFile(const QString& path);

/// Temporary files of a run, by number from 0, in `AppPath`.
inline constexpr int kTemporaryFiles = 10;
QString TemporaryFileName(int number, const QString& extension);

/// Name of the help file in `AppPath`.
QString HelpFileName();

} // namespace tarvik
