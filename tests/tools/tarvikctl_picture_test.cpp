// tarvikctl converting pictures: formats, options, messages.
#include "tests/tools/ctl_picture_fixture.h"

#include <QDir>

namespace tarvik {

TEST_F(CtlPicture, WritesEachFileNextToItsSource)
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

TEST_F(CtlPicture, UnreadableFileIsReportedAndBatchContinues)
{
    Store("bad.png", "no picture");
    Picture("a.bmp");
    const CtlResult result = Ctl({ "picture", "--to", "png", "--into", "out", "bad.png", "a.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("bad.png: 12760: ")) << result.Err.toStdString();
    EXPECT_TRUE(QFile::exists(Path("out/a.png")));
    EXPECT_FALSE(QFile::exists(Path("out/bad.png")));
}

TEST_F(CtlPicture, FileOfUnknownKindIsReported)
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

TEST_F(CtlPicture, ColourKeepsPicture)
{
    Picture("a.bmp");
    ExpectDone(Ctl({ "picture", "--palette", "0", "--to", "png", "a.bmp" }));
    EXPECT_EQ(Read("a.png"), Read("a.bmp"));
}

TEST_F(CtlPicture, DescriptionIsBelowPicture)
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

TEST_F(CtlPicture, DescriptionOfMoreThanTenLinesIsTruncatedAndReported)
{
    Picture("a.bmp", { 640, 400 });
    const CtlResult result =
        Ctl({ "picture", "--description", QStringLiteral("x\n").repeated(11) + 'y', "--to", "png", "a.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_TRUE(result.Err.startsWith("a.bmp: ")) << result.Err.toStdString();
    EXPECT_TRUE(QFile::exists(Path("a.png")));
}

TEST_F(CtlPicture, WrongUsageIsReportedAndWritesNothing)
{
    Picture("a.bmp");
    const QList<QStringList> wrong = { { "picture", "a.bmp" }, { "picture", "--to", "gif", "a.bmp" },
        { "picture", "--to", "png" }, { "picture", "--to", "png", "--palette", "2", "a.bmp" },
        { "picture", "--to", "png", "a.bmp", "--into" }, { "picture", "--to", "png", "a.bmp", "--into=" },
        { "picture", "--to", "png", "--key", "1", "a.bmp" }, { "picture", "--to", "png", "-platform", "x", "a.bmp" },
        { "picture", "--to", "png", "-name", "a.bmp" } };
    for (const QStringList& words : wrong) {
        const CtlResult result = Ctl(words);
        EXPECT_EQ(result.ExitCode, 2) << words.join(' ').toStdString();
        EXPECT_TRUE(result.Err.startsWith("tarvikctl: ")) << result.Err.toStdString();
    }
    EXPECT_EQ(FolderEntries(), QStringList("a.bmp"));
}

TEST_F(CtlPicture, ListsAndTextsAreReported)
{
    Store("a.csv", MemoryCsv("A", {}));
    Store("b.tvm", "list");
    Store("c.txt", "text");
    Picture("d.bmp");
    const CtlResult result = Ctl({ "picture", "--to", "png", "a.csv", "b.tvm", "c.txt", "d.bmp" });
    EXPECT_EQ(result.ExitCode, 1);
    EXPECT_EQ(result.Err.count('\n'), 3) << result.Err.toStdString();
    for (const char* name : { "a.csv", "b.tvm", "c.txt" })
        EXPECT_TRUE(result.Err.contains(QString::fromLatin1(name) + ": 12750: ")) << result.Err.toStdString();
    EXPECT_TRUE(QFile::exists(Path("d.png")));
}

TEST_F(CtlPicture, HandlesUnusualNames)
{
    const QStringList bases{ QString::fromUtf8("T\u00fcrme \u20ac \u0394\u03bb"), "a b.2024.night", "%1 & 'x' \"y\"",
        "-x", "a\nb", "tab\there", "*?[x]", "100%", QString(251, u'n'), QString(60, QChar(0x4e2d)) };
    for (const QString& base : bases) {
        Picture("a.bmp");
        ASSERT_TRUE(QFile::rename(Path("a.bmp"), Path(base + ".bmp")));
        ExpectDone(Ctl({ "picture", "--to", "png", "--into", "out", "--", base + ".bmp" }));
        EXPECT_EQ(Read("out/" + base + ".png"), Read(base + ".bmp")) << base.toStdString();
        ExpectDone(Ctl({ "picture", "--to", "wmf", "--into", "out", "--", base + ".bmp" }));
        EXPECT_TRUE(QFile::exists(Path("out/" + base + ".wmf"))) << base.toStdString();
    }
    EXPECT_EQ(QDir(Path("out")).entryList(QDir::Files | QDir::Hidden).size(), 2 * bases.size());
}

TEST_F(CtlPicture, ArgumentsAreNotTakenAsOptionsOfQt)
{
    Picture("a.bmp");
    ExpectRefused(Ctl({ "picture", "--to", "png", "--", "-platform", "a.bmp" }), "-platform: 12750: ");
    EXPECT_TRUE(QFile::exists(Path("a.png")));
}

TEST_F(CtlPicture, ReplacesControlCharacters)
{
    const CtlResult result = Ctl({ "picture", "--to", "png", "a\033[2J\nb.doc" });
    ExpectRefused(result, "a?[2J?b.doc: 12750: ");
}

TEST_F(CtlPicture, PipesFoldersAndMissingFilesAreReported)
{
    ASSERT_EQ(Shell("mkfifo a.png; mkdir b.png").ExitCode, 0);
    const CtlResult result = Ctl({ "picture", "--to", "bmp", "a.png", "b.png", "gone.png" });
    EXPECT_EQ(result.ExitCode, 1);
    for (const char* name : { "a.png", "b.png", "gone.png" })
        EXPECT_TRUE(result.Err.contains(QString::fromLatin1(name) + ": 12760: ")) << result.Err.toStdString();
}

TEST_F(CtlPicture, LocaleDoesNotMatter)
{
    Picture("a.bmp");
    ASSERT_TRUE(QFile::rename(Path("a.bmp"), Path(QString::fromUtf8("\u00e4.bmp"))));
    ExpectDone(Shell("LC_ALL=C \"$CTL\" picture --to png *.bmp"));
    EXPECT_TRUE(QFile::exists(Path(QString::fromUtf8("\u00e4.png"))));
    ExpectDone(Shell("LC_ALL=C \"$CTL\" text 11504 >/dev/null"));
}

TEST_F(CtlPicture, ShowsProgressOnTerminalOnly)
{
    Picture("a.bmp");
    Picture("b.bmp");
    const CtlResult shown = Shell("script -qec 'stty cols 12; \"$CTL\" picture --to png a.bmp b.bmp' /dev/null");
    EXPECT_EQ(shown.ExitCode, 0);
    EXPECT_TRUE(shown.Out.contains("\r\033[K1 of 2: a.b\r")) << shown.Out.toStdString();
    EXPECT_TRUE(shown.Out.contains("\r\033[K2 of 2: b.b\r")) << shown.Out.toStdString();
    EXPECT_TRUE(shown.Out.endsWith("\r\033[K")) << shown.Out.toStdString();
}

TEST_F(CtlPicture, HandlesEmptyDescriptionAndTinyPicture)
{
    Picture("a.bmp", { 1, 1 });
    ExpectDone(Ctl({ "picture", "--description", "", "--to", "png", "a.bmp" }));
    EXPECT_GE(Read("a.png").height(), 1);
    EXPECT_EQ(Read("a.png").width(), 1);
}

} // namespace tarvik
