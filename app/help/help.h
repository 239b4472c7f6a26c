// app/help/help.h: the help commands, and the port to the help viewer.
#pragma once

#include "app/platform/port.h"

#include <QString>

namespace tarvik {

/// The help viewer; each operation returns false if it can't show the request. Implemented by FmHelpDisplay.cpp;
/// without a viewer nothing can be shown.
class HelpDisplay {
public:
    virtual ~HelpDisplay() = default;
    virtual bool ShowContents() = 0;
    virtual bool ShowIndex() = 0;
    virtual bool ShowSearch(const QString& query) = 0;
    virtual bool ShowTopic(int helpNumber) = 0;
};
Port<HelpDisplay>& TheHelpDisplay();

/// Query of the search command, which the viewer shows as an empty search box.
inline constexpr const char* kHelpSearchQuery = "help-1";

/// The help commands of the frame by help number: 11901 About, 11971 contents, 11973 index, 11975 search,
/// 11979 support: the web site of text 12010, or its topic if that text is empty. Any other number has no effect. If
/// the viewer can't show a page and no message is showing: message 12702 with the number; 12930 if the site can't be
/// opened.
void HelpCommand(int id);

/// Shows the topic of a help number, unless the program is connecting. If the viewer can't and no message is showing:
/// message 12702 with the number.
void ShowHelp(int helpNumber);

} // namespace tarvik
