// Commands of the receiver itself, the error queue, and several commands per line.
#include "tests/tools/instrument/deskInstrument.h"

#include "tools/instrument/receiver.h"

#include <gtest/gtest.h>

namespace tarvik {

TEST(InstrumentCommands, IdentifyThemselves)
{
    DeskInstrument desk;
    EXPECT_EQ(desk.Say("*IDN?\n"), "TARVIK,TR-200DF,100042,4.30\n");
    EXPECT_EQ(desk.Say("*OPC?\n"), "1\n");
}

TEST(InstrumentCommands, AcceptLongAndShortFormsInAnyCase)
{
    DeskInstrument desk;
    EXPECT_EQ(desk.Say("mmem:cdir?\nMMEMORY:CDIRectory?\nSystem:Error?\nsyst:err:next?\n"),
        "\"\\\"\n\"\\\"\n0,\"No error\"\n0,\"No error\"\n");
}

TEST(InstrumentCommands, ErrorsAreReportedOldestFirstAndOnce)
{
    DeskInstrument desk;
    EXPECT_EQ(desk.Say("NONSENSE\nMMEM:DEL ALL,\"none\"\n"), "");
    EXPECT_EQ(
        desk.Say("SYST:ERR?;ERR?;ERR?\n"), "-100,\"Command error\"\n-256,\"File name not found\"\n0,\"No error\"\n");
}

TEST(InstrumentCommands, ClearRemovesErrors)
{
    DeskInstrument desk;
    EXPECT_EQ(desk.Say("NONSENSE;*CLS;SYST:ERR?\n"), "0,\"No error\"\n");
}

TEST(InstrumentCommands, FullQueueReportsOverflow)
{
    DeskInstrument desk;
    for (size_t i = 0; i < 2 * ErrorQueue::kPlaces; ++i)
        desk.Say("NONSENSE\n");
    for (size_t i = 0; i + 1 < ErrorQueue::kPlaces; ++i)
        EXPECT_EQ(desk.Error(), "-100");
    EXPECT_EQ(desk.Say("SYST:ERR?\n"), "-350,\"Queue overflow\"\n");
    EXPECT_EQ(desk.Error(), "0");
}

TEST(InstrumentCommands, RefuseWrongParameters)
{
    DeskInstrument desk;
    for (const char* line : { "MMEM:CAT?", "MMEM:CAT? \"ALL\"", "MMEM:CAT? BOX", "MMEM:CDIR", "MMEM:CDIR Public",
             "MMEM:CDIR \"a\",\"b\"", "MMEM:EXIS? ALL", "MMEM:DATA ALL,\"x\"", "MMEM:DATA ALL,\"x\",5", "*IDN? 1",
             "MMEM:FILE:DATE \"x\",2024,1", "MMEM:FILE:DATE \"x\",2024,1,one", "MMEM:MDIR #11x", "SYST:SET:LOCK x",
             "MMEM:ACT:DATA \"x\",#11x", "MMEM:DATA BOX,\"x\",#11x" }) {
        EXPECT_EQ(desk.Say(std::string(line) + '\n'), "") << line;
        EXPECT_EQ(desk.Error(), "-220") << line;
        EXPECT_EQ(desk.Error(), "0") << line;
    }
}

TEST(InstrumentCommands, RefuseQueryOfCommandAndCommandOfQuery)
{
    DeskInstrument desk;
    for (const char* line :
        { "*CLS?", "*IDN", "MMEM:MDIR? \"x\"", "MMEM:CAT ALL", "DISP:WIND:FETC", "MMEM:CDIR:DATA?" }) {
        EXPECT_EQ(desk.Say(std::string(line) + '\n'), "") << line;
        EXPECT_EQ(desk.Error(), "-100") << line;
    }
}

TEST(InstrumentCommands, RelativeHeadersContinueFromPreviousCommand)
{
    DeskInstrument desk;
    EXPECT_EQ(desk.Say("MMEM:CDIR \"\\Public\";*OPC?;CDIR?;:MMEM:CDIR?;SYST:ERR?\n"),
        "1\n\"\\Public\"\n\"\\Public\"\n0,\"No error\"\n");
    EXPECT_EQ(desk.Say("CDIR?\n"), "");
    EXPECT_EQ(desk.Error(), "-100");
    EXPECT_EQ(desk.Say("MMEM:CDIR?;:CDIR?\n"), "\"\\Public\"\n");
    EXPECT_EQ(desk.Error(), "-100");
}

TEST(InstrumentCommands, InvalidCommandDoesNotAffectOthers)
{
    DeskInstrument desk;
    EXPECT_EQ(desk.Say("NONSENSE;*OPC?\n\"\n*OPC?\n"), "1\n1\n");
}

TEST(InstrumentCommands, SendDisplayAsBlock)
{
    DeskInstrument desk;
    EXPECT_EQ(desk.Say("DISP:WIND:FETC?\n"), "#19(picture)\n");
}

TEST(InstrumentCommands, RefusalAppliesToNextEffectiveCommand)
{
    DeskInstrument desk;
    desk.RefuseNext();
    EXPECT_EQ(desk.Say("*CLS;*OPC?;SYST:ERR?;NONSENSE;MMEM:CDIR?;CDIR?\n"), "1\n0,\"No error\"\n\"\\\"\n");
    EXPECT_EQ(desk.Error(), "-100");
    EXPECT_EQ(desk.Error(), "-250");
    EXPECT_EQ(desk.Error(), "0");
}

TEST(InstrumentCommands, RefusedBlockKeepsFile)
{
    DeskInstrument desk;
    desk.Put("f", "old");
    desk.RefuseNext();
    EXPECT_EQ(desk.Say("MMEM:DATA ALL,\"f\",#13new;*OPC?\n"), "1\n");
    EXPECT_EQ(desk.Error(), "-250");
    EXPECT_EQ(desk.Content("f"), "old");
    desk.RefuseNext();
    EXPECT_EQ(desk.Say("MMEM:DATA? ALL,\"f\"\n"), "#10\n");
    EXPECT_EQ(desk.Error(), "-250");
}

TEST(InstrumentAnswers, BlocksStateTheirLength)
{
    EXPECT_EQ(BlockHeader(0), "#10");
    EXPECT_EQ(BlockHeader(9), "#19");
    EXPECT_EQ(BlockHeader(10), "#210");
    EXPECT_EQ(BlockHeader(268435456), "#9268435456");
}

TEST(InstrumentAnswers, CutBlockHasHalfItsBytes)
{
    Answers answers;
    answers.CutNextBlock();
    answers.Line("first");
    answers.Block({});
    answers.Block("abcdef");
    answers.Block("gh");
    EXPECT_EQ(answers.Peek(100), "first\n#10\n#16abc\n#12gh\n");
}

TEST(InstrumentAnswers, ReportFullQueue)
{
    const std::string piece(300000, 'x');
    Answers answers;
    for (int i = 0; i < 3; ++i)
        answers.Block(piece);
    EXPECT_FALSE(answers.IsFull());
    answers.Block(piece);
    EXPECT_TRUE(answers.IsFull());
    answers.Sent(answers.Peek(piece.size()).size());
    EXPECT_FALSE(answers.IsFull());
}

TEST(InstrumentAnswers, SpoiledAnswersDiffer)
{
    Answers answers;
    answers.SpoilNext();
    answers.Line("first");
    const std::string first(answers.Peek(1000));
    answers.Sent(first.size());
    answers.SpoilNext();
    answers.Block("second");
    const std::string second(answers.Peek(1000));
    EXPECT_EQ(first.size(), second.size());
    EXPECT_NE(first, second);
    EXPECT_EQ(first.find("first"), std::string::npos);
}

} // namespace tarvik
