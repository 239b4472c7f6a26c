// app/frame/startup.h: start-up to the message loop, and shutdown from the close of the frame.
#pragma once

#include "closed/loader.h"

#include <QString>

namespace tarvik {

/// What start-up and shutdown call on the frame, each once, in this order.
class ProjectHost {
public:
    virtual ~ProjectHost() = default;

    virtual QString CommandLine() const = 0; ///< the arguments joined by blanks
    virtual QString ExecutableFolder() const = 0;
    [[nodiscard]] virtual ModuleLoadResult LoadModule(Module module, const QString& folder) = 0;
    virtual void BuildTexts() = 0; ///< captions, help numbers, tool bar, status bar
    virtual int ShowLogo() = 0; ///< returns the logo's dialog status
    virtual void FreeLogo() = 0; ///< the picture is not needed again
    virtual void InstallKeyboardHook() = 0;
    virtual void ApplyBars() = 0; ///< tool bar, status bar, automatic tiling, from the program state
    virtual void ShowFrame() = 0;
    virtual void FocusFirstButton() = 0;
    virtual void RemoveKeyboardHook() = 0;
};

/// Defaults of the frame's file dialogs.
struct CommonDialog {
    QString HelpFile;
    int HelpCommand = 0;
    QString InitialFolder;
};
CommonDialog& TheCommonDialog();

/// The message for a missing module without which there are no texts. Lines are separated by carriage returns.
QString ModuleMissingText(Module module);

/// The first half: state, folders, the library checks, settings, texts. False ends the process at once: libraries
/// are missing, and each has been reported.
[[nodiscard]] bool ProjectInit(ProjectHost& host);

/// The second half: logo, keyboard hook, left-over files, the frame, the start file or else the connection. False
/// ends the process.
[[nodiscard]] bool ProjectStart(ProjectHost& host);

/// Opens the file of a command line, with or without a pair of double quotes around it. False without a message if it
/// can't be read, else the result of opening it. A relative name starts at the current folder.
[[nodiscard]] bool OpenStartFile(const QString& path);

/// Called when the frame is about to close; false refuses. Settings are written whether or not the documents could
/// be closed.
[[nodiscard]] bool ProjectQueryUnload();

/// The frame closes: disconnects and removes the keyboard hook.
void ProjectUnload(ProjectHost& host);

} // namespace tarvik
