// Every file that the program writes is written whole or not at all, whatever fails.
#include "app/message/message.h"
#include "app/platform/NewFileDevice.h"
#include "app/settings/ini.h"
#include "link/documents/fileSave.h"
#include "screen/files/documentFiles.h"
#include "tests/closed/failingfilesystem.h"
#include "tests/lists/list_fixture.h"
#include "tests/support/screens.h"

#include <QDir>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cerrno>

#if defined(Q_OS_UNIX)
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace tarvik {

namespace {

using tvfile::FailingFileSystem;

class WritersTest;

/// A format of file, and what a user sees of its writing.
struct Form {
    const char* Name;
    const char* File;
    bool (WritersTest::*Write)(const QString& path); ///< true on success
    bool AsksToReplace; ///< 12734
    int FailureText; ///< 0 for none
    bool ReportsStoreText; ///< instead of the file's name
    bool ReportsReason; ///< by a more precise text
    size_t TrialBytes; ///< written first, as a trial
};

/// A failing step, and the text of the list store for it.
struct Fault {
    const char* Name;
    void (*Arrange)(FailingFileSystem& disk);
    const char* StoreText;
    int ReasonText; ///< the more precise text; 0 for none
};

class WritersTest : public ScreenTest, protected ListStart {
public:
    WritersTest()
    {
        BindDocumentFiles();
        table_.MemoryListName = QStringLiteral("Van");
        UseRow(table_, 0, 1e8, QStringLiteral("Channel"));
        EXPECT_TRUE(WriteMemoryListDll(table_));
        window_ = Open(WindowSubtype::File, Colourful());
    }

    bool WriteList(const QString& path)
    {
        return WriteMemoryListMRFile(path);
    }
    bool WriteCsv(const QString& path)
    {
        return WriteMemoryListCSVFile(path, table_);
    }
    bool WriteSettings(const QString& path)
    {
        IniSession session(path);
        IniWriteInt(path, QStringLiteral("Window"), QStringLiteral("Toolbar"), 1);
        return session.Commit();
    }
    bool WritePicture(const QString& path)
    {
        QString saved = path;
        return FileSaveAs(saved, window_, true) && !saved.isEmpty();
    }
    bool WritePdf(const QString& path)
    {
        NewFileDevice file(path);
        if (!file.open(QIODevice::WriteOnly))
            return false;
        QPdfWriter writer(&file);
        writer.setPageSize(QPageSize(QPageSize::A6));
        QPainter painter(&writer);
        painter.drawImage(0, 0, Colourful());
        painter.end(); // the last bytes
        return file.Commit();
    }

protected:
    static QImage Colourful()
    {
        QImage picture(24, 16, QImage::Format_RGB32);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                picture.setPixel(x, y, qRgb(x * 9, y * 13, x * y & 0xFF));
        }
        return picture;
    }

    QStringList Names() const
    {
        return QDir(Folder()).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }

    /// Writes without a fault and expects the question about an older file.
    QByteArray WrittenBytes(const Form& form)
    {
        const QString path = FilePath(form.File);
        ExpectQuestion(form);
        EXPECT_TRUE((this->*form.Write)(path));
        return Contents(path);
    }

    void StoreOld(const Form& form)
    {
        QFile::remove(FilePath(form.File));
        Store(FilePath(form.File), kOld);
    }

    void ExpectQuestion(const Form& form)
    {
        if (form.AsksToReplace && QFile::exists(FilePath(form.File)))
            Answers().Expect(12734, { QLatin1String(form.File) }, Yes);
    }

    /// Writes with a fault and expects the format's own message, if any.
    void FailToWrite(const Form& form, const Fault& fault)
    {
        ExpectQuestion(form);
        const QStringList args{ QLatin1String(form.ReportsStoreText ? fault.StoreText : form.File) };
        if (form.FailureText != 0)
            Answers().ExpectPrecise(form.FailureText, form.ReportsReason ? fault.ReasonText : 0, args, Ok);
        EXPECT_FALSE((this->*form.Write)(FilePath(form.File)));
        Answers().Verify();
    }

    /// PDF files differ by their time of creation.
    void ExpectWhole(const Form& form, const QByteArray& whole)
    {
        const QByteArray found = Contents(FilePath(form.File));
        if (qstrcmp(form.Name, "Pdf") != 0) {
            EXPECT_EQ(found, whole);
            return;
        }
        EXPECT_EQ(found.size(), whole.size());
        EXPECT_TRUE(found.startsWith("%PDF-"));
        EXPECT_TRUE(found.endsWith("%%EOF\n"));
    }

    void ExpectOldAlone(const Form& form)
    {
        EXPECT_EQ(Contents(FilePath(form.File)), kOld);
        EXPECT_EQ(Names(), QStringList(form.File));
    }

    void ExpectWholeAlone(const Form& form, const QByteArray& whole)
    {
        ExpectWhole(form, whole);
        EXPECT_EQ(Names(), QStringList(form.File));
    }

    const QByteArray kOld = "[Old]\nkey=1\n";

private:
    MemoryTable table_ = EmptyMemoryTable();
    WindowId window_ = 0;
};

const std::array<Form, 8> kForms{ {
    { "List", "a.tvm", &WritersTest::WriteList, true, 12827, true, false, 0 },
    { "Csv", "a.csv", &WritersTest::WriteCsv, true, 12819, false, true, 0 },
    { "Settings", "a.ini", &WritersTest::WriteSettings, false, 0, false, false, 0 },
    { "Bmp", "a.bmp", &WritersTest::WritePicture, false, 12755, false, false, 1 },
    { "Pcx", "a.pcx", &WritersTest::WritePicture, false, 12757, false, false, 1 },
    { "Png", "a.png", &WritersTest::WritePicture, false, 12761, false, false, 1 },
    { "Wmf", "a.wmf", &WritersTest::WritePicture, false, 12759, false, false, 1 },
    { "Pdf", "a.pdf", &WritersTest::WritePdf, false, 0, false, false, 0 },
} };

const Fault kFullDisk{ "Full", nullptr,
    "The file cannot be written; what was there before is unchanged. The medium is full.", 12906 };

const std::array<Fault, 7> kFaults{ {
    { "Describe", [](FailingFileSystem& disk) { disk.DescribeError = EACCES; },
        "No file can be made in this folder. Access is denied.", 12908 },
    { "Create", [](FailingFileSystem& disk) { disk.CreateError = EROFS; },
        "No file can be made in this folder. The medium is read-only.", 12908 },
    { "Busy", [](FailingFileSystem& disk) { disk.CreateError = EBUSY; }, "Another program is saving this file.",
        12909 },
    { "NameAlwaysTaken",
        [](FailingFileSystem& disk) {
            disk.AtNameCheck = [](const std::string& path) { QFile::remove(QString::fromStdString(path)); };
        },
        "Another program is saving this file.", 12909 },
    { "Write", [](FailingFileSystem& disk) { disk.BytesLeft = 9; }, kFullDisk.StoreText, kFullDisk.ReasonText },
    { "Flush", [](FailingFileSystem& disk) { disk.FlushError = EIO; },
        "The file cannot be written; what was there before is unchanged. The medium does not answer as it should.", 0 },
    { "Replace", [](FailingFileSystem& disk) { disk.ReplaceError = EACCES; },
        "The old file cannot be replaced; it is unchanged. Access is denied.", 12908 },
} };

/// Prints names instead of bytes.
void PrintTo(const Form& form, std::ostream* out)
{
    *out << form.Name;
}

void PrintTo(const Fault& fault, std::ostream* out)
{
    *out << fault.Name;
}

class EveryFormAndFault : public WritersTest, public testing::WithParamInterface<std::tuple<Form, Fault>> {
protected:
    const Form& TheForm() const
    {
        return std::get<0>(GetParam());
    }
    const Fault& TheFault() const
    {
        return std::get<1>(GetParam());
    }
};

class EveryForm : public WritersTest, public testing::WithParamInterface<Form> { };

std::string CaseName(const testing::TestParamInfo<std::tuple<Form, Fault>>& info)
{
    return std::string(std::get<0>(info.param).Name) + std::get<1>(info.param).Name;
}

std::string FormName(const testing::TestParamInfo<Form>& info)
{
    return info.param.Name;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    Writers, EveryFormAndFault, testing::Combine(testing::ValuesIn(kForms), testing::ValuesIn(kFaults)), &CaseName);
INSTANTIATE_TEST_SUITE_P(Writers, EveryForm, testing::ValuesIn(kForms), &FormName);

TEST_P(EveryFormAndFault, LeavesOnlyTheOldFile)
{
    StoreOld(TheForm());
    FailingFileSystem disk;
    TheFault().Arrange(disk);
    FailToWrite(TheForm(), TheFault());
    ExpectOldAlone(TheForm());
}

TEST_P(EveryFormAndFault, LeavesNoNewFile)
{
    FailingFileSystem disk;
    TheFault().Arrange(disk);
    FailToWrite(TheForm(), TheFault());
    EXPECT_EQ(Names(), QStringList());
}

TEST_P(EveryForm, LeavesTheOldFileWhenTheDiskFillsUpAtAnyByte)
{
    StoreOld(GetParam());
    const size_t bytes = static_cast<size_t>(WrittenBytes(GetParam()).size()) + GetParam().TrialBytes;
    const size_t step = std::max<size_t>(bytes / 150, 1); // each byte of the short ones
    StoreOld(GetParam());
    for (size_t left = 0; left < bytes; left = left + step < bytes || left == bytes - 1 ? left + step : bytes - 1) {
        FailingFileSystem disk;
        disk.BytesLeft = left;
        FailToWrite(GetParam(), kFullDisk);
        ExpectOldAlone(GetParam());
        ASSERT_FALSE(HasFailure()) << left << " of " << bytes;
    }
}

TEST_P(EveryForm, WritesAllBytesInSmallChunks)
{
    StoreOld(GetParam());
    const QByteArray whole = WrittenBytes(GetParam());
    StoreOld(GetParam());
    FailingFileSystem disk;
    disk.MaxChunk = 7;
    EXPECT_EQ(WrittenBytes(GetParam()).size(), whole.size());
    ExpectWholeAlone(GetParam(), whole);
}

TEST_P(EveryForm, RetriesWhenItsNewFileIsRemovedAsALeftOver)
{
    StoreOld(GetParam());
    const QByteArray whole = WrittenBytes(GetParam());
    StoreOld(GetParam());
    FailingFileSystem disk;
    int checks = 0;
    disk.AtNameCheck = [&checks](const std::string& path) {
        if (++checks <= 2) {
            EXPECT_TRUE(QFile::remove(QString::fromStdString(path)));
        }
    };
    (void)WrittenBytes(GetParam());
    EXPECT_EQ(disk.Pauses, 2);
    ExpectWholeAlone(GetParam(), whole);
}

TEST_P(EveryForm, FlushesTheFileBeforeReplacingAndTheFolderAfter)
{
    const QString path = FilePath(GetParam().File);
    StoreOld(GetParam());
    const QByteArray whole = WrittenBytes(GetParam());
    StoreOld(GetParam());
    FailingFileSystem disk;
    int flushes = 0;
    disk.AtFlush = [&] {
        ++flushes;
        EXPECT_EQ(Contents(path), kOld);
    };
    disk.AtFolderFlush = [&] { ExpectWholeAlone(GetParam(), whole); };
    (void)WrittenBytes(GetParam());
    EXPECT_EQ(flushes, 1);
    EXPECT_EQ(disk.FolderFlushes, 1);
}

TEST_P(EveryForm, SucceedsWhenTheFolderCannotBeFlushed)
{
    StoreOld(GetParam());
    const QByteArray whole = WrittenBytes(GetParam());
    StoreOld(GetParam());
    FailingFileSystem disk;
    disk.AtFolderFlush = [] {};
    (void)WrittenBytes(GetParam());
    ExpectWholeAlone(GetParam(), whole);
}

#if defined(Q_OS_UNIX)

TEST_P(EveryForm, WaitsForAnotherWriterOfTheSameFile)
{
    StoreOld(GetParam());
    const QByteArray whole = WrittenBytes(GetParam());
    StoreOld(GetParam());
    const std::string busy = tvfile::TemporaryPath(FilePath(GetParam().File).toStdString());
    const int other = ::open(busy.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    FailingFileSystem disk;
    disk.DuringPause = [&] {
        if (disk.Pauses == 3)
            ::close(other);
    };
    (void)WrittenBytes(GetParam());
    EXPECT_GE(disk.Pauses, 3);
    ExpectWholeAlone(GetParam(), whole);
}

TEST_P(EveryForm, LeavesTheOldFileWhenKilledAndTheNextRunCleansUp)
{
    StoreOld(GetParam());
    const QByteArray whole = WrittenBytes(GetParam());
    StoreOld(GetParam());
    const pid_t child = ::fork();
    if (child == 0) {
        FailingFileSystem disk;
        disk.AtFlush = [] { ::_exit(9); };
        (void)WrittenBytes(GetParam());
        ::_exit(0);
    }
    int result = 0;
    ASSERT_EQ(::waitpid(child, &result, 0), child);
    ASSERT_EQ(WEXITSTATUS(result), 9);
    EXPECT_EQ(Contents(FilePath(GetParam().File)), kOld);
    EXPECT_EQ(Names().size(), 2);

    (void)WrittenBytes(GetParam());
    ExpectWholeAlone(GetParam(), whole);
}

#endif

} // namespace tarvik
