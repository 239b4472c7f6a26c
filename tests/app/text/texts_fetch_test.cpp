// Fetching texts: arguments, macros, captions, geometry.
#include "app/forms/form.h"
#include "app/text/lang.h"
#include "closed/loader.h"
#include "tests/support/fakeInstrumentLink.h"
#include "tests/support/fixture.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

namespace tarvik {

namespace {

/// The texts of a fake language module.
std::map<int32_t, QByteArray>& OtherTexts()
{
    static std::map<int32_t, QByteArray> texts;
    return texts;
}

int32_t OtherGetStr(int32_t id, const char* fallback, char* out, int32_t outSize)
{
    const auto found = OtherTexts().find(id);
    const QByteArray text = found == OtherTexts().end() ? QByteArray(fallback) : found->second;
    const auto length = std::min<int32_t>(static_cast<int32_t>(text.size()), outSize - 1);
    std::memcpy(out, text.constData(), static_cast<size_t>(length));
    out[length] = '\0';
    return length;
}

struct Adjustments {
    int16_t Count = 0;
    std::array<int32_t, 4> Twips{};
    int32_t AskedFor = 0;
};

Adjustments& OtherAdjustments()
{
    static Adjustments adjustments;
    return adjustments;
}

int16_t OtherGetCtrlSize(int32_t id, int32_t* left, int32_t* top, int32_t* width, int32_t* height)
{
    Adjustments& adjustments = OtherAdjustments();
    adjustments.AskedFor = id;
    *left = adjustments.Twips[0];
    *top = adjustments.Twips[1];
    *width = adjustments.Twips[2];
    *height = adjustments.Twips[3];
    return adjustments.Count;
}

class Texts : public ProgramTest {
protected:
    ~Texts() override
    {
        OtherTexts().clear();
        OtherAdjustments() = {};
    }

    void UseOtherLanguage(std::map<int32_t, QByteArray> texts)
    {
        OtherTexts() = std::move(texts);
        TvLng().LngGetStr = OtherGetStr;
    }

    void UseAdjustments(int16_t count)
    {
        OtherAdjustments() = { count, { 150, 300, 450, 600 }, 0 };
        TvLng().LngGetCtrlSize = OtherGetCtrlSize;
    }

