// Every part of the program has the version of the build.
#include "app/state/project.h"
#include "closed/loader.h"
#include "tests/tools/ctl.h"

#include <QFile>

namespace tarvik {

namespace {

const QString kVersion = QStringLiteral(PRODUCT_VERSION);
const QString kBinFolder = QStringLiteral(TARVIK_BIN_DIR) + QLatin1Char('/');

class ProductVersion : public CtlTest { };

void ExpectRecord(const QString& path)
{
    const std::optional<FileVersion> version = ReadFileVersion(path);
    ASSERT_TRUE(version.has_value()) << path.toStdString();
    EXPECT_EQ(version->File, kVersion + QStringLiteral(".0")) << path.toStdString();
    EXPECT_EQ(version->Product, kVersion + QStringLiteral(".0")) << path.toStdString();
}

} // namespace

TEST_F(ProductVersion, IsThatOfBuild)
{
    EXPECT_EQ(ProductVersionText(), kVersion);
}

TEST_F(ProductVersion, IsPrintedByTarvikctl)
{
    const CtlResult result = Ctl({ "--version" });
    EXPECT_EQ(result.Out, QStringLiteral("tarvikctl %1\n").arg(kVersion));
    EXPECT_EQ(result.ExitCode, 0);
}

TEST_F(ProductVersion, IsInRecordOfEachModule)
{
    for (const Module module :
        { Module::General, Module::Language, Module::Channel, Module::ListStore, Module::Traces, Module::Pictures })
        ExpectRecord(kBinFolder + ModuleFileName(module));
}

TEST_F(ProductVersion, IsInRecordOfEachExecutable)
{
    for (const char* name : { "tarvik", "tarvikctl" })
        ExpectRecord(kBinFolder + QLatin1String(name) + QStringLiteral(TARVIK_EXE_SUFFIX));
}

TEST_F(ProductVersion, IsInManualPages)
{
    for (const char* page : { "tarvik.1", "tarvikctl.1", "tarvik-instrument.1" }) {
        QFile file(QStringLiteral(TARVIK_MAN_DIR "/") + QLatin1String(page));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << page;
        EXPECT_TRUE(QString::fromUtf8(file.readLine()).contains(QStringLiteral("\"Tarvik %1\"").arg(kVersion))) << page;
    }
}

} // namespace tarvik
