#include "closed/loader.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarvik {

namespace {

/// A temporary program folder for modules.
class Loader : public testing::Test {
protected:
    Loader()
    {
        ModulesReset();
    }
    ~Loader() override
    {
        ModulesReset();
    }

    [[nodiscard]] QString Folder() const
    {
        return folder_.path() + QLatin1Char('/');
    }

    /// Copies the built file `source` to the folder under the name of `module`.
    void Install(const char* source, Module module)
    {
        ASSERT_TRUE(QFile::copy(QString::fromUtf8(source), Folder() + ModuleFileName(module)));
    }

    void Write(const QString& name, const QByteArray& bytes)
    {
        QFile file(Folder() + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

private:
    QTemporaryDir folder_;
};

} // namespace

TEST_F(Loader, BindsEveryModuleBesideTheExecutable)
{
    const std::array files{ TVGEN_FILE, TVLNG_FILE, TVSCPI_FILE, TVFIO_FILE, TVSWP_FILE, TVIMG_FILE };
    for (size_t i = 0; i < files.size(); ++i) {
        const auto module = static_cast<Module>(i);
        Install(files[i], module);
        EXPECT_FALSE(ModuleIsBound(module));
        EXPECT_TRUE(ModuleLoad(module, Folder())) << files[i];
        EXPECT_TRUE(ModuleIsBound(module));
    }
}

TEST_F(Loader, BoundOperationsWork)
{
    Install(TVFIO_FILE, Module::ListStore);
    ASSERT_TRUE(ModuleLoad(Module::ListStore, Folder()));
    int16_t status = -1;
    int16_t count = 0;
    TvFio().MemoryListGetMaxNumberOfItems(&status, &count);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(count, 1024);
}

TEST_F(Loader, EachFailureHasItsReason)
{
    const auto path = [this](Module module) { return Folder() + ModuleFileName(module); };
    const auto reason = [this](Module module) { return ModuleLoad(module, Folder()).Reason.toStdString(); };
    EXPECT_EQ(reason(Module::General), path(Module::General).toStdString() + ": there is no such file");
    QFile whole(QString::fromUtf8(TVGEN_FILE));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    Write(ModuleFileName(Module::General), whole.readAll().chopped(1));
    EXPECT_EQ(reason(Module::General), path(Module::General).toStdString() + ": the file is incomplete");
    Install(REFUSING_FILE, Module::Language);
    EXPECT_EQ(reason(Module::Language), path(Module::Language).toStdString() + ": the library is of another version");
    Install(WITHOUT_ENTRY_FILE, Module::Channel);
    EXPECT_EQ(reason(Module::Channel), path(Module::Channel).toStdString() + ": the library has no entry point VbLoad");
    Install(TVFIO_FILE, Module::ListStore);
    EXPECT_EQ(reason(Module::ListStore), "");
}

#if defined(Q_OS_LINUX)

TEST_F(Loader, ReasonIsThatOfTheDynamicLoader)
{
    const QString path = Folder() + ModuleFileName(Module::General);
    const auto reason = [this] { return ModuleLoad(Module::General, Folder()).Reason; };
    Write(ModuleFileName(Module::General), "no library at all\n");
    EXPECT_TRUE(reason().contains(path + ": file too short")) << reason().toStdString();
    Write(ModuleFileName(Module::General), QByteArray(1000, 'x'));
    EXPECT_TRUE(reason().contains(path + ": invalid ELF header")) << reason().toStdString();
}

#endif

TEST_F(Loader, MissingFileIsNotBound)
{
    EXPECT_FALSE(ModuleLoad(Module::General, Folder()));
    EXPECT_FALSE(ModuleIsBound(Module::General));
    EXPECT_EQ(TvGen().GenSplitPath, nullptr);
}

TEST_F(Loader, FolderNamedLikeModuleIsNotBound)
{
    ASSERT_TRUE(QDir(Folder()).mkdir(ModuleFileName(Module::General)));
    EXPECT_FALSE(ModuleLoad(Module::General, Folder()));
}

TEST_F(Loader, NonLibraryIsNotBound)
{
    Write(ModuleFileName(Module::General), "no library at all\n");
    EXPECT_FALSE(ModuleLoad(Module::General, Folder()));
    EXPECT_FALSE(ModuleIsBound(Module::General));
}

TEST_F(Loader, EmptyFileIsNotBound)
{
    Write(ModuleFileName(Module::General), {});
    EXPECT_FALSE(ModuleLoad(Module::General, Folder()));
}

TEST_F(Loader, TruncatedLibraryIsNotBound)
{
    QFile whole(QString::fromUtf8(TVGEN_FILE));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    for (const qsizetype length : { qsizetype{ 10 }, qsizetype{ 100 }, bytes.size() / 8, bytes.size() - 1 }) {
        Write(ModuleFileName(Module::General), bytes.first(length));
        EXPECT_FALSE(ModuleLoad(Module::General, Folder())) << length;
    }
}

TEST_F(Loader, LibraryWithoutEntryIsNotBound)
{
    Install(WITHOUT_ENTRY_FILE, Module::General);
    EXPECT_FALSE(ModuleLoad(Module::General, Folder()));
    EXPECT_FALSE(ModuleIsBound(Module::General));
}

TEST_F(Loader, ModuleThatRefusesTableIsNotBound)
{
    Install(REFUSING_FILE, Module::General);
    EXPECT_FALSE(ModuleLoad(Module::General, Folder()));
    EXPECT_FALSE(ModuleIsBound(Module::General));
    EXPECT_EQ(TvGen().GenSplitPath, nullptr);
}

TEST_F(Loader, ModuleWithoutAllOperationsIsNotBound)
{
    Install(UNFINISHED_FILE, Module::General);
    EXPECT_FALSE(ModuleLoad(Module::General, Folder()));
    EXPECT_FALSE(ModuleIsBound(Module::General));
    EXPECT_EQ(TvGen().GenFileDateAndTime, nullptr);
}

TEST_F(Loader, FailedLoadKeepsBoundModule)
{
    Install(TVGEN_FILE, Module::General);
    ASSERT_TRUE(ModuleLoad(Module::General, Folder()));
    const QTemporaryDir other;
    EXPECT_FALSE(ModuleLoad(Module::General, other.path() + QLatin1Char('/')));
    EXPECT_TRUE(ModuleIsBound(Module::General));
    char part[64];
    EXPECT_EQ(TvGen().GenSplitPath("/a/b", part, part, part, part, sizeof part), 0);
}

TEST_F(Loader, ReadsModuleVersionWithoutLoading)
{
    const std::optional<FileVersion> version = ReadFileVersion(QString::fromUtf8(TVFIO_FILE));
    ASSERT_TRUE(version.has_value());
    EXPECT_EQ(version->File, QStringLiteral(PRODUCT_VERSION));
    EXPECT_EQ(version->Product, QStringLiteral(PRODUCT_VERSION));
    EXPECT_FALSE(ModuleIsBound(Module::ListStore));
}

TEST_F(Loader, FileVersionListsFourNumbersInOrder)
{
    const std::optional<FileVersion> version = ReadFileVersion(QString::fromUtf8(REFUSING_FILE));
    ASSERT_TRUE(version.has_value());
    EXPECT_EQ(version->File, QStringLiteral("1.20.300.4000"));
}

TEST_F(Loader, ZeroVersionIsAVersion)
{
    const std::optional<FileVersion> version = ReadFileVersion(QString::fromUtf8(WITHOUT_ENTRY_FILE));
    ASSERT_TRUE(version.has_value());
    EXPECT_EQ(version->File, QStringLiteral("0.0.0.0"));
    EXPECT_EQ(version->Product, QStringLiteral("0.0.0.0"));
}

TEST_F(Loader, FileWithoutVersionRecordHasNone)
{
    Write(QStringLiteral("plain"), "no record here");
    EXPECT_FALSE(ReadFileVersion(Folder() + QStringLiteral("plain")).has_value());
    EXPECT_FALSE(ReadFileVersion(Folder() + QStringLiteral("missing")).has_value());
}

TEST_F(Loader, TruncatedVersionRecordIsIgnored)
{
    const TvVersionRecord record = TV_VERSION_RECORD(1, 2, 3, 4);
    const QByteArray bytes(reinterpret_cast<const char*>(&record), sizeof record);
    Write(QStringLiteral("whole"), "text before " + bytes);
    Write(QStringLiteral("cut"), "text before " + bytes.chopped(1));
    EXPECT_TRUE(ReadFileVersion(Folder() + QStringLiteral("whole")).has_value());
    EXPECT_FALSE(ReadFileVersion(Folder() + QStringLiteral("cut")).has_value());
}

} // namespace tarvik
