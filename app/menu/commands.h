// app/menu/commands.h: every command of the frame, and the table of what each runs.
#pragma once

#include <span>
#include <vector>

namespace tarvik {

/// What a menu item or tool bar button runs. A number after a name is a file class or an arrangement.
enum class Command {
    None,
    FileOpen,
    FileClose,
    FileSaveAs,
    FileConvert,
    FilePageSetup,
    FilePrintSetup,
    FilePrintPreview,
    FilePrint, ///< print with argument 0
    FilePrintNow, ///< print with argument 1: the tool bar's
    FileExit,
    EditCopyGraph,
    ViewDescription,
    ViewToolbar,
    ViewStatusBar,
    LiveScreen,
    Control1,
    Control2,
    Control3,
    Control4,
    Control5,
    Control6,
    Connect,
    Editor1,
    Editor2,
    Editor3,
    Editor4,
    Editor6,
    OptionsDescription,
    OptionsColor,
    Arrange0, ///< cascade
    Arrange1, ///< tile horizontally
    Arrange2, ///< tile vertically
    Arrange3, ///< arrange icons
    AutoTile,
    DefaultSize,
    WindowClose,
    WindowCloseAll,
    HelpContents,
    HelpIndex,
    HelpSearch,
    HelpWhatsThis,
    HelpSupport,
    HelpAbout,
    Count
};

using CommandFunction = void (*)();

/// What a command runs.
struct CommandBinding {
    Command Run;
    CommandFunction Function; ///< not null
};

/// Each floor binds its commands once at start, for the rest of the process. A command that is not bound does nothing.
void CommandsBind(std::span<const CommandBinding> bindings);

/// Binds commands for its own lifetime, then restores the former bindings. Scopes nest.
class CommandScope {
public:
    explicit CommandScope(std::span<const CommandBinding> bindings);
    ~CommandScope();
    CommandScope(const CommandScope&) = delete;
    CommandScope& operator=(const CommandScope&) = delete;

private:
    std::vector<CommandBinding> before_;
};

/// Runs a command between BeginBusy and EndBusy, if the program can act; true if it ran. The exit runs without
/// them, since it checks CanAct itself.
bool CommandRun(Command command);

/// True if the newest dialog is the window of a document and no command runs on it.
bool CanActOnDialog();

/// As CommandRun for a command on the document whose window is the newest dialog, if CanActOnDialog. Closing ends that
/// dialog.
bool CommandRunOnDialog(Command command);

} // namespace tarvik
