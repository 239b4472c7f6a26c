#include "app/menu/menu.h"

#include "app/menu/recentFiles.h"
#include "app/state/linkState.h"
#include "app/state/project.h"
#include "app/text/textId.h"

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kMinCheckPx = 13;

/// True if a valid window is active and has room for its description.
bool CanShowDescription(const DocumentsState& documents)
{
    return documents.Active && !documents.ActiveIsMaximised;
}

bool HasStartedAndCanAct(const MenuInput& input)
{
    return input.Started && input.CanAct;
}

} // namespace

bool RuleHolds(EnableRule rule, const MenuInput& input)
{
    const DocumentsState& documents = input.Documents;
    const bool act = HasStartedAndCanAct(input);
    const bool doc = act && documents.Active;
    switch (rule) {
    case EnableRule::Untouched:
        return true;
    case EnableRule::Act:
        return act;
    case EnableRule::Document:
        return doc;
    case EnableRule::Link:
        return act && input.LinkUp;
    case EnableRule::Shown:
        return doc && documents.AnyShown;
    case EnableRule::Minimised:
        return doc && documents.AnyMinimised;
    case EnableRule::OffDefaultSize:
        return doc && !documents.ActiveAtDefaultSize;
    case EnableRule::Description:
        return act && CanShowDescription(documents);
    case EnableRule::DescriptionShown:
        return act && CanShowDescription(documents) && documents.DescriptionVisible;
    case EnableRule::RecentFiles:
        return act && input.HasRecentFiles;
    case EnableRule::Never:
        return false;
    }
    return false;
}

std::optional<bool> MenuOutcome::Entry(const MenuEntry& entry) const
{
    if (!MenusEnabled || entry.When == EnableRule::Untouched)
        return std::nullopt;
    return RuleHolds(entry.When, Input);
}

std::optional<MenuOutcome> MenuCompute(const MenuInput& input, bool& menusDisabled)
{
    const bool act = HasStartedAndCanAct(input);
    if (!act && menusDisabled && input.Started)
        return std::nullopt;
    menusDisabled = !act;

    MenuOutcome outcome;
    outcome.Input = input;
    outcome.MenusEnabled = act;
    for (size_t at = 0; at < outcome.Buttons.size(); ++at)
        outcome.Buttons[at] = RuleHolds(ToolBarTable()[at].When, input);
    outcome.Connect = ConnectCaptionFor(input.LinkUp);
    outcome.ResetLiveScreenCaption = input.LinkUp;
    if (act && input.Documents.Active) {
        outcome.DescriptionEnabled = RuleHolds(EnableRule::Description, input);
        outcome.DescriptionChecked = input.Documents.DescriptionVisible;
    }
    outcome.LinkUp = input.LinkUp;
    return outcome;
}

MenuInput MenuInputNow()
{
    return { Program().Started, CanAct(), LinkIsUp(), TheFrameDocuments()->State(), !RecentFiles().isEmpty() };
}

ConnectCaption ConnectCaptionFor(bool linkUp)
{
    constexpr ConnectCaption kDisconnect{ TextId::MenuInstrumentDisconnect, HelpId::CommandDisconnect };
    constexpr ConnectCaption kConnect{ TextId::MenuInstrumentConnect, HelpId::CommandConnect };
    return linkUp ? kDisconnect : kConnect;
}

TextNumber<0> MenuHint(const MenuEntry& entry, bool linkUp)
{
    if (entry.Run == Command::None)
        return {};
    if (entry.Run == Command::Connect && linkUp)
        return TextId::ToolDisconnectHint;
    const Command run = entry.Run == Command::FilePrint ? Command::FilePrintNow : entry.Run;
    for (const ToolButton& button : ToolBarTable()) {
        if (button.Run == run)
            return button.Hint;
    }
    return {};
}

QString CaptionWithKey(const QString& caption, Command run)
{
    const auto& keys = FrameKeys();
    const bool hasKey = std::any_of(keys.begin(), keys.end(), [run](const FrameKey& key) { return key.Run == run; });
    return hasKey ? caption : caption.section(u'\t', 0, 0);
}

QString FrameCaption(const QString& text, bool isNtFamily)
{
    return isNtFamily ? text + u' ' : text;
}

bool HasMenuPictures(int checkWidthPx, int checkHeightPx)
{
    return checkWidthPx >= kMinCheckPx && checkHeightPx >= kMinCheckPx;
}

} // namespace tarvik
