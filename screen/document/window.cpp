#include "screen/document/window.h"

#include "app/message/message.h"
#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/region.h"
#include "app/values/strings.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

struct TypeRules {
    WindowType Type = WindowType::Free;
    int MostDocuments = 0;
    qint16 Columns = 0; ///< of the description
    QSize ClientSize; ///< default, pixels
};

constexpr std::array<TypeRules, 2> kTypeRules{ {
    { WindowType::DataSet, kDocumentsOfType, 90, QSize(792, 560) },
    { WindowType::Screen, kDocumentsOfType, 70, QSize(642, 442) },
} };

/// Null for a type that has no documents.
const TypeRules* RulesOf(WindowType type)
{
    const auto* const found = std::find_if(
        kTypeRules.begin(), kTypeRules.end(), [type](const TypeRules& rules) { return rules.Type == type; });
    return found == kTypeRules.end() ? nullptr : found;
}

/// Every window in use, in order of its id.
QVector<WindowId> WindowsInUse()
{
    QVector<WindowId> ids;
    for (WindowId id = WindowNext(0); id != 0; id = WindowNext(id))
        ids.append(id);
    return ids;
}

/// The lowest document index that no window of the type uses; 0 if all are used.
qint16 FreeDocumentIndex(WindowType type)
{
    const TypeRules* rules = RulesOf(type);
    const int last = rules == nullptr ? 0 : rules->MostDocuments;
    std::array<bool, kWindowSlots + 1> used{};
    for (const WindowId id : WindowsInUse()) {
        if (WindowTypeOf(id) == type)
            used[static_cast<size_t>(WindowDocumentIndex(id))] = true;
    }
    for (int index = 1; index <= last; ++index) {
        if (!used[static_cast<size_t>(index)])
            return static_cast<qint16>(index);
    }
    return 0;
}

WindowSlot TakeFreeSlot(WindowType type, WindowSubtype subtype, qint16 documentIndex)
{
    for (WindowId id = 1; id <= kWindowSlots; ++id) {
        if (WindowInUse(id))
            continue;
        WindowRecord& record = WindowTable().Table[static_cast<size_t>(id)];
        record = {};
        record.Type = type;
        record.DocumentIndex = documentIndex;
        record.Subtype = subtype;
        return { id, subtype, false };
    }
    MsgOk(TextId::NoWindowLeft);
    return {};
}

WindowId OldestOf(WindowType type)
{
    WindowId oldest = 0;
    for (const WindowId id : WindowsInUse()) {
        if (WindowTypeOf(id) == type && (oldest == 0 || WindowAt(id).Created < WindowAt(oldest).Created))
            oldest = id;
    }
    return oldest;
}

QString DefaultTemplate()
{
    const QString separator = LngStr(TextId::WindowTitleSeparator);
    return (LngStr(TextId::WindowTitleType) + separator + LngStr(TextId::WindowTitleDate) + separator
        + LngStr(TextId::WindowTitleTime))
        .left(kTitleTemplateLength);
}

QString TypeName(WindowId id)
{
    if (WindowTypeOf(id) == WindowType::DataSet)
        return LngStr(TextId::Diagram);
    return LngStr(WindowIsFileImage(id) ? TextId::Picture : TextId::LiveScreen);
}

QString WithoutTrailingBlanks(QString text)
{
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

} // namespace

WindowState& WindowTable()
{
    static ProcessState<WindowState> state;
    return state.Get();
}

void WindowTableClear()
{
    WindowTable() = {};
}

bool WindowIsValid(WindowId id)
{
    return id >= 1 && id <= kWindowSlots;
}

bool WindowInUse(WindowId id)
{
    return WindowIsValid(id) && WindowTable().Table[static_cast<size_t>(id)].Type != WindowType::Free;
}

WindowRecord& WindowAt(WindowId id)
{
    Q_ASSERT(WindowInUse(id));
    return WindowTable().Table[static_cast<size_t>(id)];
}

WindowType WindowTypeOf(WindowId id)
{
    return WindowInUse(id) ? WindowAt(id).Type : WindowType::Free;
}

qint16 WindowDocumentIndex(WindowId id)
{
    return WindowInUse(id) ? WindowAt(id).DocumentIndex : qint16(0);
}

WindowSubtype WindowSubtypeOf(WindowId id)
{
    return WindowInUse(id) ? WindowAt(id).Subtype : WindowSubtype::Live;
}

