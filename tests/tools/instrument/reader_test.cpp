// Splitting a client's bytes into commands.
#include "tools/instrument/messageReader.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

std::string Describe(const MessageReader& reader, ReaderEvent event)
{
    switch (event) {
    case ReaderEvent::BlockBegins:
        return "begins " + std::to_string(reader.BlockLength());
    case ReaderEvent::BlockBytes:
        return '<' + std::string(reader.BlockPiece()) + '>';
    case ReaderEvent::Bad:
        return "bad";
    default:
        break;
    }
    const Command& command = reader.Current();
    std::string text = (command.StartsMessage ? "" : "+") + command.Header + (command.IsQuery ? "?" : "");
    for (const CommandParameter& parameter : command.Parameters) {
        text += parameter.Kind == CommandParameter::Form::Word ? " w:"
            : parameter.Kind == CommandParameter::Form::Text   ? " t:"
                                                               : " b:";
        text += parameter.Value;
    }
    return text;
}

/// The events of `bytes`, passed in pieces of `pieceBytes` bytes.
std::vector<std::string> Events(std::string_view bytes, size_t pieceBytes = std::string_view::npos)
{
    MessageReader reader;
    std::vector<std::string> events;
    while (!bytes.empty()) {
        std::string_view piece = bytes.substr(0, pieceBytes);
        bytes.remove_prefix(piece.size());
        for (auto event = reader.Next(piece); event != ReaderEvent::NeedsBytes; event = reader.Next(piece))
            events.push_back(Describe(reader, event));
    }
    return events;
}

using Expected = std::vector<std::string>;

} // namespace

TEST(MessageReader, ParsesHeaderAndParameters)
{
    EXPECT_EQ(Events("mmem:cat? all\n"), Expected({ "MMEM:CAT? w:all" }));
    EXPECT_EQ(Events(" *idn? \t\r\n"), Expected({ "*IDN?" }));
    EXPECT_EQ(Events("X \"n\" , 1,2 ,3\n"), Expected({ "X t:n w:1 w:2 w:3" }));
    EXPECT_EQ(Events(":SYST:ERR?\n"), Expected({ "SYST:ERR?" }));
}

TEST(MessageReader, WaitsForEndOfLine)
{
    EXPECT_EQ(Events("*IDN?"), Expected());
}

TEST(MessageReader, SplitsLineAtSemicolons)
{
    EXPECT_EQ(Events("A;B;;C;\nD\n"), Expected({ "A", "+B", "+C", "D" }));
}

TEST(MessageReader, SkipsEmptyLines)
{
    EXPECT_EQ(Events("\n\r\n  \nA\n"), Expected({ "A" }));
}

TEST(MessageReader, IgnoresQuotedSeparators)
{
    EXPECT_EQ(Events("X \"a;b,#1\",\"say \"\"hi\"\"\"\n"), Expected({ "X t:a;b,#1 t:say \"hi\"" }));
}

TEST(MessageReader, KeepsBytesOfTexts)
{
    EXPECT_EQ(Events("X \"\xE4\xF6 \x80\"\n"), Expected({ "X t:\xE4\xF6 \x80" }));
    EXPECT_EQ(Events("X \"\"\n"), Expected({ "X t:" }));
}

TEST(MessageReader, RefusesInvalidCommands)
{
    for (const char* line : { "?", "A-B", "A,B", "X \"open", "X \"a\"b", "X a\"b\"", "X ,", "X a,", "X ,a",
             "X \"a\" \"b\"", "\xE4", ":", "X\"a\"" })
        EXPECT_EQ(Events(std::string(line) + "\nB\n"), Expected({ "bad", "B" })) << line;
}

TEST(MessageReader, OpenQuoteEndsWithLine)
{
    EXPECT_EQ(Events("X \"a;b\nC\n"), Expected({ "bad", "C" }));
}

TEST(MessageReader, DeliversBlockInPieces)
{
    EXPECT_EQ(Events("D ALL,\"n\",#15hello\n"), Expected({ "begins 5", "<hello>", "D w:ALL t:n b:" }));
    EXPECT_EQ(Events("D #210abcdefghij;E\n", 14), Expected({ "begins 10", "<abcdefgh>", "<ij>", "D b:", "+E" }));
}

TEST(MessageReader, AcceptsAnyByteInBlock)
{
    EXPECT_EQ(Events(std::string_view("D #16\n;\"#\r\0\n", 13)),
        Expected({ "begins 6", std::string("<\n;\"#\r\0>", 8), "D b:" }));
}

TEST(MessageReader, AcceptsEmptyBlock)
{
    EXPECT_EQ(Events("D #10\nE\n"), Expected({ "begins 0", "D b:", "E" }));
}

TEST(MessageReader, DoesNotDependOnSplitOfInput)
{
    const std::string bytes = "A;B \"x;\"\"y\"\r\nD ALL,#3005a\nb;c ;E?\nF \"\nG\n";
    const Expected whole = Events(bytes);
    ASSERT_EQ(whole.size(), 8U);
    for (size_t piece = 1; piece < bytes.size(); ++piece) {
        Expected events;
        for (const std::string& event : Events(bytes, piece)) {
            const bool goesOn = event.front() == '<' && !events.empty() && events.back().front() == '<';
            if (goesOn)
                events.back().insert(events.back().size() - 1, event, 1, event.size() - 2);
            else
                events.push_back(event);
        }
        EXPECT_EQ(events, whole) << "in pieces of " << piece;
    }
}

TEST(MessageReader, RefusesBlockWithoutLength)
{
    EXPECT_EQ(Events("D #0abc;E\nF\n"), Expected({ "bad", "F" }));
    EXPECT_EQ(Events("D #05hello\nF\n"), Expected({ "bad", "F" }));
}

TEST(MessageReader, RefusesInvalidLength)
{
    for (const char* line : { "D #", "D #x", "D #2", "D #21", "D #2x1a", "D #1x" })
        EXPECT_EQ(Events(std::string(line) + "\nF\n"), Expected({ "bad", "F" })) << line;
}

TEST(MessageReader, SkipsBlockOfInvalidCommand)
{
    EXPECT_EQ(Events("D \"a\"#14\nX?\n\nF\n"), Expected({ "bad", "F" }));
    EXPECT_EQ(Events("D ALL #12X\n;F\n"), Expected({ "bad", "+F" }));
}

TEST(MessageReader, RefusesDataAfterBlock)
{
    EXPECT_EQ(Events("D #12abX;E\nF\n"), Expected({ "begins 2", "<ab>", "bad", "F" }));
    EXPECT_EQ(Events("D #11a,#11b\nF\n"), Expected({ "begins 1", "<a>", "bad", "F" }));
}

TEST(MessageReader, ContinuesAfterOverlongCommand)
{
    EXPECT_EQ(Events(std::string(1000000, 'A') + "\nF\n"), Expected({ "bad", "F" }));
    EXPECT_EQ(Events("X \"" + std::string(kMaxCommandBytes, ';') + "\"\nF\n"), Expected({ "bad", "F" }));
}

TEST(MessageReader, AcceptsLongestCommand)
{
    const std::string header(kMaxCommandBytes, 'A');
    EXPECT_EQ(Events(header + '\n'), Expected({ header }));
}

} // namespace tarvik
