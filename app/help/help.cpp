#include "app/help/help.h"

#include "app/message/message.h"
#include "app/platform/instrumentLink.h"
#include "app/platform/seams.h"
#include "app/state/frame.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

namespace tarvik {

namespace {

class NoHelp final : public HelpDisplay {
public:
    bool ShowContents() override
    {
        return false;
    }
    bool ShowIndex() override
    {
        return false;
    }
    bool ShowSearch(const QString&) override
    {
        return false;
    }
    bool ShowTopic(int) override
    {
        return false;
    }
};

/// A message about missing help must not wait for the message on which the user pressed F1.
void ReportUnless(bool shown, int helpNumber)
{
    if (!shown && !TheMessage().Showing)
        MsgOkNum(TextId::NoHelpForTopic, helpNumber);
}

void OpenSupport()
{
    const QString site = LngStr(TextId::SupportSite);
    if (site.isEmpty())
        ReportUnless(TheHelpDisplay()->ShowTopic(HelpId::CommandSupport), HelpId::CommandSupport);
    else if (!TheSeams().OpenUrl(QUrl(site)))
        MsgOk1(TextId::AddressNotOpened, site);
}

} // namespace

Port<HelpDisplay>& TheHelpDisplay()
{
    static PortOr<HelpDisplay, NoHelp> port;
    return port;
}

void HelpCommand(int id)
{
    switch (id) {
    case HelpId::CommandAbout:
        TheFrame()->ShowAbout();
        break;
    case HelpId::CommandContents:
        ReportUnless(TheHelpDisplay()->ShowContents(), id);
        break;
    case HelpId::CommandIndex:
        ReportUnless(TheHelpDisplay()->ShowIndex(), id);
        break;
    case HelpId::CommandSearch:
        ReportUnless(TheHelpDisplay()->ShowSearch(QString::fromLatin1(kHelpSearchQuery)), id);
        break;
    case HelpId::CommandSupport:
        OpenSupport();
        break;
    default:
        break;
    }
}

void ShowHelp(int helpNumber)
{
    if (TheInstrumentLink()->IsConnecting())
        return;
    ReportUnless(TheHelpDisplay()->ShowTopic(helpNumber), helpNumber);
}

} // namespace tarvik
