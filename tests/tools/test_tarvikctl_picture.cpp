// tarvikctl on pictures, run as a user does.
#include "tests/tools/ctl.h"

#include <QDir>
#include <QFile>
#include <QImage>

namespace {

class CtlPicture : public CtlTest {
protected:
    /// A picture with a red left and a white right half.
    void Picture(const QString& name, QSize size = { 40, 20 }) const
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(0xffffffff);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width() / 2; ++x)
                image.setPixel(x, y, 0xffff0000);
        }
        ASSERT_TRUE(image.save(Path(name)));
    }

    QImage Read(const QString& name) const
    {
        return QImage(Path(name)).convertToFormat(QImage::Format_RGB32);
    }
};

void ExpectDone(const CtlResult& result)
{
    EXPECT_EQ(result.ExitCode, 0) << result.Err.toStdString();
    EXPECT_EQ(result.Err, "");
    EXPECT_EQ(result.Out, "");
}

} // namespace

TEST_F(CtlPicture, WritesEachFileBesideItsSource)
{
    Picture("a.bmp");
    Picture("b.bmp");
    ExpectDone(Ctl({ "picture", "--to", "png", "a.bmp", "b.bmp" }));
    EXPECT_EQ(FolderEntries(), QStringList({ "a.bmp", "a.png", "b.bmp", "b.png" }));
    EXPECT_EQ(Read("a.png"), Read("a.bmp"));
}

TEST_F(CtlPicture, WritesEveryFormatAndReadsItBack)
{
    Picture("a.png");
    for (const char* format : { "bmp", "pcx", "wmf" }) {
        const QString written = QStringLiteral("a.") + QString::fromLatin1(format);
        ExpectDone(Ctl({ "picture", "--to", QString::fromLatin1(format), "a.png" }));
        ExpectDone(Ctl({ "picture", "--to=png", "--into", "back", written }));
        EXPECT_EQ(Read("back/a.png"), Read("a.png")) << format;
        ASSERT_TRUE(QFile::remove(Path("back/a.png")));
    }
}

TEST_F(CtlPicture, FolderIsMadeOneLevelDeep)
{
    Picture("a.bmp");
    ExpectDone(Ctl({ "picture", "--into", "new", "--to", "png", "a.bmp" }));
    EXPECT_TRUE(QFile::exists(Path("new/a.png")));
    const CtlResult refused = Ctl({ "picture", "--into", "one/two", "--to", "png", "a.bmp" });
    EXPECT_EQ(refused.ExitCode, 1);
    EXPECT_TRUE(refused.Err.startsWith("one/two: 12752: ")) << refused.Err.toStdString();
    EXPECT_FALSE(QDir(Path("one")).exists());
}

TEST_F(CtlPicture, ExistingFileStaysUnlessYesIsGiven)
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

TEST_F(CtlPicture, UnreadableFileIsReportedAndTheNextOneFollows)
{
    Store("bad.png", "no picture");
    Picture("a.bmp");
    const CtlResult result = Ctl({ "picture", "--to", "png", "--into", "out", "bad.png", "a.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("bad.png: 12760: ")) << result.Err.toStdString();
    EXPECT_TRUE(QFile::exists(Path("out/a.png")));
    EXPECT_FALSE(QFile::exists(Path("out/bad.png")));
}

TEST_F(CtlPicture, FileOfAnotherKindIsReported)
{
    Store("a.txt2", "text");
    const CtlResult result = Ctl({ "picture", "--to", "png", "a.txt2" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("a.txt2: 12750: ")) << result.Err.toStdString();
}

TEST_F(CtlPicture, BlackAndWhiteIsInvertedGrey)
{
    Picture("a.bmp");
    ExpectDone(Ctl({ "picture", "--palette", "1", "--to", "png", "a.bmp" }));
    const QImage grey = Read("a.png");
    EXPECT_EQ(grey.pixel(0, 0), qRgb(226, 226, 226)) << "255 less the rounded 0.114 x 255";
    EXPECT_EQ(grey.pixel(39, 0), qRgb(0, 0, 0));
}

TEST_F(CtlPicture, ColourLeavesThePictureAsItIs)
{
    Picture("a.bmp");
    ExpectDone(Ctl({ "picture", "--palette", "0", "--to", "png", "a.bmp" }));
    EXPECT_EQ(Read("a.png"), Read("a.bmp"));
}

TEST_F(CtlPicture, DescriptionStandsBelowThePicture)
{
    Picture("a.bmp", { 640, 400 });
    ExpectDone(Ctl({ "picture", "--description", "Tower\nNight", "--to", "png", "a.bmp" }));
    const QImage composed = Read("a.png");
    EXPECT_EQ(composed.width(), 640);
    EXPECT_GT(composed.height(), 415);
    EXPECT_LT(composed.height(), 450);
    EXPECT_EQ(composed.copy(0, 0, 640, 400), Read("a.bmp"));
    const QImage text = composed.copy(0, 402, 640, composed.height() - 402);
    bool hasInk = false;
    for (int y = 0; y < text.height(); ++y) {
        for (int x = 0; x < text.width(); ++x)
            hasInk = hasInk || qGray(text.pixel(x, y)) < 64;
    }
    EXPECT_TRUE(hasInk);
}

TEST_F(CtlPicture, DescriptionOfMoreThanTenLinesIsCutAndTold)
{
    Picture("a.bmp", { 640, 400 });
    const CtlResult result =
        Ctl({ "picture", "--description", QStringLiteral("x\n").repeated(11) + 'y', "--to", "png", "a.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("a.bmp: ")) << result.Err.toStdString();
    EXPECT_TRUE(QFile::exists(Path("a.png")));
}

TEST_F(CtlPicture, WrongUsageIsToldAndTouchesNothing)
{
    Picture("a.bmp");
    const QList<QStringList> wrong = { { "picture", "a.bmp" }, { "picture", "--to", "gif", "a.bmp" },
        { "picture", "--to", "png" }, { "picture", "--to", "png", "--palette", "2", "a.bmp" },
        { "picture", "--to", "png", "a.bmp", "--into" }, { "picture", "--to", "png", "--key", "1", "a.bmp" } };
    for (const QStringList& words : wrong) {
        const CtlResult result = Ctl(words);
        EXPECT_EQ(result.ExitCode, 2) << words.join(' ').toStdString();
        EXPECT_TRUE(result.Err.startsWith("tarvikctl: ")) << result.Err.toStdString();
    }
    EXPECT_EQ(FolderEntries(), QStringList("a.bmp"));
}