    static QString FromModule(int id, const char* arg1, const char* arg2)
    {
        std::array<char, TVLNG_MAX_TEXT> out{};
        (void)TvLng().LngGetStr2Arg(id, "", arg1, arg2, out.data(), TVLNG_MAX_TEXT);
        return QString::fromLatin1(out.data());
    }
};

} // namespace

TEST_F(Texts, AreEmptyForANumberWithoutText)
{
    EXPECT_EQ(LngStr(9999), QString());
    EXPECT_EQ(LngStr1(9999, QStringLiteral("a")), QString());
}

TEST_F(Texts, AreEmptyWithoutLanguageModule)
{
    ModulesReset();
    EXPECT_EQ(LngStr(11800), QString());
    EXPECT_EQ(LngExpandMacros(QStringLiteral("a@1b")), QStringLiteral("ab"));
}

TEST_F(Texts, KeepAnAtSignFollowedByABlank)
{
    EXPECT_EQ(LngExpandMacros(QStringLiteral("100 @ 5")), QStringLiteral("100 @ 5"));
}

TEST_F(Texts, KeepAnAtSignFollowedByAnotherCharacterOrTheEnd)
{
    EXPECT_EQ(LngExpandMacros(QStringLiteral("@0 @6 a@b @")), QStringLiteral("@0 @6 a@b @"));
}

TEST_F(Texts, ReplaceEachMacro)
{
    EXPECT_EQ(
        LngExpandMacros(QStringLiteral("@1|@2|@4|@5")), QStringLiteral("Tarvik|Tarvik|Tarvik|Tarvik Instruments"));
}

TEST_F(Texts, ExpandAMacroAfterAnAtSign)
{
    EXPECT_EQ(LngExpandMacros(QStringLiteral("@@1")), QStringLiteral("@Tarvik"));
}

TEST_F(Texts, NameARecognisedInstrument)
{
    FakeInstrumentLink link;
    link.Accepted = true;
    EXPECT_EQ(LngExpandMacros(QStringLiteral("@3")), LngStr(11804));
    link.Accepted = false;
    EXPECT_EQ(LngExpandMacros(QStringLiteral("@3")), LngStr(11805));
    EXPECT_NE(LngStr(11804), LngStr(11805));
}

TEST_F(Texts, NameAnUnknownInstrumentWithoutLink)
{
    EXPECT_EQ(LngExpandMacros(QStringLiteral("@3")), LngStr(11805));
}

TEST_F(Texts, ExpandMacrosInsideReplacements)
{
    UseOtherLanguage({ { 11803, "<@4>" }, { 11802, "[@1]" }, { 11806, "T" } });
    EXPECT_EQ(LngExpandMacros(QStringLiteral("@5")), QStringLiteral("<[T]>"));
}

TEST_F(Texts, DoNotExpandAMacroInsideItself)
{
    UseOtherLanguage({ { 11806, "x@1" } });
    EXPECT_EQ(LngStr(11806), QStringLiteral("xx@1"));
}

TEST_F(Texts, DoNotExpandMacrosThatContainEachOther)
{
    UseOtherLanguage({ { 11802, "a@5" }, { 11803, "b@4" } });
    EXPECT_EQ(LngExpandMacros(QStringLiteral("@4")), QStringLiteral("ab@4"));
}

TEST_F(Texts, LimitMultiplyingReplacements)
{
    const QByteArray manyFives = QByteArray("@5").repeated(2000);
    const QByteArray manyOnes = QByteArray("@1").repeated(2000);
    UseOtherLanguage({ { 11802, manyFives }, { 11803, manyOnes }, { 11806, "@3" }, { 11805, "" } });
    EXPECT_LT(LngExpandMacros(QStringLiteral("@4")).size(), 100000);
}

TEST_F(Texts, InsertArgumentsUnchanged)
{
    EXPECT_EQ(FromModule(10102, "%2", "7"), QStringLiteral("Printing page %2 of 7..."));
}

TEST_F(Texts, KeepMacrosInAnArgument)
{
    EXPECT_EQ(LngStr1(12714, QStringLiteral("a@1.tvm")), QStringLiteral("Save the changes to “a@1.tvm”?"));
    EXPECT_EQ(LngStr2(12749, QStringLiteral("@4"), QStringLiteral("x@5")),
        QStringLiteral("Enter a whole number from x@5 to @4."));
}

TEST_F(Texts, ExpandMacrosAroundAnArgument)
{
    TvLng().LngGetStr1Arg = [](int32_t, const char*, const char* arg, char* out, int32_t outSize) -> int32_t {
        return std::snprintf(out, static_cast<size_t>(outSize), "@1: %s", arg);
    };
    EXPECT_EQ(LngStr1(12714, QStringLiteral("@2")), QStringLiteral("Tarvik: @2"));
    EXPECT_EQ(LngStr1(12714, QStringLiteral("Ä")), QStringLiteral("Tarvik: Ä"));
}

TEST_F(Texts, KeepAnArgumentInAnotherScript)
{
    EXPECT_EQ(LngStr1(12714, QStringLiteral("Список")), QStringLiteral("Save the changes to “Список”?"));
    EXPECT_EQ(
        LngStr2(12749, QStringLiteral("β"), QStringLiteral("α")), QStringLiteral("Enter a whole number from α to β."));
}

TEST_F(Texts, KeepControlCharactersInAnArgument)
{
    EXPECT_EQ(LngStr2(12749, QString(QChar(2)), QString(QChar(1))),
        QStringLiteral("Enter a whole number from ") + QChar(1) + QStringLiteral(" to ") + QChar(2) + u'.');
}

TEST_F(Texts, PassArgumentsAsEightBitText)
{
    static QByteArray passed;
    TvLng().LngGetStr1Arg = [](int32_t, const char*, const char* arg, char*, int32_t) -> int32_t {
        passed = arg;
        return 0;
    };
    (void)LngStr1(12714, QStringLiteral("5 €"));
    EXPECT_EQ(passed, QByteArray("5 \x80"));
}

TEST_F(Texts, ShowAnOptionalPartOnlyWithItsArgument)
{
    EXPECT_EQ(LngStr1(12714, QStringLiteral("a")), QStringLiteral("Save the changes to “a”?"));
    EXPECT_EQ(LngStr(12714), QStringLiteral("Save the changes?"));
}

TEST_F(Texts, DropAPlaceholderWithoutArgument)
{
    EXPECT_EQ(LngStr(10014), QStringLiteral("Version "));
}

TEST_F(Texts, InsertArgumentsInTheOrderOfTheText)
{
    EXPECT_EQ(LngStr2(12749, QStringLiteral("100"), QStringLiteral("40")),
        QStringLiteral("Enter a whole number from 40 to 100."));
}

TEST_F(Texts, TruncateATextLongerThanTheBuffer)
{
    std::array<char, 6> out{};
    EXPECT_EQ(TvLng().LngGetStr(10744, "", out.data(), 6), 5);
    EXPECT_STREQ(out.data(), "Descr");
}

TEST_F(Texts, UseTheFallbackOnlyWithoutText)
{
    std::array<char, 20> out{};
    (void)TvLng().LngGetStr1Arg(9999, "no {of %2 }%1", "text", out.data(), 20);
    EXPECT_STREQ(out.data(), "no text");
}

TEST_F(Texts, IgnoreAWrongLengthFromTheModule)
{
    TvLng().LngGetStr = [](int32_t, const char*, char* out, int32_t) -> int32_t {
        std::memcpy(out, "ab", 3);
        return 1 << 30;
    };
    EXPECT_LT(LngStr(11800).size(), TVLNG_MAX_TEXT);
}

TEST_F(Texts, RemoveTheFirstDoubledAmpersandOfACaption)
{
    EXPECT_EQ(LngUnescapeMenu(QStringLiteral("a&&b&&c")), QStringLiteral("ab&&c"));
    EXPECT_EQ(LngUnescapeMenu(QStringLiteral("a&b")), QStringLiteral("a&b"));
    EXPECT_EQ(LngUnescapeMenu(QStringLiteral("&&")), QString());
}

TEST_F(Texts, NeedNoAdjustmentsInEnglish)
{
    EXPECT_EQ(LngCtrlSize(TextNumber<0>(10709)).Count, 0);
}

TEST_F(Texts, HaveAdjustmentsAtTheTextNumberPlusTenThousand)
{
    UseAdjustments(4);
    EXPECT_EQ(LngCtrlSize(TextNumber<0>(10709)).Height, 600);
    EXPECT_EQ(OtherAdjustments().AskedFor, 20709);
}

TEST_F(Texts, MoveALabelWithFourAdjustments)
{
    UseAdjustments(4);
    QLabel label;
    label.setGeometry(10, 20, 30, 40);
    LngSetCtrl(&label, TextNumber<0>(10744));
    EXPECT_EQ(label.text(), QStringLiteral("Description"));
    EXPECT_EQ(label.pos(), QPoint(20, 40));
    EXPECT_GE(label.width(), 60);
    EXPECT_GE(label.height(), 80);
}

TEST_F(Texts, MoveNothingWithThreeAdjustments)
{
    UseAdjustments(3);
    QLabel label;
    label.setGeometry(10, 20, 30, 40);
    LngSetCtrl(&label, TextNumber<0>(10744));
    EXPECT_EQ(label.geometry(), QRect(10, 20, 30, 40));
    EXPECT_EQ(label.text(), QStringLiteral("Description"));
}

TEST_F(Texts, MoveAComboBoxWithThreeAdjustmentsAndGiveItNoText)
{
    UseAdjustments(3);
    QComboBox combo;
    combo.setEditable(true);
    combo.setGeometry(10, 20, 200, 40);
    LngSetCtrl(&combo, TextNumber<0>(10744));
    EXPECT_EQ(combo.currentText(), QString());
    EXPECT_EQ(combo.pos(), QPoint(20, 40));
    EXPECT_EQ(combo.size(), QSize(230, 40));
}

TEST_F(Texts, ChangeTheHeightOfASimpleComboBoxOnly)
{
    UseAdjustments(4);
    QComboBox combo;
    combo.setGeometry(10, 20, 200, 40);
    LngSetCtrl(&combo, TextNumber<0>(10744));
    EXPECT_EQ(combo.geometry(), QRect(20, 40, 230, 40));
    QComboBox simple;
    simple.setEditable(true);
    simple.setMaxVisibleItems(0);
    simple.setGeometry(10, 20, 200, 40);
    LngSetCtrl(&simple, TextNumber<0>(10744));
    EXPECT_EQ(simple.geometry(), QRect(20, 40, 230, 80));
}

TEST_F(Texts, MoveTheEndsOfALine)
{
    QFrame line;
    line.setFrameShape(QFrame::HLine);
    line.setGeometry(10, 20, 100, 50);
    UseAdjustments(3);
    LngSetCtrl(&line, TextNumber<0>(10744));
    EXPECT_EQ(line.geometry(), QRect(10, 20, 100, 50));
    UseAdjustments(4);
    LngSetCtrl(&line, TextNumber<0>(10744));
    EXPECT_EQ(line.geometry(), QRect(QPoint(20, 40), QSize(120, 70)));
}

TEST_F(Texts, DoNotReplaceAPicture)
{
    QLabel picture;
    picture.setPixmap(QPixmap(8, 8));
    UseAdjustments(4);
    picture.setGeometry(10, 20, 30, 40);
    LngSetCtrl(&picture, TextNumber<0>(10744));
    EXPECT_FALSE(picture.pixmap().isNull());
    EXPECT_EQ(picture.text(), QString());
    EXPECT_EQ(picture.pos(), QPoint(20, 40));
}

TEST_F(Texts, LeaveAComboBoxWithTwoAdjustments)
{
    UseAdjustments(2);
    QComboBox combo;
    combo.setGeometry(10, 20, 200, 40);
    LngSetCtrl(&combo, TextNumber<0>(10744));
    EXPECT_EQ(combo.geometry(), QRect(10, 20, 200, 40));
}

TEST_F(Texts, BecomeTheContentOfATextBox)
{
    QLineEdit textBox;
    LngSetCtrl(&textBox, TextNumber<0>(10744));
    EXPECT_EQ(textBox.text(), QStringLiteral("Description"));
}

TEST_F(Texts, AreNotSetOnListsAndScrollBars)
{
    QListWidget list;
    QScrollBar bar;
    LngSetCtrl(&list, TextNumber<0>(10744));
    LngSetCtrl(&bar, TextNumber<0>(10744));
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(Texts, MoveAFormOnlyWithFourAdjustments)
{
    QWidget form;
    form.setGeometry(10, 20, 300, 200);
    UseAdjustments(3);
    LngSetForm(&form, TextNumber<0>(11700));
    EXPECT_EQ(form.windowTitle(), LngStr(11700));
    EXPECT_EQ(form.geometry(), QRect(10, 20, 300, 200));
    UseAdjustments(4);
    LngSetForm(&form, TextNumber<0>(11700));
    EXPECT_EQ(form.size(), QSize(330, 240));
}

TEST_F(Texts, StopsExpandingMacrosAtItsLimit)
{
    const QString text = LngExpandMacros(QStringLiteral("@1").repeated(70));
    EXPECT_EQ(text, LngStr(11800).repeated(64) + QStringLiteral("@1").repeated(6));
}

TEST_F(Texts, KeepsControlCharactersOfArguments)
{
    const QString text = LngStr2(TextNumber<2>(13611), QStringLiteral("\u0416"), QStringLiteral("\u0001"));
    EXPECT_EQ(text, QStringLiteral("Connected to \u201C\u0416\u201D at \u0001"));
}

} // namespace tarvik
