#include "app/about/info.h"

#include "app/help/helpFile.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "tests/support/fixture.h"

#include <algorithm>
#include <cstdio>

#define TV_PRODUCT_VERSION 4, 3, 0, 0 // of the files that these tests write

namespace tarvik {

namespace {

/// A file with a version record, like an executable or module.
QByteArray FileWithVersion(quint16 build)
{
    const TvVersionRecord record = TV_VERSION_RECORD(1, 2, build, 4);
    return "code before" + QByteArray(reinterpret_cast<const char*>(&record), sizeof record) + "code after";
}

void FirmwareOf(int16_t* status, char* out, int32_t outSize)
{
    *status = 0;
    std::snprintf(out, static_cast<size_t>(outSize), "V04.30");
}

void FirmwareFails(int16_t* status, char* out, int32_t outSize)
{
    *status = 3;
    std::snprintf(out, static_cast<size_t>(outSize), "rest");
}

} // namespace

class Info : public ProgramTest {
protected:
    Info()
    {
        TheSeams().ExecutablePath = [this] { return FilePath("program"); };
        TvFio().GetTvFwVersion = FirmwareOf;
    }

    static QStringList Names()
    {
        QStringList names;
        for (const InfoRow& row : InfoRows())
            names.append(row.Name);
        return names;
    }
};

TEST_F(Info, ListsNineFilesInOrder)
{
    const auto name = [](Module module) { return ModuleFileName(module); };
    EXPECT_EQ(Names(),
        QStringList({ "TARVIK.EXE", "TARVIK.CHM", name(Module::General), name(Module::Pictures), name(Module::Language),
            name(Module::Traces), name(Module::Channel), name(Module::ListStore), name(Module::ListStore) + " fw" }));
}

TEST_F(Info, ReadsTheVersionsFromTheFiles)
{
    Store(FilePath("program"), FileWithVersion(3));
    Store(FilePath(ModuleFileName(Module::Pictures)), FileWithVersion(7));
    const auto rows = InfoRows();
    EXPECT_EQ(rows[0].FileVersion, "1.2.3.4");
    EXPECT_EQ(rows[0].ProductVersion, "4.3.0.0");
    EXPECT_EQ(rows[3].FileVersion, "1.2.7.4");
}

TEST_F(Info, ShowsNoVersionOfAMissingFile)
{
    const auto rows = InfoRows();
    EXPECT_NE(LngStr(11712), "");
    for (size_t row = 0; row < 8; ++row) {
        EXPECT_EQ(rows[row].FileVersion, LngStr(11712)) << row;
        EXPECT_EQ(rows[row].ProductVersion, LngStr(11712)) << row;
    }
}

TEST_F(Info, ShowsNoVersionOfAFileWithoutOne)
{
    Store(FilePath("program"), "no record here");
    EXPECT_EQ(InfoRows()[0].FileVersion, LngStr(11712));
    EXPECT_EQ(InfoRows()[0].ProductVersion, LngStr(11712));
}

TEST_F(Info, FirmwareComesFromTheListStoreWithoutAnInstrument)
{
    EXPECT_EQ(InfoRows()[8].FileVersion, "V04.30");
    EXPECT_EQ(InfoRows()[8].ProductVersion, "V04.30");
}

TEST_F(Info, ShowsNoFirmwareVersionAfterAFailure)
{
    TvFio().GetTvFwVersion = FirmwareFails;
    EXPECT_EQ(InfoRows()[8].FileVersion, LngStr(11712));
}

TEST_F(Info, ReadsTheVersionOfTheHelpBook)
{
    Program().HelpFilePath = FilePath("TARVIK.chm");
    EXPECT_EQ(InfoRows()[1].FileVersion, LngStr(11712));
    ASSERT_TRUE(QFile::copy(QStringLiteral(HELP_BOOK), Program().HelpFilePath));
    const std::optional<FileVersion> version = ReadHelpVersion(QStringLiteral(HELP_BOOK));
    ASSERT_TRUE(version);
    EXPECT_EQ(InfoRows()[1].FileVersion, version->File);
    EXPECT_EQ(InfoRows()[1].ProductVersion, version->Product);
}

TEST_F(Info, TextSeparatesColumnsByTabs)
{
    Store(FilePath("program"), FileWithVersion(3));
    const QStringList lines = InfoText().split("\r\n");
    ASSERT_EQ(lines.size(), 10);
    EXPECT_EQ(lines[0], "TARVIK.EXE\t1.2.3.4\t4.3.0.0");
    EXPECT_EQ(lines[9], "");
}

TEST_F(Info, VersionSentenceEndsWithThePreReleaseTag)
{
    EXPECT_EQ(AboutVersionText({}), LngStr1(10014, ProductVersionText()));
    EXPECT_EQ(AboutVersionText("beta 2"), LngStr1(10014, ProductVersionText()) + " beta 2");
}

TEST_F(Info, ShowsAZeroVersion)
{
    TvVersionRecord zero = TV_VERSION_RECORD(0, 0, 0, 0);
    std::ranges::fill(zero.ProductVersion, 0);
    Store(FilePath("program"), QByteArray(reinterpret_cast<const char*>(&zero), sizeof zero));
    EXPECT_EQ(InfoRows()[0].FileVersion, "0.0.0.0");
    EXPECT_EQ(InfoRows()[0].ProductVersion, "0.0.0.0");
}

} // namespace tarvik
