#include "app/platform/seams.h"
#include "tests/support/fixture.h"
#include "tests/support/ownNamespace.h"

#if defined(Q_OS_LINUX)

#include <QDir>
#include <QFileInfo>

#include <sys/resource.h>
#include <sys/stat.h>

namespace tarvik {

namespace {

/// Each test runs in a process that has no rights beyond those of an ordinary user. Without mounts of its own, "home"
/// with the home trash is on the volume of everything else.
class Trash : public ProgramTest {
protected:
    Trash()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(FilePath("home")));
        MakeFolder("home");
        MakeFolder("volume");
        Store(FilePath("volume/a b.txt"), "one");
    }

    void MakeFolder(const QString& name) const
    {
        ASSERT_TRUE(QDir().mkpath(FilePath(name)));
    }

    /// A volume of its own at "volume", with its files.
    void MountVolume() const
    {
        MountFresh(FilePath("volume"), "");
        Store(FilePath("volume/a b.txt"), "one");
    }

    void SetMode(const QString& name, mode_t mode) const
    {
        ASSERT_EQ(::chmod(qPrintable(FilePath(name)), mode), 0);
    }

    bool Move(const QString& name) const
    {
        return TheSeams().MoveToTrash(FilePath(name));
    }

    QStringList Names(const QString& folder) const
    {
        return QDir(FilePath(folder))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

    /// The value of a key in a description.
    QString InfoOf(const QString& trash, const QString& name, const QString& key) const
    {
        const QString text = QString::fromUtf8(Contents(FilePath(trash + "/info/" + name + ".trashinfo")));
        EXPECT_TRUE(text.startsWith("[Trash Info]\n")) << text.toStdString();
        return text.section('\n' + key + '=', 1).section('\n', 0, 0);
    }

    /// A trash that loops runs out of its seconds.
    static void LimitTime()
    {
        const rlimit seconds{ 10, 10 };
        setrlimit(RLIMIT_CPU, &seconds);
    }

    template <typename Body>
    static void InOwnProcess(Body body)
    {
        RunUnprivileged(LimitTime, body);
    }

    /// As above, in a namespace, after `prepare` has mounted what the test needs.
    template <typename Prepare, typename Body>
    static void InOwnProcess(Prepare prepare, Body body)
    {
        const auto mount = [&] {
            LimitTime();
            EnterOwnNamespace();
            prepare();
        };
        RunUnprivileged(mount, body);
    }

    void ExpectEmpty(const QString& trash) const
    {
        EXPECT_EQ(Names(trash + "/files"), QStringList());
        EXPECT_EQ(Names(trash + "/info"), QStringList());
    }
};

} // namespace

