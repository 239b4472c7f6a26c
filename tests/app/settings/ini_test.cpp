#include "app/platform/seams.h"
#include "app/settings/ini.h"
#include "app/state/project.h"
#include "tests/support/fixture.h"

#include <array>
#include <limits>

#if defined(Q_OS_UNIX)
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace tarvik {

class Ini : public ProgramTest {
protected:
    /// The path of a settings file with these lines in section "S".
    QString With(const QByteArray& lines)
    {
        Store(FilePath("x.ini"), "[S]\n" + lines + "\n");
        return FilePath("x.ini");
    }

    QByteArray Written() const
    {
        return Contents(FilePath("x.ini"));
    }
};

TEST_F(Ini, NumberEndsAtTheFirstOtherCharacter)
{
    EXPECT_EQ(IniNumber(u"1,5"), 1);
    EXPECT_EQ(IniNumber(u"  12abc"), 12);
    EXPECT_EQ(IniNumber(u"1.5.7"), 1.5);
    EXPECT_EQ(IniNumber(u"-5"), -5);
    EXPECT_EQ(IniNumber(u"+5"), 5);
    EXPECT_EQ(IniNumber(u".5"), 0.5);
    EXPECT_EQ(IniNumber(u"5."), 5);
    EXPECT_EQ(IniNumber(u"1 2"), 1);
}

TEST_F(Ini, NumberTakesAnExponentOnlyWithDigits)
{
    EXPECT_EQ(IniNumber(u"1e3"), 1000);
    EXPECT_EQ(IniNumber(u"15E-1x"), 1.5);
    EXPECT_EQ(IniNumber(u"2e"), 2);
    EXPECT_EQ(IniNumber(u"2e+"), 2);
}

TEST_F(Ini, NumberIsZeroWithoutDigits)
{
    for (const char16_t* text : { u"", u" ", u"-", u".", u"e5", u"abc", u"&HFF", u"inf", u"nan", u"\u0664" })
        EXPECT_EQ(IniNumber(text), 0) << QStringView(text).toString().toStdString();
}

TEST_F(Ini, NumberOutOfRangeIsTheLargestOne)
{
    EXPECT_EQ(IniNumber(u"1e999"), std::numeric_limits<double>::max());
    EXPECT_EQ(IniNumber(u"-1e999"), -std::numeric_limits<double>::max());
    EXPECT_EQ(IniNumber(u"1e-999"), 0);
}

TEST_F(Ini, FlagIsTrueForOneOnly)
{
    const QString file = With("one=1\ntwo=2\nzero=0\nminus=-1\nempty=\nword=true\nhalf=1.9");
    EXPECT_TRUE(IniReadBool(file, "S", "one", false));
    EXPECT_FALSE(IniReadBool(file, "S", "two", true));
    EXPECT_FALSE(IniReadBool(file, "S", "zero", true));
    EXPECT_FALSE(IniReadBool(file, "S", "minus", true));
    EXPECT_FALSE(IniReadBool(file, "S", "empty", true));
    EXPECT_FALSE(IniReadBool(file, "S", "word", true));
    EXPECT_TRUE(IniReadBool(file, "S", "half", false));
    EXPECT_TRUE(IniReadBool(file, "S", "missing", true));
    EXPECT_FALSE(IniReadBool(file, "S", "missing", false));
}

TEST_F(Ini, ByteKeepsTheLowBits)
{
    const QString file = With("a=257\nb=255\nc=-1\nd=7.9");
    EXPECT_EQ(IniReadByte(file, "S", "a", 0), 1);
    EXPECT_EQ(IniReadByte(file, "S", "b", 0), 255);
    EXPECT_EQ(IniReadByte(file, "S", "c", 0), 255);
    EXPECT_EQ(IniReadByte(file, "S", "d", 0), 7);
    EXPECT_EQ(IniReadByte(file, "S", "missing", 9), 9);
}

TEST_F(Ini, ColourBeyondWhiteIsTheDefault)
{
    const QString file = With("over=16777216\nwhite=16777215\nminus=-1\nred=255");
    EXPECT_EQ(IniReadColour(file, "S", "over", 0x123456), 0x123456U);
    EXPECT_EQ(IniReadColour(file, "S", "white", 0), 0xFFFFFFU);
    EXPECT_EQ(IniReadColour(file, "S", "minus", 0x123456), 0x123456U);
    EXPECT_EQ(IniReadColour(file, "S", "red", 0), 255U);
    EXPECT_EQ(IniReadColour(file, "S", "missing", 0xFFFFFF), 0xFFFFFFU);
}

TEST_F(Ini, WholeNumbersLoseTheirFractionAndKeepTheLowBits)
{
    const QString file = With("a=2.9\nb=-2.9\nc=65537\nd=4294967297\ne=1e300");
    EXPECT_EQ(IniReadInt(file, "S", "a", 0), 2);
    EXPECT_EQ(IniReadInt(file, "S", "b", 0), -2);
    EXPECT_EQ(IniReadInt(file, "S", "c", 0), 1);
    EXPECT_EQ(IniReadLong(file, "S", "c", 0), 65537);
    EXPECT_EQ(IniReadLong(file, "S", "d", 0), 1);
    EXPECT_EQ(IniReadLong(file, "S", "missing", -7), -7);
    IniReadLong(file, "S", "e", 0); // must only be defined
}

TEST_F(Ini, SingleStaysFinite)
{
    const QString file = With("a=1,5\nb=0.1\nc=1e300");
    EXPECT_EQ(IniReadSingle(file, "S", "a", 9), 1.0F);
    EXPECT_EQ(IniReadSingle(file, "S", "b", 9), 0.1F);
    EXPECT_EQ(IniReadSingle(file, "S", "c", 9), std::numeric_limits<float>::max());
    EXPECT_EQ(IniReadSingle(file, "S", "missing", 0.1F), 0.1F);
}

TEST_F(Ini, StringReturnsItsLengthAndIsTruncated)
{
    const QString file = With("a= text \nempty=\nlong=" + QByteArray(300, 'x'));
    QString out;
    EXPECT_EQ(IniReadString(file, "S", "a", "default", out), 4);
    EXPECT_EQ(out, "text");
    EXPECT_EQ(IniReadString(file, "S", "empty", "default", out), 0);
    EXPECT_EQ(out, "");
    EXPECT_EQ(IniReadString(file, "S", "missing", "default", out), 7);
    EXPECT_EQ(out, "default");
    EXPECT_EQ(IniReadString(file, "S", "long", "", out), kIniTextLimit);
}

TEST_F(Ini, RectTreatsAFarLeftEdgeAsUndefined)
{
    const QString file = With("PLeft=-5\nPTop=-5\nPWidth=2.5");
    const IniRect rect = IniReadRect(file, "S", "P");
    EXPECT_EQ(rect.Left, -1);
    EXPECT_EQ(rect.Top, -5);
    EXPECT_EQ(rect.Width, 2.5F);
    EXPECT_EQ(rect.Height, -1);
}

TEST_F(Ini, MissingFileGivesDefaults)
{
    EXPECT_EQ(IniReadInt(FilePath("none.ini"), "S", "k", 5), 5);
    EXPECT_FALSE(QFileInfo::exists(FilePath("none.ini")));
}

TEST_F(Ini, WritesNumbersWithAPointInEveryRegion)
{
    SetRegion(QLocale(QLocale::German, QLocale::Germany));
    const QString file = With("");
    IniWriteSingle(file, "S", "f", 1.5F);
    IniWriteSingle(file, "S", "g", 15360.127F);
    IniWriteBool(file, "S", "t", true);
    IniWriteBool(file, "S", "u", false);
    IniWriteColour(file, "S", "c", 0xFFFFFF);
    IniWriteInt(file, "S", "i", -3);
    IniWriteLong(file, "S", "l", 70000);
    IniWriteByte(file, "S", "b", 200);
    IniWriteString(file, "S", "s", "  trimmed ");
    EXPECT_EQ(Written(), "[S]\nf=1.5\ng=15360.13\nt=1\nu=0\nc=16777215\ni=-3\nl=70000\nb=200\ns=trimmed\n\n");
}

TEST_F(Ini, WritesARectUnderItsPrefix)
{
    const QString file = With("");
    IniWriteRect(file, "S", "P", { 1, 2.25F, 3, -1 });
    EXPECT_EQ(Written(), "[S]\nPLeft=1\nPTop=2.25\nPWidth=3\nPHeight=-1\n\n");
}

TEST_F(Ini, SessionReplacesTheFileOnce)
{
    const QString file = With("a=1");
    {
        IniSession session(file);
        IniWriteInt(file, "S", "a", 2);
        EXPECT_EQ(IniReadInt(file, "S", "a", 0), 2);
        EXPECT_EQ(Written(), "[S]\na=1\n");
        EXPECT_TRUE(session.Commit());
    }
    EXPECT_EQ(Written(), "[S]\na=2\n");
}

TEST_F(Ini, SessionWithoutCommitChangesNothing)
{
    const QString file = With("a=1");
    {
        IniSession session(file);
        IniWriteInt(file, "S", "a", 2);
    }
    EXPECT_EQ(Written(), "[S]\na=1\n");
    EXPECT_EQ(IniReadInt(file, "S", "a", 0), 1);
}

TEST_F(Ini, UnwritableFileStaysUnchanged)
{
    const QString file = With("a=1");
    QFile::setPermissions(file, QFile::ReadOwner);
    IniWriteInt(file, "S", "a", 2);
    EXPECT_EQ(Written(), "[S]\na=1\n");
}

TEST_F(Ini, FileTooLargeForSettingsStaysUnchanged)
{
    const QString file = With("a=1\n;" + QByteArray(1 << 20, 'x'));
    const QByteArray before = Written();
    EXPECT_EQ(IniReadInt(file, "S", "a", 5), 5);
    IniWriteInt(file, "S", "a", 2);
    EXPECT_EQ(Written(), before);
}

#if defined(Q_OS_UNIX)

TEST_F(Ini, NeitherReadsNorReplacesAPipe)
{
    ASSERT_EQ(::mkfifo(qPrintable(FilePath("pipe")), 0600), 0);
    ASSERT_TRUE(QFile::link(FilePath("pipe"), FilePath("x.ini")));
    EXPECT_EQ(IniReadInt(FilePath("x.ini"), "S", "k", 5), 5) << "and does not wait for a writer";
    // A writer is there, and what it has written stays in the pipe.
    const int pipe = ::open(qPrintable(FilePath("pipe")), O_RDWR | O_NONBLOCK);
    ASSERT_EQ(::write(pipe, "[S]\nk=7\n", 8), 8);
    EXPECT_EQ(IniReadInt(FilePath("x.ini"), "S", "k", 5), 5);
    IniWriteInt(FilePath("x.ini"), "S", "k", 6);
    std::array<char, 16> left{};
    EXPECT_EQ(::read(pipe, left.data(), left.size()), 8);
    ::close(pipe);
    EXPECT_TRUE(QFileInfo(FilePath("x.ini")).isSymLink());
}

TEST_F(Ini, NeitherReadsNorReplacesADevice)
{
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_EQ(::grantpt(terminal), 0);
    ASSERT_EQ(::unlockpt(terminal), 0);
    const QString device = QString::fromLocal8Bit(::ptsname(terminal));
    const int user = ::open(qPrintable(device), O_RDWR | O_NOCTTY); // keeps the characters
    ASSERT_GE(user, 0);
    ASSERT_TRUE(QFile::link(device, FilePath("x.ini")));
    ASSERT_EQ(::write(terminal, "[S]\nk=7\n", 8), 8);
    int waiting = 0;
    while (waiting < 8) // the system passes them on in its own time
        ASSERT_EQ(::ioctl(user, FIONREAD, &waiting), 0);
    EXPECT_EQ(IniReadInt(FilePath("x.ini"), "S", "k", 5), 5);
    IniWriteInt(FilePath("x.ini"), "S", "k", 6);
    EXPECT_EQ(::ioctl(user, FIONREAD, &waiting), 0);
    EXPECT_EQ(waiting, 8);
    EXPECT_TRUE(QFileInfo(FilePath("x.ini")).isSymLink());
    ::close(user);
    ::close(terminal);
}

#endif

TEST_F(Ini, MissingPcFolderIsTheProgramFolder)
{
    Store(FilePath("x.ini"), "[File]\nPcPathMl=" + FilePath("gone").toUtf8() + "\n");
    EXPECT_EQ(IniReadModelPcPath(FilePath("x.ini"), 3), Program().AppPath);
}

TEST_F(Ini, PcFolderThatIsAFileIsTheProgramFolder)
{
    Store(FilePath("file"), "x");
    Store(FilePath("x.ini"), "[File]\nPcPathMl=" + FilePath("file").toUtf8() + "\nPcPathAl=\n");
    EXPECT_EQ(IniReadModelPcPath(FilePath("x.ini"), 3), Program().AppPath);
    EXPECT_EQ(IniReadModelPcPath(FilePath("x.ini"), 1), Program().AppPath);
}

TEST_F(Ini, ExistingPcFolderIsUsed)
{
    ASSERT_TRUE(QDir(Folder()).mkdir("Örtlich"));
    const QString folder = FilePath("Örtlich");
    IniWriteModelPcPath(FilePath("x.ini"), 3, folder);
    EXPECT_EQ(IniReadModelPcPath(FilePath("x.ini"), 3), folder);
}

TEST_F(Ini, PcFolderDefaultsToTheFolderOfItsClass)
{
    for (const char* name :
        { "Antenna List", "K-Factor Table", "Memory List", "Suppress List", "Screen Shots", "Correction Set" })
        ASSERT_TRUE(QDir(Folder()).mkdir(name));
    EXPECT_EQ(IniReadModelPcPath(FilePath("x.ini"), 1), FilePath("Antenna List"));
    EXPECT_EQ(IniReadModelPcPath(FilePath("x.ini"), 2), FilePath("K-Factor Table"));
    EXPECT_EQ(IniReadModelPcPath(FilePath("x.ini"), 3), FilePath("Memory List"));
    EXPECT_EQ(IniReadModelPcPath(FilePath("x.ini"), 4), FilePath("Suppress List"));
    EXPECT_EQ(IniReadModelPcPath(FilePath("x.ini"), 5), FilePath("Screen Shots"));
    EXPECT_EQ(IniReadModelPcPath(FilePath("x.ini"), 6), FilePath("Correction Set"));
}

TEST_F(Ini, FolderOfNoClassIsEmpty)
{
    EXPECT_EQ(IniReadModelPcPath(FilePath("x.ini"), 0), "");
    EXPECT_EQ(IniReadModelPcPath(FilePath("x.ini"), 7), "");
    EXPECT_EQ(IniReadModelInstrPath(FilePath("x.ini"), 7), "");
    IniWriteModelPcPath(FilePath("x.ini"), 7, "x");
    IniWriteModelInstrPath(FilePath("x.ini"), 0, "x");
    EXPECT_FALSE(QFileInfo::exists(FilePath("x.ini")));
}

TEST_F(Ini, InstrumentFolderMayBeAnywhere)
{
    EXPECT_EQ(IniReadModelInstrPath(FilePath("x.ini"), 3), "\\Public\\Memory List");
    IniWriteModelInstrPath(FilePath("x.ini"), 3, "\\Public\\Gone");
    EXPECT_EQ(IniReadModelInstrPath(FilePath("x.ini"), 3), "\\Public\\Gone");
    IniWriteModelInstrPath(FilePath("x.ini"), 3, "");
    EXPECT_EQ(IniReadModelInstrPath(FilePath("x.ini"), 3), "\\Public");
    EXPECT_EQ(Contents(FilePath("x.ini")).trimmed(), "[File]\nInstrPathMl=");
}

TEST_F(Ini, RegionHasAnOrderOfTheDate)
{
    EXPECT_EQ(IniDateOrder(), 0);
    SetRegion(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(IniDateOrder(), 1);
    SetRegion(QLocale(QLocale::Swedish, QLocale::Sweden));
    EXPECT_EQ(IniDateOrder(), 2);
}

TEST_F(Ini, RegionHasDecimalCharacterAndListSeparator)
{
    EXPECT_EQ(IniDecimalChar(), ".");
    EXPECT_EQ(IniListSeparator(), ",");
    SetRegion(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(IniDecimalChar(), ",");
    EXPECT_EQ(IniListSeparator(), ";");
    SetRegion(QLocale::c());
    EXPECT_EQ(IniDecimalChar(), ".");
    EXPECT_EQ(IniListSeparator(), ";");
}

TEST_F(Ini, RegionFormatsShortDateAndTimeWithSeconds)
{
    const QDateTime moment(QDate(2024, 3, 5), QTime(14, 7, 9));
    EXPECT_EQ(IniDateText(moment), "3/5/24");
    EXPECT_EQ(IniTimeText(moment), "2:07:09 PM");
    SetRegion(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(IniDateText(moment), "05.03.24");
    EXPECT_EQ(IniTimeText(moment), "14:07:09");
}

TEST_F(Ini, DefaultPrinterIsTrimmed)
{
    EXPECT_EQ(IniDefaultPrinter(), "");
    TheSeams().DefaultPrinter = [] { return QStringLiteral(" Office "); };
    EXPECT_EQ(IniDefaultPrinter(), "Office");
}

} // namespace tarvik
