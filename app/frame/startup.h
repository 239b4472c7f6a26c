// app/frame/startup.h: the road from process start to the message loop, and from the close of the frame to process end.
#pragma once

#include "closed/loader.h"

#include <QString>

namespace tarvik {

/// What start and stop ask of the frame. Every step is asked once, in the order of these operations.
class ProjectHost {
public:
    virtual ~ProjectHost() = default;

    virtual QString CommandLine() const = 0; ///< the arguments joined by blanks
    virtual QString ExecutableFolder() const = 0;
    [[nodiscard]] virtual bool LoadModule(Module module, const QString& folder) = 0;
    virtual void BuildTexts() = 0; ///< captions, help numbers, tool bar, status bar
    virtual int ShowLogo() = 0; ///< returns the logo's dialog status
    virtual void FreeLogo() = 0; ///< the picture is not needed again
    virtual void InstallKeyboardHook() = 0;
    virtual void ApplyBars() = 0; ///< tool bar, status bar, automatic tiling, from the program state
    virtual void ShowFrame() = 0;
    virtual void FocusFirstButton() = 0;
    virtual void RemoveKeyboardHook() = 0;
};

/// The frame's file dialogs: what they show where a caller says nothing else.
struct CommonDialog {
    QString HelpFile;
    int HelpCommand = 0;
    QString InitialFolder;
};
CommonDialog& TheCommonDialog();

/// What a user reads where a module is missing without which there are no texts. A carriage return parts the lines.
QString ModuleMissingText(Module module);

/// The first half: state, folders, the library checks, settings, texts. False ends the process at once: a library is
/// missing, and the user has been told of each one that is.
[[nodiscard]] bool ProjectInit(ProjectHost& host);

/// The second half: logo, keyboard hook, left-over files, the frame, the start file or else the connection. False
/// ends the process.
[[nodiscard]] bool ProjectStart(ProjectHost& host);

/// Opens the file that a command line names, with or without a pair of double quotes around it. False, without a
/// word to the user, when there is none that can be read; else what opening it returned. A relative name is taken from
/// the folder that the process works in.
[[nodiscard]] bool OpenStartFile(const QString& path);

/// Asked when the frame is about to close; false refuses. Settings are written whether or not the documents could
/// be closed.
[[nodiscard]] bool ProjectQueryUnload();

/// The frame closes: link and keyboard hook are given back.
void ProjectUnload(ProjectHost& host);

} // namespace tarvik