TEST_F(Trash, TakesAFileWithItsDescription)
{
    InOwnProcess([&] {
        EXPECT_TRUE(Move("volume/a b.txt"));
        EXPECT_EQ(Names("volume"), QStringList());
        EXPECT_EQ(Contents(FilePath("home/Trash/files/a b.txt")), "one");
        const QString folder = QFileInfo(FilePath("volume")).canonicalFilePath();
        EXPECT_EQ(InfoOf("home/Trash", "a b.txt", "Path"), folder + "/a%20b.txt");
        const QDateTime deleted =
            QDateTime::fromString(InfoOf("home/Trash", "a b.txt", "DeletionDate"), "yyyy-MM-ddTHH:mm:ss");
        EXPECT_TRUE(deleted.isValid());
        struct stat status { };
        EXPECT_EQ(::stat(qPrintable(FilePath("home/Trash")), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0700U);
    });
}

TEST_F(Trash, ReplacesNothing)
{
    InOwnProcess([&] {
        for (const char* text : { "one", "two", "three" }) {
            Store(FilePath("volume/a b.txt"), text);
            EXPECT_TRUE(Move("volume/a b.txt"));
        }
        QStringList texts;
        for (const QString& name : Names("home/Trash/files")) {
            texts.append(QString::fromUtf8(Contents(FilePath("home/Trash/files/" + name))));
            EXPECT_TRUE(InfoOf("home/Trash", name, "Path").endsWith("/a%20b.txt"));
        }
        texts.sort();
        EXPECT_EQ(texts, QStringList({ "one", "three", "two" }));
    });
}

TEST_F(Trash, KeepsAFileWithoutDescription)
{
    MakeFolder("home/Trash/files");
    Store(FilePath("home/Trash/files/a b.txt"), "older");
    InOwnProcess([&] {
        EXPECT_TRUE(Move("volume/a b.txt"));
        EXPECT_EQ(Contents(FilePath("home/Trash/files/a b.txt")), "older");
        EXPECT_EQ(Names("home/Trash/files").size(), 2);
        EXPECT_EQ(Names("home/Trash/info").size(), 1);
    });
}

TEST_F(Trash, TakesFoldersLinksAndTheLongestNames)
{
    MakeFolder("volume/Old/sub");
    Store(FilePath("volume/Old/sub/x"), "x");
    ASSERT_TRUE(QFile::link(FilePath("home"), FilePath("volume/link")));
    const QString name = QStringLiteral("volume/") + QString(127, QChar(0x03B1)) + 'n'; // 255 bytes
    Store(FilePath(name), "long");
    InOwnProcess([&] {
        EXPECT_TRUE(Move("volume/Old/"));
        EXPECT_TRUE(Move("volume/link"));
        EXPECT_TRUE(Move(name));
        EXPECT_EQ(Names("volume"), QStringList("a b.txt"));
        EXPECT_EQ(Contents(FilePath("home/Trash/files/Old/sub/x")), "x");
        EXPECT_TRUE(QFileInfo(FilePath("home/Trash/files/link")).isSymLink());
        EXPECT_EQ(Names("home/Trash/files").size(), 3);
    });
}

TEST_F(Trash, GivesUpWhereItsFoldersCannotBeWritten)
{
    MakeFolder("home/Trash/files");
    MakeFolder("home/Trash/info");
    for (const char* part : { "home/Trash/info", "home/Trash/files" }) {
        SetMode(part, 0500);
        InOwnProcess([&] {
            EXPECT_FALSE(Move("volume/a b.txt"));
            EXPECT_EQ(Contents(FilePath("volume/a b.txt")), "one");
            ExpectEmpty("home/Trash");
        });
        SetMode(part, 0700);
    }
}

TEST_F(Trash, IsNowhereElseWhereHomeCannotBeWritten)
{
    SetMode("home", 0500);
    InOwnProcess([&] {
        EXPECT_FALSE(Move("volume/a b.txt"));
        EXPECT_EQ(Names("."), QStringList({ "home", "volume" }));
        EXPECT_EQ(Names("home"), QStringList());
        EXPECT_EQ(Names("volume"), QStringList("a b.txt"));
    });
    SetMode("home", 0700);
}

TEST_F(Trash, GivesUpWhereTheFileCannotBeRemoved)
{
    SetMode("volume", 0500);
    InOwnProcess([&] {
        EXPECT_FALSE(Move("volume/a b.txt"));
        ExpectEmpty("home/Trash");
        EXPECT_EQ(Names("volume"), QStringList("a b.txt"));
    });
    SetMode("volume", 0700);
}

TEST_F(Trash, IsNotMovedIntoItself)
{
    InOwnProcess([&] {
        EXPECT_FALSE(Move("home"));
        EXPECT_FALSE(Move("none"));
        EXPECT_FALSE(TheSeams().MoveToTrash("/"));
        ExpectEmpty("home/Trash");
    });
}

TEST_F(Trash, OfAnotherVolumeIsInItsTopFolder)
{
    InOwnProcess([&] { MountVolume(); },
        [&] {
            MakeFolder("volume/lists");
            Store(FilePath("volume/lists/x"), "x");
            EXPECT_TRUE(Move("volume/lists/x"));
            EXPECT_EQ(Contents(FilePath("volume/.Trash-0/files/x")), "x");
            EXPECT_EQ(InfoOf("volume/.Trash-0", "x", "Path"), "lists/x");
            EXPECT_EQ(Names("home"), QStringList());
        });
}

TEST_F(Trash, PrefersTheSharedFolderOfAVolume)
{
    InOwnProcess([&] { MountVolume(); },
        [&] {
            MakeFolder("volume/.Trash");
            SetMode("volume/.Trash", 01777);
            EXPECT_TRUE(Move("volume/a b.txt"));
            EXPECT_EQ(Contents(FilePath("volume/.Trash/0/files/a b.txt")), "one");
        });
}

TEST_F(Trash, DoesNotFollowALinkInTheTopFolder)
{
    InOwnProcess([&] { MountVolume(); },
        [&] {
            MakeFolder("volume/elsewhere");
            EXPECT_TRUE(QFile::link(FilePath("volume/elsewhere"), FilePath("volume/.Trash-0")));
            EXPECT_TRUE(Move("volume/a b.txt"));
            EXPECT_EQ(Names("volume/elsewhere"), QStringList());
            EXPECT_EQ(Contents(FilePath("home/Trash/files/a b.txt")), "one");
        });
}

TEST_F(Trash, TakesACopyWhereAVolumeCannotHaveOne)
{
    InOwnProcess([&] { MountVolume(); },
        [&] {
            MakeFolder("volume/mine/sub");
            Store(FilePath("volume/mine/sub/x"), "x");
            EXPECT_TRUE(QFile::link(QStringLiteral("none"), FilePath("volume/mine/link")));
            const QDateTime date(QDate(2024, 2, 3), QTime(4, 5, 6));
            QFile file(FilePath("volume/mine/sub/x"));
            EXPECT_TRUE(file.open(QIODevice::ReadWrite) && file.setFileTime(date, QFileDevice::FileModificationTime));
            file.close();
            MakeFolder("volume/user");
            EXPECT_TRUE(QFile::rename(FilePath("volume/mine"), FilePath("volume/user/mine")));
            SetMode("volume", 0555);
            EXPECT_TRUE(Move("volume/user/mine"));
            EXPECT_EQ(Names("volume/user"), QStringList());
            EXPECT_EQ(Contents(FilePath("home/Trash/files/mine/sub/x")), "x");
            EXPECT_EQ(QFileInfo(FilePath("home/Trash/files/mine/sub/x")).lastModified(), date);
            EXPECT_TRUE(QFileInfo(FilePath("home/Trash/files/mine/link")).isSymLink());
            EXPECT_TRUE(InfoOf("home/Trash", "mine", "Path").endsWith("/volume/user/mine"));
        });
}

TEST_F(Trash, KeepsTheOriginalWhenTheCopyDoesNotFit)
{
    InOwnProcess(
        [&] {
            MountVolume();
            MountFresh(FilePath("home"), "size=64k");
        },
        [&] {
            MakeFolder("volume/user/big");
            for (const char* name : { "1", "2", "3" })
                Store(FilePath(QStringLiteral("volume/user/big/") + name), QByteArray(40000, 'x'));
            SetMode("volume", 0555);
            EXPECT_FALSE(Move("volume/user/big"));
            EXPECT_EQ(Names("volume/user/big"), QStringList({ "1", "2", "3" }));
            EXPECT_EQ(Contents(FilePath("volume/user/big/3")).size(), 40000);
            ExpectEmpty("home/Trash");
        });
}

TEST_F(Trash, CopiesNothingThatItCannotRemove)
{
    InOwnProcess([&] { MountVolume(); },
        [&] {
            MakeFolder("volume/user/Old/locked");
            Store(FilePath("volume/user/Old/1"), "x");
            Store(FilePath("volume/user/Old/locked/2"), "x");
            SetMode("volume/user/Old/locked", 0500);
            SetMode("volume", 0555);
            EXPECT_FALSE(Move("volume/user/Old"));
            EXPECT_EQ(Names("volume/user/Old"), QStringList({ "1", "locked" }));
            ExpectEmpty("home/Trash");
        });
}

TEST_F(Trash, GivesUpOnAReadOnlyMedium)
{
    const auto prepare = [this] {
        MountVolume();
        MakeFolder("volume/.Trash-0/files");
        MakeFolder("volume/.Trash-0/info");
        MountReadOnly(FilePath("volume"));
    };
    InOwnProcess(prepare, [&] {
        EXPECT_FALSE(Move("volume/a b.txt"));
        EXPECT_EQ(Contents(FilePath("volume/a b.txt")), "one");
        ExpectEmpty("home/Trash");
    });
}

TEST_F(Trash, LeavesMountedVolumesInsideAFolderAlone)
{
    const auto prepare = [this] {
        MountVolume();
        MakeFolder("volume/user/Old/inner");
        MountFresh(FilePath("volume/user/Old/inner"), "");
        Store(FilePath("volume/user/Old/inner/x"), "x");
    };
    InOwnProcess(prepare, [&] {
        SetMode("volume", 0555);
        EXPECT_FALSE(Move("volume/user/Old"));
        EXPECT_FALSE(Move("volume/user/Old/inner"));
        EXPECT_EQ(Contents(FilePath("volume/user/Old/inner/x")), "x");
    });
}

} // namespace tarvik

#endif
