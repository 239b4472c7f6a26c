#include "screen/document/window.h"

#include "app/text/lang.h"
#include "closed/loader.h"
#include "tests/support/screens.h"

namespace tarvik {

namespace {

constexpr auto kUnknownType = static_cast<WindowType>(3);

class WindowSlots : public ScreenTest {
protected:
    /// Opens the maximum number of windows of a type.
    static void Fill(WindowType type)
    {
        for (int count = 0; count < kDocumentsOfType; ++count)
            TakeSlot(type);
    }
};

} // namespace

TEST_F(WindowSlots, AreInitiallyFree)
{
    EXPECT_EQ(WindowCount(), 0);
    EXPECT_EQ(WindowNext(0), 0);
    EXPECT_EQ(WindowTable().Active, 0);
    EXPECT_FALSE(WindowIsModified(0));
}

TEST_F(WindowSlots, IdIsValidFrom1To200)
{
    EXPECT_FALSE(WindowIsValid(0));
    EXPECT_TRUE(WindowIsValid(1));
    EXPECT_TRUE(WindowIsValid(200));
    EXPECT_FALSE(WindowIsValid(201));
    EXPECT_FALSE(WindowIsValid(-1));
}

TEST_F(WindowSlots, QueriesOfFreeSlotReturnNothing)
{
    for (const WindowId id : { WindowId(0), WindowId(5), WindowId(201), WindowId(-1) }) {
        EXPECT_FALSE(WindowInUse(id));
        EXPECT_EQ(WindowTypeOf(id), WindowType::Free);
        EXPECT_EQ(WindowDocumentIndex(id), 0);
        EXPECT_EQ(WindowSubtypeOf(id), WindowSubtype::Live);
        EXPECT_FALSE(WindowIsFileImage(id));
        EXPECT_FALSE(WindowIsModified(id));
        EXPECT_EQ(WindowTitle(id, {}), QString());
    }
}

TEST_F(WindowSlots, EachTypeCountsItsOwnDocuments)
{
    EXPECT_EQ(TakeSlot(WindowType::DataSet), 1);
    EXPECT_EQ(TakeSlot(WindowType::Screen), 2);
    EXPECT_EQ(TakeSlot(WindowType::Screen), 3);
    EXPECT_EQ(WindowDocumentIndex(1), 1);
    EXPECT_EQ(WindowDocumentIndex(2), 1);
    EXPECT_EQ(WindowDocumentIndex(3), 2);
    EXPECT_EQ(WindowCount(WindowType::Screen), 2);
    EXPECT_EQ(WindowCount(WindowType::DataSet), 1);
    EXPECT_EQ(WindowCount(), 3);
}

TEST_F(WindowSlots, FirstFreeSlotAndIndexAreReused)
{
    TakeSlot(WindowType::Screen);
    TakeSlot(WindowType::Screen);
    TakeSlot(WindowType::Screen);
    WindowFreeSlot(2);
    EXPECT_EQ(WindowNext(1), 3);
    const WindowSlot slot = WindowAllocate(WindowType::Screen, WindowSubtype::File);
    EXPECT_EQ(slot.Id, 2);
    EXPECT_FALSE(slot.Reused);
    EXPECT_EQ(WindowDocumentIndex(2), 2);
}

TEST_F(WindowSlots, FullTableIsReportedAndChangesNothing)
{
    for (WindowId id = 1; id <= kWindowSlots; ++id)
        WindowTable().Table[static_cast<size_t>(id)].Type = WindowType::DataSet;
    Answers().Expect(12711, {}, Ok);
    EXPECT_EQ(WindowAllocate(WindowType::Screen, WindowSubtype::File).Id, 0);
    EXPECT_EQ(WindowCount(WindowType::DataSet), 200);
    EXPECT_EQ(WindowCount(WindowType::Screen), 0);
}

TEST_F(WindowSlots, LastFreeSlotIsUsed)
{
    for (WindowId id = 1; id < kWindowSlots; ++id)
        WindowTable().Table[static_cast<size_t>(id)].Type = WindowType::DataSet;
    EXPECT_EQ(WindowAllocate(WindowType::Screen, WindowSubtype::File).Id, kWindowSlots);
}

TEST_F(WindowSlots, HundredAndFirstAsksAndNoKeepsAllWindows)
{
    Fill(WindowType::Screen);
    const QDateTime created = WindowAt(1).Created;
    Answers().Expect(12713, {}, No);
    EXPECT_EQ(WindowAllocate(WindowType::Screen, WindowSubtype::File).Id, 0);
    EXPECT_EQ(WindowCount(WindowType::Screen), 100);
    EXPECT_EQ(WindowAt(1).Created, created);
}

TEST_F(WindowSlots, DismissedMessageIsNotYes)
{
    Fill(WindowType::Screen);
    Answers().Expect(12713, {}, MsgResult::None);
    EXPECT_EQ(WindowAllocate(WindowType::Screen, WindowSubtype::File).Id, 0);
}

TEST_F(WindowSlots, HundredAndFirstReplacesOldestOfItsType)
{
    WindowAt(TakeSlot(WindowType::DataSet)).Created = QDateTime(QDate(1999, 1, 1), QTime(0, 0));
    Fill(WindowType::Screen);
    WindowAt(43).Created = QDateTime(QDate(2000, 1, 1), QTime(0, 0));
    Answers().Expect(12713, {}, Yes);
    const WindowSlot slot = WindowAllocate(WindowType::Screen, WindowSubtype::Live);
    EXPECT_EQ(slot.Id, 43);
    EXPECT_TRUE(slot.Reused);
    EXPECT_EQ(WindowDocumentIndex(43), 42);
    EXPECT_EQ(WindowSubtypeOf(43), WindowSubtype::DataSet) << "nothing of it changes yet";
    EXPECT_EQ(WindowCount(), 101);
}

TEST_F(WindowSlots, EachTypeHasItsOwnHundred)
{
    Fill(WindowType::Screen);
    EXPECT_EQ(TakeSlot(WindowType::DataSet), 101);
}

TEST_F(WindowSlots, TypeWithoutDocumentsUsesIndexOne)
{
    const WindowSlot slot = WindowAllocate(kUnknownType, WindowSubtype::Live);
    EXPECT_EQ(slot.Id, 1);
    EXPECT_EQ(WindowDocumentIndex(1), 1);
    Answers().Expect(12713, {}, No); // the only window would have to be replaced
    EXPECT_EQ(WindowAllocate(kUnknownType, WindowSubtype::Live).Id, 0);
}

TEST_F(WindowSlots, FreshRecordHasItsDefaults)
{
    WindowPlacement placement;
    placement.RequestedWidth = 7;
    const WindowSlot slot = WindowAllocate(WindowType::Screen, WindowSubtype::File);
    WindowInitialise(slot, placement, 1);
    const WindowRecord& record = WindowAt(slot.Id);
    EXPECT_EQ(record.Type, WindowType::Screen);
    EXPECT_EQ(record.Subtype, WindowSubtype::File);
    EXPECT_EQ(record.Created, moment_);
    EXPECT_EQ(record.Placement.RequestedWidth, 7);
    EXPECT_EQ(record.Placement.Left, 32767);
    EXPECT_EQ(record.Placement.Top, 32767);
    EXPECT_EQ(record.OwnerTag, 1);
    EXPECT_EQ(record.TitleTemplate, QLatin1String("<type>  <date>  <time>"));
    EXPECT_FALSE(record.DescriptionVisible);
    EXPECT_EQ(record.Description, QString());
    EXPECT_EQ(record.DescriptionColumns, 70);
    EXPECT_FALSE(record.GraphicsValid || record.InResize || record.Modified || record.ResizePending);
    EXPECT_EQ(WindowTable().Active, slot.Id);
    EXPECT_EQ(WindowAt(TakeSlot(WindowType::DataSet)).DescriptionColumns, 90);
}

TEST_F(WindowSlots, ReusedRecordKeepsTemplateAndDescription)
{
    const WindowId id = TakeSlot(WindowType::Screen);
    WindowRecord& record = WindowAt(id);
    record.TitleTemplate = QStringLiteral("mine");
    record.DescriptionVisible = true;
    record.Description = QStringLiteral("text");
    record.DescriptionColumns = 50;
    record.GraphicsValid = record.InResize = record.Modified = record.ResizePending = true;
    WindowInitialise({ id, WindowSubtype::File, true }, {}, 0);
    EXPECT_EQ(record.TitleTemplate, QLatin1String("mine"));
    EXPECT_TRUE(record.DescriptionVisible);
    EXPECT_EQ(record.Description, QLatin1String("text"));
    EXPECT_EQ(record.DescriptionColumns, 50);
    EXPECT_EQ(record.Subtype, WindowSubtype::File);
    EXPECT_EQ(record.Created, moment_);
    EXPECT_FALSE(record.GraphicsValid || record.InResize || record.Modified || record.ResizePending);
}

TEST_F(WindowSlots, OnlyWindowInUseBecomesActive)
{
    const WindowId first = TakeSlot(WindowType::Screen);
    const WindowId second = TakeSlot(WindowType::Screen);
    WindowSetActive(first);
    EXPECT_EQ(WindowTable().Active, first);
    WindowSetActive(100);
    EXPECT_EQ(WindowTable().Active, first);
    WindowFreeSlot(second);
    EXPECT_EQ(WindowTable().Active, first);
    WindowFreeSlot(first);
    EXPECT_EQ(WindowTable().Active, 0);
}

TEST_F(WindowSlots, ModifiedOfAnyWindow)
{
    TakeSlot(WindowType::Screen);
    const WindowId second = TakeSlot(WindowType::Screen);
    WindowAt(second).Modified = true;
    EXPECT_TRUE(WindowIsModified(0));
    EXPECT_FALSE(WindowIsModified(1));
    EXPECT_TRUE(WindowIsModified(second));
}

TEST_F(WindowSlots, DefaultSizeDependsOnType)
{
    EXPECT_EQ(WindowDefaultSize(WindowType::Screen, { 1, 2 }), QSize(642, 442));
    EXPECT_EQ(WindowDefaultSize(WindowType::DataSet, { 1, 2 }), QSize(792, 560));
    EXPECT_EQ(WindowDefaultSize(kUnknownType, { 1, 2 }), QSize(1, 2));
}

TEST_F(WindowSlots, TitleShowsTypeDateAndTime)
{
    const QDateTime date(QDate(2024, 2, 29), QTime(13, 4, 5));
    const WindowId file = Open(WindowSubtype::File);
    const WindowId live = Open(WindowSubtype::Live);
    const WindowId diagram = TakeSlot(WindowType::DataSet);
    EXPECT_EQ(WindowTitle(file, date), LngStr(14400) + QStringLiteral("  2/29/24  1:04:05 PM"));
    EXPECT_EQ(WindowTitle(live, date), LngStr(14500) + QStringLiteral("  2/29/24  1:04:05 PM"));
    EXPECT_EQ(WindowTitle(diagram, date), LngStr(13505) + QStringLiteral("  2/29/24  1:04:05 PM"));
}

TEST_F(WindowSlots, TitleWithoutDateHasNoTrailingBlanks)
{
    EXPECT_EQ(WindowTitle(OpenLive(), {}), LngStr(14500));
}

TEST_F(WindowSlots, LongTemplateIsCut)
{
    TvLng().LngGetStr = [](int32_t, const char*, char* out, int32_t outSize) {
        const QByteArray text(20, 'x');
        qstrncpy(out, text.constData(), static_cast<size_t>(outSize));
        return static_cast<int32_t>(text.size());
    };
    EXPECT_EQ(WindowAt(TakeSlot(WindowType::DataSet)).TitleTemplate, QString(56, u'x'));
}

TEST_F(WindowSlots, SelectionListsNewestFirst)
{
    const WindowId diagram = TakeSlot(WindowType::DataSet);
    const WindowId file = Open(WindowSubtype::File);
    const WindowId live = Open(WindowSubtype::Live);
    EXPECT_EQ(WindowsFor(MaskAll, false), (QVector<WindowId>{ live, file, diagram }));
    EXPECT_EQ(WindowsFor(MaskScreen, false), QVector<WindowId>{ live });
    EXPECT_EQ(WindowsFor(MaskScreen, true), (QVector<WindowId>{ live, file }));
    EXPECT_EQ(WindowsFor(MaskDataSet, true), QVector<WindowId>{ diagram });
    WindowAt(diagram).Created = moment_.addSecs(1);
    EXPECT_EQ(WindowsFor(MaskAll, false), (QVector<WindowId>{ diagram, live, file }));
}

} // namespace tarvik