bool WindowIsFileImage(WindowId id)
{
    return WindowTypeOf(id) == WindowType::Screen && WindowSubtypeOf(id) == WindowSubtype::File;
}

bool WindowIsModified(WindowId id)
{
    if (id != 0)
        return WindowInUse(id) && WindowAt(id).Modified;
    const QVector<WindowId> ids = WindowsInUse();
    return std::any_of(ids.begin(), ids.end(), [](WindowId each) { return WindowAt(each).Modified; });
}

WindowId WindowNext(WindowId id)
{
    for (int next = std::max<int>(id, 0) + 1; next <= kWindowSlots; ++next) {
        if (WindowInUse(static_cast<WindowId>(next)))
            return static_cast<WindowId>(next);
    }
    return 0;
}

int WindowCount()
{
    return static_cast<int>(WindowsInUse().size());
}

int WindowCount(WindowType type)
{
    const QVector<WindowId> ids = WindowsInUse();
    return static_cast<int>(
        std::count_if(ids.begin(), ids.end(), [type](WindowId id) { return WindowTypeOf(id) == type; }));
}

void WindowSetActive(WindowId id)
{
    if (WindowInUse(id))
        WindowTable().Active = id;
}

WindowSlot WindowAllocate(WindowType type, WindowSubtype subtype)
{
    if (const qint16 index = FreeDocumentIndex(type); index != 0)
        return TakeFreeSlot(type, subtype, index);
    const WindowId oldest = OldestOf(type);
    if (oldest == 0)
        return TakeFreeSlot(type, subtype, 1);
    if (MsgAskOnce(TextId::ReplaceOldestWindow) != MsgResult::Yes)
        return {};
    return { oldest, subtype, true };
}

void WindowInitialise(const WindowSlot& slot, const WindowPlacement& placement, qint16 ownerTag)
{
    WindowRecord& record = WindowAt(slot.Id);
    WindowRecord fresh;
    fresh.Type = record.Type;
    fresh.DocumentIndex = record.DocumentIndex;
    fresh.Subtype = slot.Subtype;
    fresh.Created = TheSeams().Now();
    fresh.OwnerTag = ownerTag;
    fresh.Placement = placement;
    if (slot.Reused) {
        fresh.TitleTemplate = record.TitleTemplate;
        fresh.DescriptionVisible = record.DescriptionVisible;
        fresh.Description = record.Description;
        fresh.DescriptionColumns = record.DescriptionColumns;
    } else {
        fresh.TitleTemplate = DefaultTemplate();
        fresh.DescriptionColumns = WindowDefaultColumns(fresh.Type);
    }
    record = fresh;
    WindowTable().Active = slot.Id;
}

void WindowFreeSlot(WindowId id)
{
    if (!WindowInUse(id))
        return;
    WindowAt(id) = {};
    if (WindowTable().Active == id)
        WindowTable().Active = 0;
}

QSize WindowDefaultSize(WindowType type, QSize formSize)
{
    const TypeRules* rules = RulesOf(type);
    return rules == nullptr ? formSize : rules->ClientSize;
}

qint16 WindowDefaultColumns(WindowType type)
{
    const TypeRules* rules = RulesOf(type);
    return rules == nullptr ? qint16(0) : rules->Columns;
}

QString WindowTitle(WindowId id, const QDateTime& documentDate)
{
    if (!WindowInUse(id))
        return {};
    const bool hasDate = documentDate.isValid();
    QString title = StrReplace(WindowAt(id).TitleTemplate, LngStr(TextId::WindowTitleType), TypeName(id));
    title = StrReplace(title, LngStr(TextId::WindowTitleDate), hasDate ? IniDateText(documentDate) : QString());
    title = StrReplace(title, LngStr(TextId::WindowTitleTime), hasDate ? IniTimeText(documentDate) : QString());
    return WithoutTrailingBlanks(title);
}

QVector<WindowId> WindowsFor(int mask, bool withImages)
{
    QVector<WindowId> ids;
    for (const WindowId id : WindowsInUse()) {
        const bool meetsMask = (static_cast<int>(WindowTypeOf(id)) & mask) != 0;
        if (meetsMask && (mask == MaskAll || withImages || !WindowIsFileImage(id)))
            ids.append(id);
    }
    std::stable_sort(ids.begin(), ids.end(),
        [](WindowId left, WindowId right) { return WindowAt(left).Created > WindowAt(right).Created; });
    return ids;
}

} // namespace tarvik
