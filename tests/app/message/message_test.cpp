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
    int Answer = MsgResultYes;
    int ResultWhileOpen = -1;
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

TEST_F(Message, OkWritesNumbersPlainly)
{
    MsgOkNum(TextNumber<1>(12702), 11995);
    EXPECT_EQ(Last().Args, QStringList("11995"));
    EXPECT_EQ(Last().Style, 48);
    MsgOkNum2(TextNumber<2>(12780), 0.5, 1e9);
    EXPECT_EQ(Last().Args, QStringList({ "0.5", "1000000000" }));
}

TEST_F(Message, QuestionsHaveTheirFixedStyles)
{
    EXPECT_EQ(MsgYesNo(TextNumber<0>(12769)), MsgResultYes);
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

TEST_F(Message, DefaultToNoHoldsForOneMessage)
{
    MsgYesNoDefNo(TextNumber<0>(12769));
    EXPECT_FALSE(TheMessage().DefaultToNo);
    MsgYesNo(TextNumber<0>(12769));
    EXPECT_FALSE(Last().DefaultToNo);
}

TEST_F(Message, ResultIsZeroWhileOpen)
{
    MsgYesNo(TextNumber<0>(12769));
    MsgYesNo(TextNumber<0>(12769));
    EXPECT_EQ(ResultWhileOpen, MsgNone);
}

TEST_F(Message, LeftWithoutAnAnswerReturnsZero)
{
    Answer = MsgNone;
    EXPECT_EQ(MsgYesNo(TextNumber<0>(12769)), 0);
}

TEST_F(Message, WithoutAPresenterNothingIsAnswered)
{
    TheMessagePresenter().Reset();
    TheMessage().Result = MsgResultYes;
    EXPECT_EQ(MsgYesNo(TextNumber<0>(12769)), 0);
}

TEST_F(Message, RawShowsAFinishedTextUnderItsOwnHelpNumber)
{
    EXPECT_EQ(MsgRaw(MsgButtonsOkCancel | kMsgIconQuestion, "text", 77), MsgResultYes);
    EXPECT_EQ(Last().Text, "text");
    EXPECT_EQ(Last().HelpNumber, 77);
    EXPECT_EQ(Last().Buttons(), MsgButtonsOkCancel);
}

TEST_F(Message, IconIsAQuestionMarkForOneValueOnly)
{
    for (const int icon : { 0, 16, 48, 64, 96 }) {
        MsgRaw(icon | MsgButtonsYesNo, "text", 1);
        EXPECT_FALSE(Last().IsQuestion()) << icon;
    }
}

TEST_F(Message, AskOnceKeepsItsAnswer)
{
    Answer = MsgResultNo;
    EXPECT_EQ(MsgAskOnce(TextNumber<0>(12769)), MsgResultNo);
    EXPECT_EQ(Last().Style, 36);
    Answer = MsgResultYes;
    EXPECT_EQ(MsgAskOnce(TextNumber<0>(12769)), MsgResultNo);
    EXPECT_EQ(Shown.size(), 1U);
    MsgAskOnceReset();
    EXPECT_EQ(MsgAskOnce(TextNumber<0>(12769)), MsgResultYes);
    EXPECT_EQ(Shown.size(), 2U);
}

TEST_F(Message, AskOnceAsksAgainAfterNoAnswer)
{
    Answer = MsgNone;
    EXPECT_EQ(MsgAskOnce(TextNumber<0>(12769)), MsgNone);
    Answer = MsgResultYes;
    EXPECT_EQ(MsgAskOnce(TextNumber<0>(12769)), MsgResultYes);
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
        TheMessage().Result = MsgResultNo;
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
        TheMessage().Result = MsgResultNo;
    };
    TheMessage().Showing = true;
    EXPECT_EQ(MsgYesNo(TextNumber<0>(12769)), MsgResultYes);
    EXPECT_EQ(TheMessage().Result, MsgResultNo);
}

TEST_F(Message, AMessageThatFollowsDoesNotWait)
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
