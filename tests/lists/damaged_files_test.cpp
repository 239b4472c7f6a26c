// Damaged binary files, read as the editors do: refused with the store's message and an empty list, or a whole list.
#include "tests/closed/samples.h"
#include "tests/lists/listFamilies.h"
#include "tests/lists/list_fixture.h"
#include "tests/support/messageLog.h"

#include "closed/files/filesystem.h"
#include "closed/loader.h"

#include <QDir>
#include <QFile>

namespace tarvik {

namespace {

/// Files need not survive a power cut here.
class QuickDisk final : public tvfile::FileSystem {
public:
    QuickDisk()
    {
        tvfile::SetFileSystem(this);
    }
    ~QuickDisk() override
    {
        tvfile::SetFileSystem(nullptr);
    }
    int Flush(intptr_t) override
    {
        return 0;
    }
    void FlushFolder(const std::string&) override { }
};

template <typename Family>
class DamagedFile : public ListTest {
protected:
    using Table = typename Family::Table;
    using Content = typename Family::Content;

    DamagedFile()
    {
        SetEditorType(Family::kClass);
        TheMessagePresenter().Set(log);
        EXPECT_TRUE(QDir().mkpath(FilePath("written")));
    }

    static tvfio::Bytes Sample()
    {
        return tvfio::SampleFile<typename Family::StoreList>();
    }
    static tvfio::Bytes WithFlippedBit(tvfio::Bytes file, size_t bit)
    {
        file[bit / 8] = static_cast<uint8_t>(file[bit / 8] ^ (1U << (bit % 8)));
        return file;
    }

    QString PathOf(const tvfio::Bytes& file)
    {
        const QString path = FilePath("list") + QLatin1String(Family::kExtension);
        static_cast<void>(QFile::remove(path)); // truncation makes some file systems flush at once
        Store(path, QByteArray(reinterpret_cast<const char*>(file.data()), static_cast<qsizetype>(file.size())));
        return path;
    }

    /// Reads the file over a list in use. A refused one leaves an empty list and, but for a correction set, shows one
    /// message with the store's own text.
    bool Read(const tvfio::Bytes& file, Table& table)
    {
        Family::Use(table);
        log.Reports.clear();
        const bool isRead = Family::Read(PathOf(file), table);
        const bool isSilent = isRead || Family::kClass == FileClassCorrectionSet;
        EXPECT_EQ(log.Reports.size(), isSilent ? 0 : 1);
        if (!isRead) {
            const Table empty;
            EXPECT_EQ(Family::ContentOf(table), Family::ContentOf(empty));
        }
        return isRead;
    }

    /// The store's text of the refusal.
    QString Refusal() const
    {
        if (Family::kClass == FileClassCorrectionSet)
            return QString::fromLatin1(tvfio::LastExceptionText());
        EXPECT_EQ(log.Reports.first().Number, 12827);
        return log.Reports.first().Args.value(0);
    }

    /// What is in `table` can be written and read back.
    void ExpectWholeList(Table& table)
    {
        const QString path = FilePath("written/list") + QLatin1String(Family::kExtension);
        static_cast<void>(QFile::remove(path));
        ASSERT_TRUE(Family::Write(path, table));
        const Content written = Family::ContentOf(table);
        Family::Use(table);
        ASSERT_TRUE(Family::Read(path, table));
        ASSERT_TRUE(Family::ContentOf(table) == written);
    }

    /// Every list of angles has been released.
    static void ExpectNoAngles()
    {
        const std::int32_t handle = TvFio().AntCorrNewAngles(1);
        EXPECT_EQ(handle, 1);
        TvFio().AntCorrFreeAngles(handle);
    }

    MessageLog log;
};

using Families = testing::Types<AntennaFiles, KfactorFiles, SuppressFiles, CorrectionFiles>;

class FamilyNames {
public:
    template <typename Family>
    static std::string GetName(int)
    {
        return Family::kExtension + 1;
    }
};

} // namespace

TYPED_TEST_SUITE(DamagedFile, Families, FamilyNames);

TYPED_TEST(DamagedFile, EveryTruncationIsRefusedAndLeavesAnEmptyList)
{
    const tvfio::Bytes file = this->Sample();
    {
        typename TypeParam::Table table;
        for (size_t length = 0; length < file.size() && !this->HasFailure(); ++length) {
            const tvfio::Bytes part(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length));
            EXPECT_FALSE(this->Read(part, table)) << length;
            EXPECT_EQ(this->Refusal(), "The file is incomplete.") << length;
        }
        EXPECT_TRUE(this->Read(file, table));
    }
    this->ExpectNoAngles();
}

TYPED_TEST(DamagedFile, EveryFlippedBitIsRefusedAndLeavesAnEmptyList)
{
    const QStringList texts{ "The file is not a list file.", "The file is incomplete.",
        "The file is longer than it should be.", "The file is damaged: its checksum is wrong." };
    const tvfio::Bytes file = this->Sample();
    {
        typename TypeParam::Table table;
        for (size_t bit = 0; bit < file.size() * 8 && !this->HasFailure(); ++bit) {
            EXPECT_FALSE(this->Read(this->WithFlippedBit(file, bit), table)) << bit;
            EXPECT_TRUE(texts.contains(this->Refusal())) << bit << this->Refusal().toStdString();
        }
    }
    this->ExpectNoAngles();
}

TYPED_TEST(DamagedFile, EveryFlippedBitUnderARightChecksumIsRefusedOrReadsAsAWholeList)
{
    const QuickDisk disk;
    const tvfio::Bytes file = this->Sample();
    int wholeLists = 0;
    {
        typename TypeParam::Table table;
        for (size_t bit = tvfio::kHeaderBytes * 8; bit < file.size() * 8 && !this->HasFailure(); ++bit) {
            tvfio::Bytes damaged = this->WithFlippedBit(file, bit);
            tvfio::RepairHeader(damaged);
            if (this->Read(damaged, table)) {
                ++wholeLists;
                this->ExpectWholeList(table);
            } else {
                EXPECT_TRUE(this->Refusal().startsWith("The file ")) << bit;
            }
            EXPECT_FALSE(this->HasFailure()) << bit;
        }
    }
    EXPECT_GT(wholeLists, 0);
    this->ExpectNoAngles();
}

} // namespace tarvik
