#include "app/message/message.h"

#include "app/platform/debug.h"
#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "tests/support/fixture.h"

#include <functional>
#include <utility>
#include <vector>

namespace tarvik {

class Message : public ProgramTest, private MessagePresenter {
protected:
    Message()
    {
        TheMessagePresenter().Set(*this);
    }

    void Present(MessageRequest& request) override
    {
        ResultWhileOpen = request.Result;
        Shown.push_back(request);
        request.Showing = true;
        if (WhileOpen)
            std::exchange(WhileOpen, {})();
        request.Showing = false;
        request.Result = Answer;
    }

    const MessageRequest& Last() const
    {
        return Shown.back();
    }

    std::vector<MessageRequest> Shown;
    std::function<void()> WhileOpen;
    MsgResult Answer = MsgResult::Yes;
    MsgResult ResultWhileOpen = MsgResult::Ok;
};

TEST_F(Message, OkShowsTheExclamationMark)
{
    MsgOk(TextNumber<0>(12765));
    EXPECT_EQ(Last().Style, 48);
    EXPECT_EQ(Last().Text, LngStr(12765));
    EXPECT_EQ(Last().HelpNumber, 12765);
    EXPECT_FALSE(Last().IsQuestion());
    EXPECT_FALSE(Last().DefaultToNo);
}

TEST_F(Message, OkFillsItsArguments)
{
    MsgOk1(TextNumber<1>(12728), "file");
    EXPECT_EQ(Last().Style, 48);
    EXPECT_EQ(Last().Text, LngStr1(12728, "file"));
    EXPECT_EQ(Last().Args, QStringList("file"));
    MsgOk2(TextNumber<2>(12780), "file", "1");
    EXPECT_EQ(Last().Style, 48);
    EXPECT_EQ(Last().Text, LngStr2(12780, "file", "1"));
    EXPECT_EQ(Last().Args, QStringList({ "file", "1" }));
    EXPECT_EQ(Last().HelpNumber, 12780);
}

TEST_F(Message, PreciseTextIsRecordedWithItsArguments)
{
    MsgOkPrecise(TextNumber<0>(12775), TextNumber<0>(12900));
    EXPECT_EQ(Last().Style, 48);
    EXPECT_EQ(Last().Text, LngStr(12900));
    EXPECT_EQ(Last().HelpNumber, 12775);
    EXPECT_EQ(Last().PreciseText, 12900);
    EXPECT_EQ(Last().Args, QStringList());
    MsgOkPrecise1(TextNumber<1>(12819), TextNumber<1>(12906), "file");
    EXPECT_EQ(Last().Style, 48);
    EXPECT_EQ(Last().Text, LngStr1(12906, "file"));
    EXPECT_EQ(Last().HelpNumber, 12819);
    EXPECT_EQ(Last().PreciseText, 12906);
    EXPECT_EQ(Last().Args, QStringList("file"));
    MsgOk1(TextNumber<1>(12819), "file");
    EXPECT_EQ(Last().PreciseText, 0);
}

TEST_F(Message, OkShowsPlainNumbers)
{
    MsgOkNum(TextNumber<1>(12702), 11995);
    EXPECT_EQ(Last().Args, QStringList("11995"));
    EXPECT_EQ(Last().Style, 48);
    MsgOkNum2(TextNumber<2>(12780), 0.5, 1e9);
    EXPECT_EQ(Last().Args, QStringList({ "0.5", "1000000000" }));
}

TEST_F(Message, QuestionsHaveTheirFixedStyles)
{
    EXPECT_EQ(MsgYesNo(TextNumber<0>(12769)), MsgResult::Yes);
    EXPECT_EQ(Last().Style, 36);
    EXPECT_TRUE(Last().IsQuestion());
    EXPECT_FALSE(Last().DefaultToNo);
    MsgYesNoDefNo(TextNumber<0>(12769));
    EXPECT_EQ(Last().Style, 36);
    EXPECT_TRUE(Last().DefaultToNo);
    MsgYesNoDefNo1(TextNumber<1>(12734), "file");
    EXPECT_EQ(Last().Style, 36);
    EXPECT_TRUE(Last().DefaultToNo);
    EXPECT_EQ(Last().Args, QStringList("file"));
    MsgYesNoCancel(TextNumber<0>(12769));
    EXPECT_EQ(Last().Style, 35);
    MsgYesNoCancel1(TextNumber<1>(12734), "file");
    EXPECT_EQ(Last().Style, 35);
    MsgYesNoAllCancel1(TextNumber<1>(12712), "file");
    EXPECT_EQ(Last().Style, 38);
    EXPECT_FALSE(Last().DefaultToNo);
    MsgAllChoices1(TextNumber<1>(12734), "file");
    EXPECT_EQ(Last().Style, 34);
    EXPECT_TRUE(Last().DefaultToNo);
}

TEST_F(Message, DefaultToNoAppliesToOneMessage)
{
    MsgYesNoDefNo(TextNumber<0>(12769));
    EXPECT_FALSE(TheMessage().DefaultToNo);
    MsgYesNo(TextNumber<0>(12769));
    EXPECT_FALSE(Last().DefaultToNo);
}

TEST_F(Message, HasNoResultWhileOpen)
{
    MsgYesNo(TextNumber<0>(12769));
    MsgYesNo(TextNumber<0>(12769));
    EXPECT_EQ(ResultWhileOpen, MsgResult::None);
}

TEST_F(Message, ReturnsNoneWithoutAnAnswer)
{
    Answer = MsgResult::None;
    EXPECT_EQ(MsgYesNo(TextNumber<0>(12769)), MsgResult::None);
}

TEST_F(Message, ReturnsNoneWithoutAPresenter)
{
    TheMessagePresenter().Reset();
    TheMessage().Result = MsgResult::Yes;
    EXPECT_EQ(MsgYesNo(TextNumber<0>(12769)), MsgResult::None);
}

TEST_F(Message, RawShowsItsTextAndHelpNumber)
{
    EXPECT_EQ(MsgRaw(MsgStyle(MsgButtons::OkCancel, MsgIcon::Question), "text", 77), MsgResult::Yes);
    EXPECT_EQ(Last().Text, "text");
    EXPECT_EQ(Last().HelpNumber, 77);
    EXPECT_EQ(Last().Buttons(), MsgButtons::OkCancel);
}

TEST_F(Message, OnlyOneIconIsAQuestion)
{
    for (const int icon : { 0, 16, 48, 64, 96 }) {
        MsgRaw(icon | static_cast<int>(MsgButtons::YesNo), "text", 1);
        EXPECT_FALSE(Last().IsQuestion()) << icon;
    }
}

TEST_F(Message, AskOnceKeepsItsAnswer)
{
    Answer = MsgResult::No;
    EXPECT_EQ(MsgAskOnce(TextNumber<0>(12769)), MsgResult::No);
    EXPECT_EQ(Last().Style, 36);
    Answer = MsgResult::Yes;
    EXPECT_EQ(MsgAskOnce(TextNumber<0>(12769)), MsgResult::No);
    EXPECT_EQ(Shown.size(), 1U);
    MsgAskOnceReset();
    EXPECT_EQ(MsgAskOnce(TextNumber<0>(12769)), MsgResult::Yes);
    EXPECT_EQ(Shown.size(), 2U);
}

TEST_F(Message, AskOnceAsksAgainAfterNoAnswer)
{
    Answer = MsgResult::None;
    EXPECT_EQ(MsgAskOnce(TextNumber<0>(12769)), MsgResult::None);
    Answer = MsgResult::Yes;
    EXPECT_EQ(MsgAskOnce(TextNumber<0>(12769)), MsgResult::Yes);
}

TEST_F(Message, AllFlagsOutliveTheMessage)
{
    WhileOpen = [] { TheMessage().YesAll = true; };
    MsgAllChoices1(TextNumber<1>(12734), "a");
    MsgOk(TextNumber<0>(12765));
    EXPECT_TRUE(TheMessage().YesAll);
}

TEST_F(Message, SecondMessageWaitsForTheFirst)
{
    bool hasWaited = false;
    TheSeams().PumpUntil = [&hasWaited](const std::function<bool()>& done) {
        hasWaited = true;
        EXPECT_FALSE(done());
        TheMessage().Showing = false; // the user answers the first message
        TheMessage().Result = MsgResult::No;
        EXPECT_TRUE(done());
    };
    TheMessage().Showing = true;
    MsgOk(TextNumber<0>(12765));
    EXPECT_TRUE(hasWaited);
    EXPECT_EQ(Shown.size(), 1U);
    EXPECT_EQ(Last().HelpNumber, 12765);
}

TEST_F(Message, SecondMessageLeavesTheAnswerOfTheFirst)
{
    TheSeams().PumpUntil = [](const std::function<bool()>&) {
        TheMessage().Showing = false;
        TheMessage().Result = MsgResult::No;
    };
    TheMessage().Showing = true;
    EXPECT_EQ(MsgYesNo(TextNumber<0>(12769)), MsgResult::Yes);
    EXPECT_EQ(TheMessage().Result, MsgResult::No);
}

TEST_F(Message, FollowingMessageDoesNotWait)
{
    TheSeams().PumpUntil = [](const std::function<bool()>&) { FAIL() << "waited"; };
    MsgOk(TextNumber<0>(12765));
    MsgOk(TextNumber<0>(12765));
    EXPECT_EQ(Shown.size(), 2U);
}

TEST_F(Message, DebugChannelSaysNothing)
{
    DebugAssert("StrValueFormat", false);
    DebugReport("ModFileInit");
    EXPECT_TRUE(Shown.empty());
}

TEST_F(Message, DiagnosticTextsNameTheRoutineAndTheError)
{
    EXPECT_EQ(DebugFailureText("MnBmpShow", "no picture"), "Program Failure: MnBmpShow( )\rno picture");
    EXPECT_EQ(DebugErrorText(7, "out of memory"), "Error = 7\r -> out of memory");
}

} // namespace tarvik
