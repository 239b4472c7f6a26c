#include "lists/values/translate.h"

#include "tests/lists/list_fixture.h"

namespace tarvik {

namespace {
class Translate : public ListTest { };
} // namespace

TEST_F(Translate, EveryCodeRoundTripsThroughText)
{
    for (const CodeTable& table : { kMemoryStatusCodes, kSquelchStatusCodes, kAttenuatorStatusCodes, kAfcStatusCodes,
             kUsedStatusCodes, kDfSquelchStatusCodes, kDemodulationCodes, kBandwidthCodes, kFrequencySpanCodes,
             kDfStepCodes, kDfBandwidthCodes }) {
        const CodeTexts texts(table);
        for (int code = 0; code < table.Count; ++code) {
            EXPECT_EQ(StrToCode(table, CodeToStr(table, code)), code);
            EXPECT_EQ(texts.CodeOf(texts.TextOf(code)), code);
        }
    }
}

TEST_F(Translate, CodeOutOfRangeIsUnknownOrEmpty)
{
    EXPECT_EQ(CodeToStr(kDemodulationCodes, 8), "?");
    EXPECT_EQ(CodeToStr(kBandwidthCodes, -1), "?");
    EXPECT_EQ(CodeToStr(kFrequencySpanCodes, 13), "?");
    EXPECT_EQ(CodeToStr(kDfStepCodes, 34), "?");
    EXPECT_EQ(CodeToStr(kDfBandwidthCodes, 33), "?");
    EXPECT_EQ(CodeTexts(kDfBandwidthCodes).TextOf(33), QByteArrayView("?"));
    EXPECT_EQ(MemoryStatusToStr(2), "");
    EXPECT_EQ(SquelchStatusToStr(-1), "");
    EXPECT_EQ(AttenuatorStatusToStr(2), "");
    EXPECT_EQ(AFCStatusToStr(2), "");
    EXPECT_EQ(DFSquelchStatusToStr(3), "");
}

TEST_F(Translate, UnknownTextIsMinusOneOrOnePastLast)
{
    EXPECT_EQ(StrToMemoryStatus("x"), -1);
    EXPECT_EQ(StrToSquelchStatus("x"), -1);
    EXPECT_EQ(StrToAttenuatorStatus("x"), -1);
    EXPECT_EQ(StrToAFCStatus("x"), -1);
    EXPECT_EQ(StrToUsedStatus("x"), -1);
    EXPECT_EQ(StrToCode(kDemodulationCodes, "x"), 8);
    EXPECT_EQ(StrToCode(kBandwidthCodes, "x"), 16);
    EXPECT_EQ(StrToCode(kFrequencySpanCodes, "x"), 13);
    EXPECT_EQ(StrToCode(kDfStepCodes, "x"), 34);
    EXPECT_EQ(StrToCode(kDfBandwidthCodes, "x"), 33);
    EXPECT_EQ(CodeTexts(kDfBandwidthCodes).CodeOf("x"), 33);
}

TEST_F(Translate, NamedConversionsUseTheirTexts)
{
    EXPECT_EQ(MemoryStatusToStr(0), "Active");
    EXPECT_EQ(MemoryStatusToStr(1), "Suppressed");
    EXPECT_EQ(UsedStatusToStr(false), "Free");
    EXPECT_EQ(UsedStatusToStr(true), "Used");
    EXPECT_EQ(DFSquelchStatusToStr(2), "Gate");
    EXPECT_EQ(CodeToStr(kDemodulationCodes, 0), "FM");
    EXPECT_EQ(CodeToStr(kBandwidthCodes, 15), "500 kHz");
}

} // namespace tarvik
