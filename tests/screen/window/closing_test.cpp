#include "screen/window/closing.h"

#include "app/text/lang.h"
#include "screen/window/arrange.h"
#include "tests/support/screens.h"

#include <utility>

namespace tarvik {

namespace {

class Closing : public ScreenTest {
protected:
    Closing()
    {
        Views.WhenSaved = [this](WindowId id) {
            saved_.append(id);
            if (saves_)
                WindowAt(id).Modified = false;
            return saves_;
        };
    }

    /// Opens a window with unsaved contents.
    WindowId OpenModified()
    {
        const WindowId id = OpenLive();
        WindowAt(id).Modified = true;
        return id;
    }

    QStringList TitleOf(WindowId id)
    {
        return { ScreenTitle(id) };
    }

    static MsgButtons Buttons()
    {
        return TheMessage().Buttons();
    }

    QVector<WindowId> saved_;
    bool saves_ = true;
};

} // namespace

TEST_F(Closing, WithoutWindowSucceeds)
{
    EXPECT_TRUE(CloseQuestion(0, false));
    EXPECT_TRUE(CloseWindow(0, true));
    EXPECT_TRUE(CloseAllWindows());
}

TEST_F(Closing, FreesWindowAndDocument)
{
    const WindowId id = Open();
    Open();
    EXPECT_TRUE(CloseWindow(id, true));
    EXPECT_FALSE(WindowInUse(id));
    EXPECT_EQ(ViewOf(id), nullptr);
    EXPECT_TRUE(ScreenTable()[1].Master.isNull());
    EXPECT_EQ(WindowCount(), 1);
}

TEST_F(Closing, AsksForSingleWindow)
{
    const WindowId id = OpenModified();
    OpenModified();
    const QStringList title = TitleOf(id);
    Answers().Expect(12714, title, Cancel);
    EXPECT_FALSE(CloseWindow(id, true));
    EXPECT_EQ(Buttons(), MsgButtons::YesNoCancel);
    EXPECT_TRUE(WindowInUse(id));
    EXPECT_TRUE(WindowIsModified(id));
}

TEST_F(Closing, DismissedQuestionKeepsWindow)
{
    const WindowId id = OpenModified();
    Answers().Expect(12714, MsgResult::None);
    EXPECT_FALSE(CloseWindow(id, true));
    EXPECT_TRUE(WindowInUse(id));
}

TEST_F(Closing, YesSaves)
{
    const WindowId id = OpenModified();
    Answers().Expect(12714, Yes);
    EXPECT_TRUE(CloseWindow(id, true));
    EXPECT_EQ(saved_, QVector<WindowId>{ id });
    EXPECT_FALSE(WindowInUse(id));
}

TEST_F(Closing, WindowStaysIfSavingFails)
{
    const WindowId id = OpenModified();
    saves_ = false;
    Answers().Expect(12714, Yes);
    EXPECT_FALSE(CloseWindow(id, true));
    EXPECT_TRUE(WindowInUse(id));
    EXPECT_TRUE(WindowIsModified(id));
}

TEST_F(Closing, NoDiscardsChanges)
{
    const WindowId id = OpenModified();
    OpenModified();
    Answers().Expect(12714, No);
    EXPECT_TRUE(CloseQuestion(id, true));
    EXPECT_FALSE(WindowIsModified(id));
    EXPECT_TRUE(saved_.isEmpty());
}

TEST_F(Closing, UnmodifiedWindowClosesWithoutQuestion)
{
    const WindowId id = Open();
    OpenModified();
    EXPECT_TRUE(CloseWindow(id, true));
}

TEST_F(Closing, DataSetClosesWithoutQuestion)
{
    const WindowId id = TakeSlot(WindowType::DataSet);
    WindowAt(id).Modified = true;
    EXPECT_TRUE(CloseWindow(id, true));
    EXPECT_FALSE(WindowInUse(id));
}

TEST_F(Closing, AllWindowsWithOneOpenAsksForSingleWindow)
{
    const WindowId id = OpenModified();
    Answers().Expect(12714, TitleOf(id), No);
    EXPECT_TRUE(CloseQuestion(0, false));
    EXPECT_EQ(Buttons(), MsgButtons::YesNoCancel);
    EXPECT_FALSE(WindowIsModified(id));
}

TEST_F(Closing, AllWindowsHaveTheirOwnQuestion)
{
    const WindowId first = OpenModified();
    const WindowId second = OpenModified();
    Open();
    Answers().Expect(12712, { QString() }, Yes);
    EXPECT_TRUE(CloseQuestion(0, false));
    EXPECT_EQ(Buttons(), MsgButtons::YesNoNoAllCancel);
    EXPECT_EQ(saved_, (QVector<WindowId>{ first, second }));
}

TEST_F(Closing, OneOfSeveralHasNoChoiceForAll)
{
    const WindowId id = OpenModified();
    OpenModified();
    Answers().Expect(12714, TitleOf(id), No);
    EXPECT_TRUE(CloseQuestion(id, false));
    EXPECT_EQ(Buttons(), MsgButtons::YesNoNoAllCancel);
}

TEST_F(Closing, AllAskForEachAndLastWithoutChoiceForAll)
{
    OpenModified();
    OpenModified();
    Answers().Expect(12714, No);
    Answers().ExpectWhile(12714, No, [] { EXPECT_EQ(TheMessage().Buttons(), MsgButtons::YesNoCancel); });
    EXPECT_TRUE(CloseAllWindows());
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(Closing, AllStartWithActiveOne)
{
    const WindowId first = OpenModified();
    OpenModified();
    WindowSetActive(first);
    Answers().Expect(12714, TitleOf(first), Cancel);
    EXPECT_FALSE(CloseAllWindows());
    EXPECT_EQ(WindowCount(), 2);
}

TEST_F(Closing, AllStopAtFirstThatStays)
{
    OpenModified();
    OpenModified();
    OpenModified();
    Answers().Expect(12714, No);
    Answers().Expect(12714, Cancel);
    EXPECT_FALSE(CloseAllWindows());
    EXPECT_EQ(WindowCount(), 2);
}

TEST_F(Closing, NoForAllSuppressesQuestions)
{
    OpenModified();
    OpenModified();
    OpenModified();
    Answers().ExpectWhile(12714, No, [] { TheMessage().NoAll = true; });
    EXPECT_TRUE(CloseAllWindows());
    EXPECT_EQ(WindowCount(), 0);
    EXPECT_TRUE(saved_.isEmpty());
    EXPECT_FALSE(TheMessage().NoAll);
    EXPECT_FALSE(WindowTable().NoQuestions);
}

TEST_F(Closing, NoForAllOfOtherJobIsIgnored)
{
    TheMessage().NoAll = true;
    WindowTable().NoQuestions = true;
    OpenModified();
    Answers().Expect(12714, Cancel);
    EXPECT_FALSE(CloseAllWindows());
    EXPECT_EQ(WindowCount(), 1);
}

TEST_F(Closing, EventsAreProcessedBetweenWindows)
{
    Open();
    Open();
    int pumps = 0;
    TheSeams().PumpEvents = [&] { ++pumps; };
    EXPECT_TRUE(CloseAllWindows());
    EXPECT_EQ(pumps, 2);
}

TEST_F(Closing, OfLastOneShowsHelpHint)
{
    const WindowId first = Open();
    const WindowId second = Open();
    TheSeams().StartTimer = [](int, const std::function<void()>&) { ADD_FAILURE() << "no command will clear it"; };
    EXPECT_TRUE(CloseWindow(first, true));
    EXPECT_NE(Frame.Status, LngStr(11801));
    EXPECT_TRUE(CloseWindow(second, true));
    EXPECT_EQ(Frame.Status, LngStr(11801));
}

TEST_F(Closing, HelpHintReappearsAfterCommand)
{
    std::function<void()> later;
    QVector<int> waits;
    TheSeams().StartTimer = [&](int milliseconds, std::function<void()> tick) {
        waits.append(milliseconds);
        later = std::move(tick);
    };
    const WindowId id = Open();
    Program().Idle = false;
    EXPECT_TRUE(CloseWindow(id, true));
    Frame.Status.clear();
    ASSERT_TRUE(later);
    std::exchange(later, nullptr)();
    EXPECT_EQ(Frame.Status, QString()) << "the command lets events run";
    Program().Idle = true;
    ASSERT_TRUE(later);
    later();
    EXPECT_EQ(waits, QVector({ 0, 100 }));
    EXPECT_EQ(Frame.Status, LngStr(11801));
    Frame.Status.clear();
    Program().Idle = false;
    later();
    EXPECT_EQ(Frame.Status, QString()) << "the next command has begun";
    Program().Idle = true;
    Open();
    Frame.Status.clear();
    later();
    EXPECT_EQ(Frame.Status, QString()) << "a window is open again";
}

TEST_F(Closing, ByUserIsRefusedWhileBusy)
{
    const WindowId id = Open();
    Program().Idle = false;
    EXPECT_FALSE(ScreenMayClose(id));
    Program().Idle = true;
    EXPECT_TRUE(ScreenMayClose(id));
    WindowAt(id).Modified = true;
    Answers().Expect(12714, TitleOf(id), Cancel);
    EXPECT_FALSE(ScreenMayClose(id));
    EXPECT_TRUE(WindowInUse(id));
}

TEST_F(Closing, CommandsAreDisabledWhileClosingWindowIsSaved)
{
    const WindowId id = OpenModified();
    bool couldAct = true;
    Views.WhenSaved = [&](WindowId) {
        couldAct = CanAct();
        return true;
    };
    Answers().Expect(12714, Yes);
    EXPECT_TRUE(ScreenMayClose(id));
    EXPECT_FALSE(couldAct);
    EXPECT_TRUE(CanAct());
}

TEST_F(Closing, RetilesOthers)
{
    const WindowId id = Open();
    Open();
    Open();
    Open();
    int tiled = 0;
    Views.WhenArranged = [&](Arrangement) { ++tiled; };
    Program().AutoTile = true;
    EXPECT_TRUE(CloseWindow(id, true));
    EXPECT_EQ(tiled, 1);
    EXPECT_TRUE(CloseAllWindows());
    EXPECT_EQ(tiled, 1) << "not after each one";
}

TEST_F(Closing, StoppedCloseAllRetilesRemaining)
{
    Open();
    Open();
    WindowAt(Open()).Modified = true;
    WindowSetActive(1);
    int tiled = 0;
    Views.WhenArranged = [&](Arrangement) { ++tiled; };
    Program().AutoTile = true;
    WindowAt(2).Modified = true;
    Answers().Expect(12714, Cancel);
    EXPECT_FALSE(CloseAllWindows());
    EXPECT_EQ(WindowCount(), 2);
    EXPECT_EQ(tiled, 1);
}

TEST_F(Closing, TwiceHasNoFurtherEffect)
{
    const WindowId id = Open();
    Open();
    DropWindow(id);
    DropWindow(id);
    ScreenUnloaded(id);
    EXPECT_EQ(WindowCount(), 1);
}

} // namespace tarvik
