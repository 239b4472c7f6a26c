// app/help/help.h: the help commands. The viewer stands behind hooks, so that a module can ask for a topic.
#pragma once

#include <QString>

#include <functional>

namespace tarvik {

/// What the help viewer offers; each answers false when it can't show what was asked. Bound by the composition.
struct HelpHooks {
    std::function<bool()> ShowContents;
    std::function<bool()> ShowIndex;
    std::function<bool(const QString& query)> ShowSearch;
    std::function<bool(int helpNumber)> ShowTopic;
    std::function<bool()> IsRefused; ///< true while the program can show no topic and says nothing about it
    std::function<void()> EnterWhatsThis;
    std::function<void()> ShowAbout;
};
HelpHooks& TheHelpHooks();

/// What the search command asks the viewer for: nobody's words, so the viewer shows its search page with an empty box.
inline constexpr const char* kHelpSearchQuery = "help-1";

/// The help commands of the frame by help number: 11901 About, 11971 contents, 11973 index, 11975 search,
/// 11979 the maker's site. Any other number does nothing. When the viewer can't show the contents, the index or the
/// search page and no message is showing: message 12702 with the number.
void HelpCommand(int id);

/// Shows the topic of a help number, unless help is refused at this moment. When the viewer can't and no message is
/// showing: message 12702 with the number.
void ShowHelp(int helpNumber);

} // namespace tarvik
