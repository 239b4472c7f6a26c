#include "app/help/help.h"

#include "app/message/message.h"
#include "app/platform/processState.h"
#include "app/platform/seams.h"

namespace tarvik {

namespace {

constexpr int kAboutHelp = 11901;
constexpr int kContentsHelp = 11971;
constexpr int kIndexHelp = 11973;
constexpr int kSearchHelp = 11975;
constexpr int kSupportHelp = 11979;
constexpr int kNoHelpMessage = 12702;

constexpr const char* kMakerSite = "https://www.tarvik.example/support";

/// A message about missing help must not wait behind the message that it was asked from.
void ReportUnless(bool shown, int helpNumber)
{
    if (!shown && !TheMessage().Showing)
        MsgOkNum(kNoHelpMessage, helpNumber);
}

} // namespace

HelpHooks& TheHelpHooks()
{
    static ProcessState<HelpHooks> hooks;
    return hooks.Get();
}

void HelpCommand(int id)
{
    const HelpHooks& hooks = TheHelpHooks();
    switch (id) {
    case kAboutHelp:
        if (hooks.ShowAbout)
            hooks.ShowAbout();
        break;
    case kContentsHelp:
        ReportUnless(hooks.ShowContents && hooks.ShowContents(), id);
        break;
    case kIndexHelp:
        ReportUnless(hooks.ShowIndex && hooks.ShowIndex(), id);
        break;
    case kSearchHelp:
        ReportUnless(hooks.ShowSearch && hooks.ShowSearch(QString::fromLatin1(kHelpSearchQuery)), id);
        break;
    case kSupportHelp:
        (void)TheSeams().OpenUrl(QUrl(QString::fromLatin1(kMakerSite)));
        break;
    default:
        break;
    }
}

void ShowHelp(int helpNumber)
{
    const HelpHooks& hooks = TheHelpHooks();
    if (hooks.IsRefused && hooks.IsRefused())
        return;
    ReportUnless(hooks.ShowTopic && hooks.ShowTopic(helpNumber), helpNumber);
}

} // namespace tarvik
