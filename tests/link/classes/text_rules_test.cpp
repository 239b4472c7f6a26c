#include "link/classes/textRules.h"

#include "link/classes/model.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

class TextRules : public ProgramTest {
protected:
    TextRules()
    {
        ModFileInit(FileClassMemoryList);
    }
};

} // namespace

TEST_F(TextRules, NameTakesLettersDigitsAndSafeCharacters)
{
    EXPECT_TRUE(ValidNameChars("ABCXYZabcxyz0189"));
    EXPECT_TRUE(ValidNameChars(" -+_=&~()[]"));
}

TEST_F(TextRules, NameRefusesEveryOtherCharacter)
{
    for (const char16_t character : u"./\\:*?\"<>|;,'#%!@\u00e4\u20ac\t")
        EXPECT_FALSE(ValidNameChars(QStringLiteral("a") + QChar(character)));
}

TEST_F(TextRules, NameHasOneTo32Characters)
{
    EXPECT_FALSE(ValidNameChars({}));
    EXPECT_TRUE(ValidNameChars("a"));
    EXPECT_TRUE(ValidNameChars(QString(32, u'a')));
    EXPECT_FALSE(ValidNameChars(QString(33, u'a')));
}

TEST_F(TextRules, BadListNameIsReportedWithNounOfClass)
{
    Answers().Expect(12766, { QStringLiteral("memory list") }, Ok);
    EXPECT_FALSE(ValidListName("a/b"));
    ModFileInit(FileClassAntennaList);
    Answers().Expect(12766, { QStringLiteral("antenna list") }, Ok);
    EXPECT_FALSE(ValidListName({}));
}

TEST_F(TextRules, NoneIsReservedInAnyCase)
{
    for (const char* name : { "none", "None", "NONE", " nOnE " }) {
        Answers().Expect(12770, { QStringLiteral("memory list") }, Ok);
        EXPECT_FALSE(ValidListName(QString::fromLatin1(name)));
    }
    EXPECT_TRUE(ValidListName("nonE1"));
}

TEST_F(TextRules, FreeTextRefusesSeparatorsAndQuotes)
{
    for (const char* text : { "a\"b", "a;b", "a'b", "a,b" }) {
        EXPECT_FALSE(ValidText(QString::fromLatin1(text)));
        EXPECT_FALSE(ValidText(QByteArrayView(text)));
    }
    EXPECT_TRUE(ValidText(QStringLiteral("Tower 1 / \u00c4 (north)")));
    EXPECT_TRUE(ValidText(QString()));
    EXPECT_TRUE(ValidText(QByteArrayView("Tower 1")));
}

} // namespace tarvik
