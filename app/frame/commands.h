// app/frame/commands.h: every command of the frame, and the table of what each runs.
#pragma once

#include <array>
#include <cstddef>
#include <functional>

namespace tarvik {

/// What a menu item or tool bar button runs. A number behind a name is a file class or an arrangement.
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

/// What runs for each command; empty where the program has no such part. Bound by the composition.
class CommandHooks {
public:
    std::function<void()>& operator[](Command command)
    {
        return hooks_[static_cast<std::size_t>(command)];
    }

private:
    std::array<std::function<void()>, static_cast<std::size_t>(Command::Count)> hooks_;
};
CommandHooks& TheCommandHooks();
void CommandHooksReset();

/// Runs a command between BeginBusy and EndBusy, if the program can act; true if it ran. The exit runs without the
/// two, since it asks the same gate itself.
bool CommandRun(Command command);

} // namespace tarvik
