// What does not compile: bare numbers, and texts whose number of placeholders differs from what the call fills.
#include "app/message/message.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <gtest/gtest.h>

namespace tarvik {

namespace {

template <typename Id>
concept IsFetched = requires(Id id)
{
    LngStr(id);
};
template <typename Id>
concept IsFetchedWithOne = requires(Id id, QString arg)
{
    LngStr1(id, arg);
};
template <typename Id>
concept IsFetchedWithTwo = requires(Id id, QString arg)
{
    LngStr2(id, arg, arg);
};

using Plain = decltype(TextId::FileNameMissing);
using WithOne = decltype(TextId::OverwriteFile);
using WithTwo = decltype(TextId::NumberOutOfRange);
using OneOptional = decltype(TextId::SaveChanges);
using TwoOptional = decltype(TextId::CsvTooManyLines);

static_assert(IsFetched<Plain> && !IsFetchedWithOne<Plain> && !IsFetchedWithTwo<Plain>);
static_assert(!IsFetched<WithOne> && IsFetchedWithOne<WithOne> && !IsFetchedWithTwo<WithOne>);
static_assert(!IsFetched<WithTwo> && !IsFetchedWithOne<WithTwo> && IsFetchedWithTwo<WithTwo>);
static_assert(IsFetched<OneOptional> && IsFetchedWithOne<OneOptional> && !IsFetchedWithTwo<OneOptional>);
static_assert(IsFetched<TwoOptional> && IsFetchedWithOne<TwoOptional> && IsFetchedWithTwo<TwoOptional>);
static_assert(!IsFetched<int> && !IsFetchedWithOne<int> && !IsFetchedWithTwo<int>);

template <typename Id>
concept IsShown = requires(Id id)
{
    MsgOk(id);
    MsgYesNo(id);
    MsgYesNoDefNo(id);
    MsgYesNoCancel(id);
    MsgAskOnce(id);
    StatusSetId(id);
};
template <typename Id>
concept IsNowhereShown = !requires(Id id)
{
    MsgOk(id);
}
&&!requires(Id id)
{
    MsgYesNo(id);
}
&&!requires(Id id)
{
    MsgYesNoDefNo(id);
}
&&!requires(Id id)
{
    MsgYesNoCancel(id);
}
&&!requires(Id id)
{
    MsgAskOnce(id);
}
&&!requires(Id id)
{
    StatusSetId(id);
};

static_assert(IsShown<Plain> && IsShown<OneOptional>);
static_assert(IsNowhereShown<WithOne> && IsNowhereShown<WithTwo> && IsNowhereShown<int>);

template <typename Id>
concept IsShownWithOne = requires(Id id, QString arg)
{
    MsgOk1(id, arg);
    MsgOkNum(id, 1.0);
    MsgYesNoDefNo1(id, arg);
    MsgYesNoCancel1(id, arg);
    MsgYesNoAllCancel1(id, arg);
    MsgAllChoices1(id, arg);
};
template <typename Id>
concept IsNowhereShownWithOne = !requires(Id id, QString arg)
{
    MsgOk1(id, arg);
}
&&!requires(Id id)
{
    MsgOkNum(id, 1.0);
}
&&!requires(Id id, QString arg)
{
    MsgYesNoDefNo1(id, arg);
}
&&!requires(Id id, QString arg)
{
    MsgYesNoCancel1(id, arg);
}
&&!requires(Id id, QString arg)
{
    MsgYesNoAllCancel1(id, arg);
}
&&!requires(Id id, QString arg)
{
    MsgAllChoices1(id, arg);
};

static_assert(IsShownWithOne<WithOne> && IsShownWithOne<OneOptional>);
static_assert(IsNowhereShownWithOne<Plain> && IsNowhereShownWithOne<WithTwo> && IsNowhereShownWithOne<int>);

template <typename Id>
concept IsShownWithTwo = requires(Id id, QString arg)
{
    MsgOk2(id, arg, arg);
}
|| requires(Id id)
{
    MsgOkNum2(id, 1.0, 2.0);
};

static_assert(IsShownWithTwo<WithTwo> && IsShownWithTwo<TwoOptional>);
static_assert(!IsShownWithTwo<Plain> && !IsShownWithTwo<WithOne> && !IsShownWithTwo<OneOptional>);
static_assert(!IsShownWithTwo<int>);

} // namespace

TEST(TextNumbers, KeepTheirNumberInAnotherRange)
{
    EXPECT_EQ(TextId::OverwriteFile.Number, 12734);
    EXPECT_EQ(TextNumber<1>(TextId::SaveChanges).Number, 12714);
    EXPECT_EQ(TopicNumber(TextId::SaveChanges).Number, 12714);
    EXPECT_EQ(TopicNumber(HelpId::About).Number, 10001);
}

TEST(TextNumbers, IndexARun)
{
    EXPECT_EQ((TextId::BandwidthCodes + 3).Number, 10831);
    EXPECT_EQ(TextId::BandwidthCodes + 0, TextId::BandwidthCodes);
}

TEST(TextNumbers, AreNoneByDefault)
{
    EXPECT_TRUE(TextNumber<0>().IsNone());
    EXPECT_FALSE(TextId::Colon.IsNone());
}

} // namespace tarvik
