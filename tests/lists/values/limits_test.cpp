#include "tests/lists/list_fixture.h"

#include "closed/loader.h"
#include "lists/editor/editorGeneral.h"
#include "lists/values/limits.h"
#include "lists/values/listError.h"

#include <string>
#include <vector>

namespace tarvik {

namespace {

std::vector<std::string> calls; // NOLINT: the store's calls are plain functions

#define LIMIT_DOUBLE(Name, result)                                                                                     \
    void Fake##Name(int16_t* status, double* value)                                                                    \
    {                                                                                                                  \
        calls.push_back(#Name);                                                                                        \
        *status = 5;                                                                                                   \
        *value = result;                                                                                               \
    }
#define LIMIT_INT(Name, result)                                                                                        \
    void Fake##Name(int16_t* status, int16_t* value)                                                                   \
    {                                                                                                                  \
        calls.push_back(#Name);                                                                                        \
        *status = 5;                                                                                                   \
        *value = result;                                                                                               \
    }
#define ALL_LIMITS(D, I)                                                                                               \
    D(GetMinFrequencyApplication, 1)                                                                                   \
    D(GetMaxFrequencyApplication, 2)                                                                                   \
    D(GetMinAntennaConverterOffset, 3)                                                                                 \
    D(GetMaxAntennaConverterOffset, 4)                                                                                 \
    D(GetMinKFactorLevel, 5)                                                                                           \
    D(GetMaxKFactorLevel, 6)                                                                                           \
    D(GetMinSquelchLevel, 7)                                                                                           \
    D(GetMaxSquelchLevel, 8)                                                                                           \
    D(GetMinDfSquelchLevel, 9)                                                                                         \
    D(GetMaxDfSquelchLevel, 10)                                                                                        \
    D(GetMinDfMeasTimeInSec, 11)                                                                                       \
    D(GetMaxDfMeasTimeInSec, 12)                                                                                       \
    I(GetMinAntennaNr, 13)                                                                                             \
    I(GetMaxAntennaNr, 14)                                                                                             \
    I(GetMinAntennaCode, 15)                                                                                           \
    I(GetMaxAntennaCode, 16)                                                                                           \
    D(GetMinNorthOffset, 17)                                                                                           \
    D(GetMaxNorthOffset, 18)                                                                                           \
    I(GetMinAntennaBitPattern, 19)                                                                                     \
    I(GetMaxAntennaBitPattern, 20)                                                                                     \
    I(GetMaxAntennasIncluded, 21)                                                                                      \
    I(GetMinMemoryNr, 22)                                                                                              \
    I(GetMaxMemoryNr, 23)

ALL_LIMITS(LIMIT_DOUBLE, LIMIT_INT)

class InstrumentLimitsTest : public ListTest {
protected:
    InstrumentLimitsTest()
    {
        calls.clear();
#define BIND(Name, result) TvFio().Name = Fake##Name;
        ALL_LIMITS(BIND, BIND)
#undef BIND
    }
};

class ListErrorTest : public ListTest { };

} // namespace

TEST_F(InstrumentLimitsTest, AreReadInOrder)
{
    ReadInstrumentLimits();
    std::vector<std::string> expected;
#define NAME(Name, result) expected.push_back(#Name);
    ALL_LIMITS(NAME, NAME)
#undef NAME
    EXPECT_EQ(calls, expected);
}

TEST_F(InstrumentLimitsTest, EachIsStoredInItsField)
{
    ReadInstrumentLimits();
    const InstrumentLimits& limits = Limits();
    EXPECT_EQ(limits.FrequencyHz.Min, 1);
    EXPECT_EQ(limits.FrequencyHz.Max, 2);
    EXPECT_EQ(limits.AntennaConverterOffsetHz.Max, 4);
    EXPECT_EQ(limits.KFactorLevel.Min, 5);
    EXPECT_EQ(limits.SquelchLevel.Max, 8);
    EXPECT_EQ(limits.DfSquelchLevel.Min, 9);
    EXPECT_EQ(limits.DfMeasTimeSec.Max, 12);
    EXPECT_EQ(limits.AntennaNr.Max, 14);
    EXPECT_EQ(limits.AntennaCode.Min, 15);
    EXPECT_EQ(limits.NorthOffset.Max, 18);
    EXPECT_EQ(limits.AntennaBitPattern.Max, 20);
    EXPECT_EQ(limits.MaxAntennasIncluded, 21);
    EXPECT_EQ(limits.MemoryNr.Min, 22);
    EXPECT_EQ(limits.MemoryNr.Max, 23);
}

TEST_F(InstrumentLimitsTest, StatusOfGetterIsIgnored)
{
    ReadInstrumentLimits(); // every getter above fails with status 5
    EXPECT_EQ(Limits().MemoryNr.Max, 23);
}

TEST_F(InstrumentLimitsTest, AreReadWheneverEditorOpens)
{
    OpenEditor(FileClassMemoryList);
    EXPECT_EQ(Limits().FrequencyHz.Max, 2);
    TvFio().GetMaxFrequencyApplication = [](int16_t*, double* value) { *value = 99; };
    OpenEditor(FileClassMemoryList);
    EXPECT_EQ(Limits().FrequencyHz.Max, 99);
}

TEST_F(ListErrorTest, SuccessShowsNothing)
{
    ShowListError(0, kNoItem, true);
}

TEST_F(ListErrorTest, NothingIsShownUnlessRequested)
{
    ShowListError(23, 4, false);
}

TEST_F(ListErrorTest, WithoutItemMessageHasNoArgument)
{
    Answers().Expect(12840, QStringList(), Ok);
    ShowListError(23, kNoItem, true);
}

TEST_F(ListErrorTest, ItemIsArgumentOfMessage)
{
    Answers().Expect(12840, { QStringLiteral("0") }, Ok);
    ShowListError(23, 0, true);
}

TEST_F(ListErrorTest, EachKnownStatusHasItsMessage)
{
    const std::vector<std::array<int, 3>> runs{ { 8, 14, 12828 }, { 16, 16, 12838 }, { 18, 20, 12835 },
        { 22, 43, 12839 }, { 44, 57, 12868 }, { 60, 61, 12882 }, { 65, 66, 12884 }, { 70, 71, 12890 },
        { 72, 75, 12886 }, { 77, 82, 12861 } };
    for (const auto& [first, last, text] : runs) {
        for (int status = first; status <= last; ++status) {
            Answers().Expect(text + status - first, { QStringLiteral("7") }, Ok);
            ShowListError(status, 7, true);
        }
    }
}

TEST_F(ListErrorTest, OtherStatusShowsDescriptionOfStore)
{
    TvFio().GetExceptionStringTV = [](int16_t* status, char* out, int32_t size) {
        EXPECT_EQ(*status, 0);
        qstrncpy(out, "the store's words", static_cast<size_t>(size));
    };
    for (const int status : { 1, 6, 7, 15, 17, 21, 58, 59, 62, 63, 64, 67, 68, 69, 76, 83, 500, -3 }) {
        Answers().Expect(12827, { QStringLiteral("the store's words") }, Ok);
        ShowListError(status, 7, true);
    }
}

} // namespace tarvik
