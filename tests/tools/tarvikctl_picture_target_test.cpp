// tarvikctl converting pictures: which files are written, replaced and kept.
#include "tests/tools/ctl_picture_fixture.h"

#include <QDir>

namespace tarvik {

TEST_F(CtlPicture, FolderIsCreatedOneLevelDeep)
{
    Picture("a.bmp");
    ExpectDone(Ctl({ "picture", "--into", "new", "--to", "png", "a.bmp" }));
    EXPECT_TRUE(QFile::exists(Path("new/a.png")));
    const CtlResult refused = Ctl({ "picture", "--into", "one/two", "--to", "png", "a.bmp" });
    EXPECT_EQ(refused.ExitCode, 1);
    EXPECT_TRUE(refused.Err.startsWith("one/two: 12752: ")) << refused.Err.toStdString();
    EXPECT_FALSE(QDir(Path("one")).exists());
}

TEST_F(CtlPicture, ExistingFileIsKeptWithoutYes)
{
    Picture("a.bmp");
    Store("a.png", "old");
    const CtlResult refused = Ctl({ "picture", "--to", "png", "a.bmp" });
    EXPECT_EQ(refused.ExitCode, 1);
    EXPECT_TRUE(refused.Err.startsWith("a.bmp: 12734?: ")) << refused.Err.toStdString();
    EXPECT_EQ(Bytes("a.png"), "old");
    EXPECT_EQ(Ctl({ "picture", "--yes", "--to", "png", "a.bmp" }).ExitCode, 0);
    EXPECT_EQ(Read("a.png"), Read("a.bmp"));
}

TEST_F(CtlPicture, ReadOnlyTargetIsKept)
{
    Picture("a.bmp");
    for (const char* format : { "png", "pcx", "wmf" }) {
        const QString target = QStringLiteral("a.") + QString::fromLatin1(format);
        Store(target, "old");
        ASSERT_TRUE(QFile::setPermissions(Path(target), QFile::ReadOwner));
        const CtlResult result = Ctl({ "picture", "--yes", "--to", QString::fromLatin1(format), "a.bmp" });
        EXPECT_EQ(result.ExitCode, 1);
        EXPECT_TRUE(result.Err.contains("a.bmp: 127")) << result.Err.toStdString();
        EXPECT_EQ(Bytes(target), "old");
    }
    EXPECT_EQ(FolderEntries().size(), 4);
}

TEST_F(CtlPicture, FullDiskKeepsOldFileAndLeavesNoOther)
{
    Noise("a.bmp", { 200, 100 });
    Store("a.png", "old");
    const std::pair<const char*, const char*> formats[] = { { "png", "12761" }, { "pcx", "12757" },
        { "wmf", "12759" } };
    for (const auto& [format, message] : formats) {
        const CtlResult result =
            Shell(QStringLiteral("trap '' XFSZ; ulimit -f 10; \"$CTL\" picture --yes --to %1 a.bmp")
                      .arg(QLatin1String(format)));
        EXPECT_EQ(result.ExitCode, 1) << format;
        EXPECT_TRUE(result.Err.contains(QStringLiteral("a.bmp: %1: ").arg(QLatin1String(message))))
            << result.Err.toStdString();
    }
    EXPECT_EQ(Bytes("a.png"), "old");
    EXPECT_EQ(FolderEntries(), QStringList({ "a.bmp", "a.png" }));
}

TEST_F(CtlPicture, FolderInPlaceOfTargetIsKept)
{
    Picture("a.bmp");
    ASSERT_TRUE(QDir(Path({})).mkdir("a.png"));
    const CtlResult result = Ctl({ "picture", "--yes", "--to", "png", "a.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.contains("a.bmp: 12761: ")) << result.Err.toStdString();
    EXPECT_TRUE(QDir(Path("a.png")).isEmpty());
}

TEST_F(CtlPicture, FileInPlaceOfTargetFolderIsKept)
{
    Picture("a.bmp");
    Store("out", "file");
    ExpectRefused(Ctl({ "picture", "--yes", "--to", "png", "--into", "out", "a.bmp" }), "out: 12752: ");
    EXPECT_EQ(Bytes("out"), "file");
}

TEST_F(CtlPicture, TargetEqualToSourceIsAskedForAndReplaced)
{
    Picture("a.bmp");
    const QByteArray before = Bytes("a.bmp");
    ExpectRefused(Ctl({ "picture", "--palette", "1", "--to", "bmp", "a.bmp" }), "a.bmp: 12734?: ");
    EXPECT_EQ(Bytes("a.bmp"), before);
    EXPECT_EQ(Ctl({ "picture", "--yes", "--palette", "1", "--to", "bmp", "a.bmp" }).ExitCode, 0);
    EXPECT_TRUE(Read("a.bmp").isGrayscale());
    EXPECT_EQ(FolderEntries(), QStringList("a.bmp"));
}

TEST_F(CtlPicture, SecondFileWithSameTargetIsRefused)
{
    Picture("a.bmp");
    Picture("a.png", { 10, 10 });
    ASSERT_TRUE(QDir(Path({})).mkdir("b"));
    Picture("b/a.bmp", { 8, 8 });
    ExpectRefused(Ctl({ "picture", "--yes", "--to", "pcx", "--into", "out", "a.bmp", "b/a.bmp" }),
        "b/a.bmp: would become the same file as a.bmp\n");
    ExpectDone(Ctl({ "picture", "--to", "png", "--into", "back", "out/a.pcx" }));
    EXPECT_EQ(Read("back/a.png"), Read("a.bmp"));
}

TEST_F(CtlPicture, SourceOfBatchIsNotReplaced)
{
    Picture("a.bmp");
    Picture("a.png", { 10, 10 });
    const QByteArray before = Bytes("a.bmp");
    const CtlResult result = Ctl({ "picture", "--yes", "--to", "bmp", "./a.png", "a.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("./a.png: would replace ")) << result.Err.toStdString();
    EXPECT_EQ(Read("a.bmp").size(), QSize(40, 20));
}

TEST_F(CtlPicture, SecondFileWithSameTargetThroughLinkedFolderIsRefused)
{
    ASSERT_EQ(Shell("mkdir b; ln -s b c").ExitCode, 0);
    Picture("b/a.bmp");
    Picture("b/a.png", { 10, 10 });
    ExpectRefused(Ctl({ "picture", "--yes", "--to", "pcx", "b/a.bmp", "c/a.png" }),
        "c/a.png: would become the same file as b/a.bmp\n");
}

TEST_F(CtlPicture, SecondFileWithSameTargetThroughLinksIsRefused)
{
    Picture("a.bmp");
    Picture("b.bmp", { 10, 10 });
    ASSERT_EQ(Shell("touch one; ln -s one a.pcx; ln -s one b.pcx").ExitCode, 0);
    const CtlResult result = Ctl({ "picture", "--yes", "--to", "pcx", "a.bmp", "b.bmp" });
    EXPECT_TRUE(result.Err.startsWith("b.bmp: would become the same file as a.bmp\n")) << result.Err.toStdString();
}

TEST_F(CtlPicture, SecondFileWithSameTargetThroughDanglingLinksIsRefused)
{
    Picture("a.bmp");
    Picture("b.bmp", { 10, 10 });
    ASSERT_EQ(Shell("ln -s one a.pcx; ln -s one b.pcx").ExitCode, 0);
    const CtlResult result = Ctl({ "picture", "--yes", "--to", "pcx", "a.bmp", "b.bmp" });
    EXPECT_TRUE(result.Err.startsWith("b.bmp: would become the same file as a.bmp\n")) << result.Err.toStdString();
}

TEST_F(CtlPicture, SourceOfBatchIsNotReplacedThroughLinkedFolder)
{
    ASSERT_EQ(Shell("mkdir b; ln -s b c").ExitCode, 0);
    Picture("b/a.png", { 10, 10 });
    Picture("b/a.bmp");
    const CtlResult result = Ctl({ "picture", "--yes", "--to", "bmp", "--into", "c", "b/a.png", "b/a.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("b/a.png: would replace ")) << result.Err.toStdString();
    EXPECT_EQ(Read("b/a.bmp").size(), QSize(40, 20));
}

TEST_F(CtlPicture, SourceOfBatchIsNotReplacedThroughLink)
{
    Picture("a.png", { 10, 10 });
    Picture("b.bmp");
    ASSERT_EQ(Shell("ln -s b.bmp a.bmp").ExitCode, 0);
    const CtlResult result = Ctl({ "picture", "--yes", "--to", "bmp", "a.png", "b.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("a.png: would replace ")) << result.Err.toStdString();
    EXPECT_EQ(Read("b.bmp").size(), QSize(40, 20));
}

TEST_F(CtlPicture, FileGivenTwiceThroughLinkedFolderIsConvertedOnce)
{
    ASSERT_EQ(Shell("mkdir b; ln -s b c").ExitCode, 0);
    Picture("b/a.bmp");
    ExpectDone(Ctl({ "picture", "--to", "png", "b/a.bmp", "c/a.bmp" }));
}

TEST_F(CtlPicture, ParentOfLinkedFolderIsRealParent)
{
    ASSERT_EQ(Shell("mkdir -p b/c; ln -s b/c d").ExitCode, 0);
    Picture("a.bmp");
    Picture("b/a.bmp", { 10, 10 });
    ExpectDone(Ctl({ "picture", "--to", "png", "d/../a.bmp" }));
    EXPECT_EQ(Read("b/a.png").size(), QSize(10, 10));
}

TEST_F(CtlPicture, FileGivenTwiceIsConvertedOnce)
{
    Picture("a.bmp");
    ExpectDone(Ctl({ "picture", "--to", "png", "a.bmp", "./a.bmp" }));
}

} // namespace tarvik
