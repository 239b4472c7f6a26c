#include "app/text/ansi.h"

#include "tests/support/fixture.h"

namespace tarvik {

TEST(Ansi, ConvertsEveryByteBack)
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.append(static_cast<char>(byte));
    EXPECT_EQ(ToAnsi(FromAnsi(bytes)), bytes);
}

TEST(Ansi, ConvertsCharactersOutsideLatin1)
{
    EXPECT_EQ(FromAnsi("\x80\x99\x9F"), QStringLiteral("€™Ÿ"));
    EXPECT_EQ(ToAnsi(QStringLiteral("€µÄ")), QByteArray("\x80\xB5\xC4"));
}

TEST(Ansi, ReplacesOtherCharactersByQuestionMarks)
{
    EXPECT_EQ(ToAnsi(QStringLiteral("aЖ漢z")), QByteArray("a??z"));
}

TEST(Ansi, RecognisesItsCharacters)
{
    EXPECT_TRUE(IsAnsi(QStringLiteral("dBµV €")));
    EXPECT_FALSE(IsAnsi(QStringLiteral("Ω")));
    EXPECT_TRUE(IsAnsi(QString()));
    EXPECT_FALSE(IsAnsi(QChar(0x96C0)));
    EXPECT_FALSE(IsAnsi(QStringLiteral("😀")));
}

} // namespace tarvik
