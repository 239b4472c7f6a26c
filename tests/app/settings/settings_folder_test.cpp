// Where the settings of a program are that was installed for several users.
#include "app/settings/settings.h"
#include "app/state/project.h"
#include "tests/support/fixture.h"
#include "tests/support/ownNamespace.h"

#if defined(Q_OS_LINUX)

#include <QDir>
#include <QFileInfo>

namespace tarvik {

namespace {

/// The program is in a folder that its user can't write.
class InstalledSettings : public ProgramTest {
protected:
    InstalledSettings()
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(FilePath("config")));
        QDir(Folder()).mkdir("program");
        Program().AppPath = FilePath("program/");
    }
    ~InstalledSettings() override
    {
        Protect(false);
    }

    void Protect(bool on) const
    {
        const QFile::Permissions readable = QFile::ReadOwner | QFile::ExeOwner;
        QFile::setPermissions(FilePath("program"), on ? readable : readable | QFile::WriteOwner);
    }

    template <typename Body>
    void AsUser(Body body) const
    {
        RunUnprivileged([this] { Protect(true); }, body);
    }

    const QString own = FilePath("config/tarvik/Tarvik.ini");
};

} // namespace

TEST_F(InstalledSettings, AreInTheFolderOfTheUser)
{
    AsUser([this] {
        EXPECT_EQ(IniFileName(), own);
        IniRead();
        EXPECT_FALSE(QFileInfo::exists(FilePath("config"))) << "reading creates nothing";
        Program().ToolbarOn = false;
        IniWrite();
        Program().ToolbarOn = true;
        IniRead();
        EXPECT_FALSE(Program().ToolbarOn);
        EXPECT_EQ(QDir(FilePath("program")).entryList(QDir::Files | QDir::Hidden), QStringList());
    });
}

TEST_F(InstalledSettings, BeginWithThoseOfTheSite)
{
    Store(FilePath("program/Tarvik.ini"), "[Window]\nToolbar=0\n");
    AsUser([this] {
        IniRead();
        EXPECT_FALSE(Program().ToolbarOn);
        Program().ToolbarOn = true;
        IniWrite();
        Program().ToolbarOn = false;
        IniRead();
        EXPECT_TRUE(Program().ToolbarOn) << "from the user's own file";
        EXPECT_EQ(Contents(FilePath("program/Tarvik.ini")), "[Window]\nToolbar=0\n");
    });
}

TEST_F(InstalledSettings, UnreadableFileGivesDefaultsAndStays)
{
    Program().AppPath = Folder();
    Store(IniFileName(), "[Window]\nToolbar=0\n");
    RunUnprivileged([] { QFile::setPermissions(IniFileName(), QFile::WriteOwner); },
        [] {
            Program().ToolbarOn = false;
            IniRead();
            EXPECT_TRUE(Program().ToolbarOn);
            IniWrite();
        });
    QFile::setPermissions(IniFileName(), QFile::ReadOwner);
    EXPECT_EQ(Contents(IniFileName()), "[Window]\nToolbar=0\n");
}

TEST_F(InstalledSettings, FollowALinkOutOfTheFolder)
{
    ASSERT_TRUE(QFile::link(FilePath("elsewhere.ini"), FilePath("program/Tarvik.ini")));
    AsUser([this] {
        EXPECT_EQ(IniFileName(), FilePath("program/Tarvik.ini"));
        IniWrite();
        EXPECT_TRUE(QFileInfo::exists(FilePath("elsewhere.ini")));
    });
}

TEST_F(InstalledSettings, AreKeptNowhereWithALinkToADevice)
{
    ASSERT_TRUE(QFile::link("/dev/null", FilePath("program/Tarvik.ini")));
    AsUser([this] {
        EXPECT_EQ(IniFileName(), FilePath("program/Tarvik.ini"));
        EXPECT_TRUE(IniHasPlace()) << "on purpose";
    });
}

TEST_F(InstalledSettings, HaveAPlaceIfTheFolderOfTheUserCanBeWritten)
{
    AsUser([this] {
        EXPECT_TRUE(IniHasPlace());
        QFile::setPermissions(FilePath("config/tarvik"), QFile::ReadOwner | QFile::ExeOwner);
        EXPECT_FALSE(IniHasPlace());
        IniWrite();
        EXPECT_FALSE(QFileInfo::exists(own));
        QFile::setPermissions(FilePath("config/tarvik"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    });
}

TEST_F(InstalledSettings, HaveNoPlaceWhereTheFolderOfTheUserCannotBeMade)
{
    Store(FilePath("config"), "a file");
    AsUser([] { EXPECT_FALSE(IniHasPlace()); });
}

} // namespace tarvik

#endif
