// Received lines and blocks: where each ends, and what is too long.
#include "closed/tvscpi/inbox.h"
#include "tests/closed/scriptedwire.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using namespace tvscpi;

class ScpiInbox : public testing::Test {
protected:
    ScpiInbox()
        : wire_(script_)
        , inbox(wire_, buffer_, deadline_)
    {
    }

    /// Delivers `bytes` in pieces of at most `most` bytes.
    void Deliver(const std::string& bytes, size_t most = SIZE_MAX)
    {
        script_.Arrived += bytes;
        script_.MaxPiece = most;
    }

    /// Bytes that have not been received yet.
    [[nodiscard]] size_t LeftOnTheWire() const
    {
        return script_.Arrived.size();
    }

private:
    WireScript script_;
    ScriptedWire wire_;
    std::array<uint8_t, 64> buffer_{};
    const Deadline deadline_{ 1000 };

protected:
    Inbox inbox;
    std::string line = "unset";
};

} // namespace

TEST_F(ScpiInbox, LineEndsInLfOrCrLf)
{
    Deliver("one\ntwo\r\n\r\n");
    EXPECT_TRUE(inbox.Line(line, 3));
    EXPECT_EQ(line, "one");
    EXPECT_TRUE(inbox.Line(line, 3));
    EXPECT_EQ(line, "two");
    EXPECT_TRUE(inbox.Line(line, 3));
    EXPECT_EQ(line, "");
    EXPECT_FALSE(inbox.HasUnread());
}

TEST_F(ScpiInbox, RefusesLineTooLongByOneCharacter)
{
    Deliver("four\n");
    EXPECT_FALSE(inbox.Line(line, 3));
}

TEST_F(ScpiInbox, GivesUpOverlongLineEarly)
{
    Deliver(std::string(1000, 'x'), 10);
    EXPECT_FALSE(inbox.Line(line, 20));
    EXPECT_GT(LeftOnTheWire(), 900U);
}

TEST_F(ScpiInbox, ReadsLineLongerThanBuffer)
{
    Deliver(std::string(1000, 'x') + '\n');
    EXPECT_TRUE(inbox.Line(line, 1000));
    EXPECT_EQ(line.size(), 1000U);
}

TEST_F(ScpiInbox, BlockHeadGivesLength)
{
    uint64_t length = 0;
    Deliver("#10#3012#9000000007", 1);
    EXPECT_TRUE(inbox.BlockHead(length));
    EXPECT_EQ(length, 0U);
    EXPECT_TRUE(inbox.BlockHead(length));
    EXPECT_EQ(length, 12U);
    EXPECT_TRUE(inbox.BlockHead(length));
    EXPECT_EQ(length, 7U);
}

TEST_F(ScpiInbox, BytesReturnsWhatHasArrived)
{
    Deliver("abcdef");
    const ByteView first = inbox.Bytes(2);
    EXPECT_EQ(std::string(first.begin(), first.end()), "ab");
    const ByteView rest = inbox.Bytes(100);
    EXPECT_EQ(std::string(rest.begin(), rest.end()), "cdef");
    EXPECT_TRUE(inbox.Bytes(1).empty());
}
