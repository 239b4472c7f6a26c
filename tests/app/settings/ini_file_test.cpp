#include "app/settings/iniFile.h"
#include "tests/support/fixture.h"

namespace tarvik {

namespace {

/// A literal with the zeros inside it.
template <size_t Size>
QByteArray Literal(const char (&text)[Size])
{
    return QByteArray(text, Size - 1);
}

QByteArray Changed(const QByteArray& before, const QString& section, const QString& key, const QString& value)
{
    IniFile file = IniFile::Parse(before);
    file.SetValue(section, key, value);
    return file.Bytes();
}

QString Read(const QByteArray& bytes, const QString& section, const QString& key)
{
    return IniFile::Parse(bytes).Value(section, key).value_or("(none)");
}

} // namespace

TEST(IniFile, KeepsForeignBytes)
{
    const QByteArray bytes =
        Literal("\xEF\xBB\xBF; a comment\r\n\n[A]\nx = 1 \r\nno key\n=no name\n[unclosed\n\0zero\n[B\xE4]\n\xFF\xFE");
    EXPECT_EQ(IniFile::Parse(bytes).Bytes(), bytes);
}

TEST(IniFile, FindsSectionAndKeyInAnyCase)
{
    EXPECT_EQ(Read("[File]\nPcPathMl=/lists\n", "fILE", "pcpathML"), "/lists");
}

TEST(IniFile, DistinguishesMissingAndEmptyKeys)
{
    const IniFile file = IniFile::Parse("[A]\nempty=\n");
    EXPECT_EQ(file.Value("A", "empty"), QString());
    EXPECT_FALSE(file.Value("A", "other").has_value());
    EXPECT_FALSE(file.Value("B", "empty").has_value());
}

TEST(IniFile, TrimsKeyAndValue)
{
    EXPECT_EQ(Read("  [ A ]  \n\t key \t=  two words \t\n", "A", "key"), "two words");
}

TEST(IniFile, DropsOnePairOfQuotes)
{
    EXPECT_EQ(Read("[A]\nk=\"  kept  \"\n", "A", "k"), "  kept  ");
    EXPECT_EQ(Read("[A]\nk='x'\n", "A", "k"), "x");
    EXPECT_EQ(Read("[A]\nk=\"\"x\"\"\n", "A", "k"), "\"x\"");
    EXPECT_EQ(Read("[A]\nk=\"x'\n", "A", "k"), "\"x'");
    EXPECT_EQ(Read("[A]\nk=\"\n", "A", "k"), "\"");
}

TEST(IniFile, FirstOfEqualKeysCounts)
{
    EXPECT_EQ(Read("[A]\nk=1\nK=2\n[a]\nk=3\nm=4\n", "A", "k"), "1");
    EXPECT_EQ(Read("[A]\nk=1\nK=2\n[a]\nk=3\nm=4\n", "A", "m"), "4");
    EXPECT_EQ(Changed("[A]\nk=1\nK=2\n", "a", "K", "9"), QByteArray("[A]\nk=9\nK=2\n"));
}

TEST(IniFile, SecondSectionOfANameContinuesTheFirst)
{
    const QByteArray bytes("[A]\nx=1\n[B]\ny=2\n[a]\nz=3\n");
    EXPECT_EQ(Read(bytes, "A", "z"), "3");
    EXPECT_EQ(Changed(bytes, "A", "z", "4"), QByteArray("[A]\nx=1\n[B]\ny=2\n[a]\nz=4\n"));
    EXPECT_EQ(Changed(bytes, "A", "k", "5"), QByteArray("[A]\nx=1\nk=5\n[B]\ny=2\n[a]\nz=3\n"));
}

TEST(IniFile, IgnoresKeysOutsideSectionsAndInComments)
{
    const IniFile file = IniFile::Parse("k=1\n[A]\n;k=2\n ; k=3\n");
    EXPECT_FALSE(file.Value("", "k").has_value());
    EXPECT_FALSE(file.Value("A", "k").has_value());
    EXPECT_FALSE(file.Value("A", ";k").has_value());
}

TEST(IniFile, KeepsEqualsSignsInAValue)
{
    EXPECT_EQ(Read("[A]\nk=a=b\n", "A", "k"), "a=b");
}

TEST(IniFile, ChangesOnlyTheLineOfTheKey)
{
    EXPECT_EQ(Changed("; top\r\n[A]\r\nx=1\r\n  k  =  old  \r\n; end\r\n[B]\r\nk=1\r\n", "A", "k", "new"),
        QByteArray("; top\r\n[A]\r\nx=1\r\n  k  =  new\r\n; end\r\n[B]\r\nk=1\r\n"));
}

TEST(IniFile, LeavesALineThatAlreadyHasTheValue)
{
    const QByteArray bytes("[A]\nk = \"same\"   \n");
    EXPECT_EQ(Changed(bytes, "A", "k", "same"), bytes);
}

TEST(IniFile, AppendsAKeyToItsSection)
{
    EXPECT_EQ(Changed("[A]\nx=1\n; note\n\n[B]\n", "A", "k", "2"), QByteArray("[A]\nx=1\n; note\nk=2\n\n[B]\n"));
    EXPECT_EQ(Changed("[A]", "A", "k", "2"), QByteArray("[A]\nk=2\n"));
    EXPECT_EQ(Changed("[A]\n\n\n", "A", "k", "2"), QByteArray("[A]\nk=2\n\n\n"));
}

TEST(IniFile, AppendsASectionWithTheLineEndOfTheFile)
{
    EXPECT_EQ(Changed("[A]\r\nx=1", "B", "k", "2"), QByteArray("[A]\r\nx=1\r\n[B]\r\nk=2\r\n"));
}

TEST(IniFile, KeepsTheOrderOfWritingInANewFile)
{
    IniFile file = IniFile::Parse({});
    file.SetValue("A", "one", "1");
    file.SetValue("B", "two", "2");
    file.SetValue("A", "three", "3");
    file.SetValue("A", "one", "4");
    QByteArray expected("[A]\none=4\nthree=3\n[B]\ntwo=2\n");
#if defined(Q_OS_WIN)
    expected.replace("\n", "\r\n");
#endif
    EXPECT_EQ(file.Bytes(), expected);
}

TEST(IniFile, ReadsBackEveryValueThatItWrites)
{
    for (const QString& value : { QStringLiteral("\"Van\""), QStringLiteral("'x'"), QStringLiteral("\"\""),
             QStringLiteral("\""), QStringLiteral("a;b"), QStringLiteral("[x]"), QStringLiteral("/home/Ö/Ж漢/=x"),
             QStringLiteral(""), QStringLiteral("\uFEFFmark") }) {
        const QByteArray bytes = Changed("[A]\nk=0\n", "A", "k", value);
        EXPECT_EQ(Read(bytes, "A", "k"), value) << bytes.constData();
    }
}

TEST(IniFile, ReplacesLineBreaksInAValue)
{
    const QByteArray bytes = Changed({}, "A", "k", QStringLiteral("a\r\n[B]\nx=1") + QChar(0) + "z");
    EXPECT_EQ(Read(bytes, "A", "k"), "a  [B] x=1 z");
    EXPECT_FALSE(IniFile::Parse(bytes).Value("B", "x").has_value());
}

TEST(IniFile, ReadsSingleByteLinesAmongUtf8)
{
    const QByteArray bytes("[A]\nold=\xD6rtlich\nnew=\xC3\x96rtlich\n");
    EXPECT_EQ(Read(bytes, "A", "old"), QStringLiteral("Örtlich"));
    EXPECT_EQ(Read(bytes, "A", "new"), QStringLiteral("Örtlich"));
    EXPECT_TRUE(Changed(bytes, "A", "new", "x").contains("old=\xD6rtlich\n"));
}

TEST(IniFile, FindsTheFirstSectionAfterAByteOrderMark)
{
    EXPECT_EQ(Read("\xEF\xBB\xBF[A]\nk=1\n", "A", "k"), "1");
}

TEST(IniFile, EndsALineAtAZero)
{
    EXPECT_EQ(Read(Literal("[A]\nk=ab\0cd\n"), "A", "k"), "ab");
}

TEST(IniFile, HandlesMissingBracketsAndLongLines)
{
    QByteArray bytes("[\n]\n[]\n[[A]\n");
    bytes += QByteArray(300000, '[') + '\n' + QByteArray(300000, '=') + '\n' + "k=" + QByteArray(300000, 'x');
    EXPECT_EQ(IniFile::Parse(bytes).Bytes(), bytes);
    EXPECT_EQ(Read(bytes, "[A", "k").size(), 300000);
}

} // namespace tarvik
