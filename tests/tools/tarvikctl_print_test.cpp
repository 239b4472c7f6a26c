// tarvikctl printing into PDF files and to a queue; the pages are judged by other programs.
#include "tests/tools/ctl_picture_fixture.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tarvik {

namespace {

class CtlPrint : public CtlPicture {
protected:
    QJsonObject Layout(const QStringList& arguments) const
    {
        const CtlResult result = Ctl(QStringList({ "print", "--layout" }) + arguments);
        EXPECT_EQ(result.ExitCode, 0) << result.Err.toStdString();
        return QJsonDocument::fromJson(result.Out.toUtf8()).object();
    }

    static QJsonObject Entry(const QJsonObject& table, int page, int entry)
    {
        return table["pages"].toArray()[page].toObject()["entries"].toArray()[entry].toObject();
    }

    static int Pages(const QJsonObject& table)
    {
        return static_cast<int>(table["pages"].toArray().size());
    }

    /// A page of a PDF as pixels, `dpi` to an inch.
    QImage Page(const QString& pdf, int number, int dpi) const
    {
        const CtlResult result = Shell(
            QStringLiteral("pdftoppm -r %1 -f %2 -l %2 -singlefile -png '%3' seen").arg(dpi).arg(number).arg(pdf));
        EXPECT_EQ(result.ExitCode, 0) << result.Err.toStdString();
        return Read("seen.png");
    }

    QString Words(const QString& pdf) const
    {
        return Shell(QStringLiteral("pdftotext '%1' -").arg(pdf)).Out.simplified();
    }

    void ExpectUsage(const QStringList& arguments, const QString& error) const
    {
        const CtlResult result = Ctl(QStringList("print") + arguments);
        EXPECT_EQ(result.ExitCode, 2);
        EXPECT_EQ(result.Err, "tarvikctl: print: " + error + "\nTry 'tarvikctl --help'.\n");
    }
};

/// Bounding rectangle of the pixels of a colour.
QRect Covered(const QImage& image, QRgb colour)
{
    QRect covered;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == colour)
                covered |= QRect(x, y, 1, 1);
        }
    }
    return covered;
}

} // namespace

TEST_F(CtlPrint, LayoutIsThatOfAFullPage)
{
    Picture("a.png", { 400, 200 });
    const QJsonObject table = Layout({ "--paper", "Letter", "a.png" });
    EXPECT_EQ(table["paper"], QJsonObject({ { "width", 8.5 }, { "height", 11 } }));
    EXPECT_EQ(table["offset"], QJsonObject({ { "x", 0.25 }, { "y", 0.25 } }));
    EXPECT_EQ(table["dpi"], QJsonObject({ { "x", 300 }, { "y", 300 } }));
    ASSERT_EQ(Pages(table), 1);
    const QJsonObject page = table["pages"].toArray()[0].toObject();
    EXPECT_EQ(
        page["margins"], QJsonObject({ { "left", 0.25 }, { "top", 0.25 }, { "right", 0.25 }, { "bottom", 0.25 } }));
    EXPECT_EQ(page["front"], 0);
    EXPECT_EQ(page["blackAndWhite"], false);
    const QJsonObject entry = Entry(table, 0, 0);
    EXPECT_EQ(entry["file"], "a.png");
    EXPECT_EQ(entry["type"], 2);
    EXPECT_EQ(entry["outline"], true);
    EXPECT_EQ(entry["title"], false);
    EXPECT_EQ(entry["titleShare"], 0);
    EXPECT_EQ(entry["pictureShare"], 1);
    EXPECT_EQ(entry["descriptionShare"], 0);
    EXPECT_EQ(entry["statusShare"], 0);
    EXPECT_EQ(entry["order"], 5120);
    EXPECT_NEAR(entry["rectangle"].toObject()["left"].toDouble(), 0.85, 1e-6);
    EXPECT_NEAR(entry["rectangle"].toObject()["width"].toDouble(), 6.8, 1e-6);
    EXPECT_NEAR(entry["rectangle"].toObject()["height"].toDouble(), 3.4, 1e-6);
    EXPECT_EQ(entry["device"], QJsonObject({ { "left", 180 }, { "top", 180 }, { "width", 2030 }, { "height", 1010 } }));
}

TEST_F(CtlPrint, PictureIsWhereTheLayoutSays)
{
    Picture("a.png", { 400, 200 });
    ExpectDone(Ctl({ "print", "--to", "out.pdf", "--paper", "Letter", "--no-outline", "a.png" }));
    const QImage page = Page("out.pdf", 1, 300);
    EXPECT_EQ(page.size(), QSize(2550, 3300));
    const QRect red = Covered(page, 0xffff0000);
    EXPECT_NEAR(red.left(), 75 + 180, 1);
    EXPECT_NEAR(red.top(), 75 + 180, 1);
    EXPECT_NEAR(red.width(), 2030 / 2, 1);
    EXPECT_NEAR(red.height(), 1010, 1);
}

TEST_F(CtlPrint, PictureKeepsItsOwnPixels)
{
    Noise("a.png", { 123, 77 });
    ExpectDone(Ctl({ "print", "--to", "out.pdf", "a.png" }));
    ASSERT_EQ(Shell("pdfimages -png out.pdf picture").ExitCode, 0);
    EXPECT_EQ(Read("picture-000.png"), Read("a.png"));
    EXPECT_FALSE(QFile::exists(Path("picture-001.png")));
}

TEST_F(CtlPrint, TextsCanBeSearchedAndFontsAreEmbedded)
{
    Picture("station 7.png", { 400, 200 });
    ExpectDone(Ctl({ "print", "--to", "out.pdf", "--title", "--description", "Carrier on 98.5 MHz\nsecond line",
        "station 7.png" }));
    EXPECT_EQ(Words("out.pdf"), "station 7.png Carrier on 98.5 MHz second line");
    EXPECT_TRUE(Shell("pdfinfo out.pdf").Out.contains("Title:           station 7\n"));
    const CtlResult fonts = Shell("pdffonts out.pdf | tail -n +3 | grep -vc ' yes [a-z]* *yes '");
    EXPECT_EQ(fonts.Out, "0\n") << "fonts that are not embedded, or can't be searched";
}

TEST_F(CtlPrint, BlackAndWhiteIsConvertedOnce)
{
    Picture("a.png", { 400, 200 });
    ExpectDone(Ctl({ "print", "--to", "out.pdf", "--bw", "a.png" }));
    ASSERT_EQ(Shell("pdfimages -png out.pdf picture").ExitCode, 0);
    const QImage grey = Read("picture-000.png");
    EXPECT_EQ(grey.pixel(0, 0), qRgb(226, 226, 226)) << "255 less the rounded 0.114 x 255";
    EXPECT_EQ(grey.pixel(399, 0), qRgb(0, 0, 0));
    EXPECT_EQ(Layout({ "--bw", "a.png" })["pages"].toArray()[0].toObject()["blackAndWhite"], true);
}

TEST_F(CtlPrint, EachFileHasAPageWithoutALayout)
{
    Picture("a.png");
    Picture("b.bmp");
    ExpectDone(Ctl({ "print", "--to", "out.pdf", "a.png", "b.bmp", "a.png" }));
    EXPECT_TRUE(Shell("pdfinfo out.pdf").Out.contains("Pages:           3\n"));
    const QJsonObject table = Layout({ "a.png", "b.bmp", "a.png" });
    EXPECT_EQ(Pages(table), 3);
    EXPECT_EQ(Entry(table, 1, 0)["file"], "b.bmp");
}

TEST_F(CtlPrint, WindowsPerPageAreArranged)
{
    Picture("a.png", { 400, 300 });
    QStringList files;
    for (int number = 0; number < 5; ++number)
        files.append("a.png");
    const QJsonObject table = Layout(QStringList({ "--per-page", "4" }) + files);
    ASSERT_EQ(Pages(table), 2);
    EXPECT_EQ(table["pages"].toArray()[0].toObject()["entries"].toArray().size(), 4);
    EXPECT_EQ(table["pages"].toArray()[1].toObject()["entries"].toArray().size(), 1);
}

TEST_F(CtlPrint, ArrangeKeepsThePages)
{
    Picture("a.png", { 400, 300 });
    Store("s.ini",
        "[Print]\nPict0Type=2\nPict0Left=1\nPict0Top=1\nPict0Width=2\nPict0Height=2\nPict1Type=2\nPict1Left=1\n"
        "Pict1Top=5\nPict1Width=2\nPict1Height=2\nPict0Title=0\nPict1Title=0\n");
    const QJsonObject asStored = Layout({ "--settings", "s.ini", "a.png", "a.png", "a.png" });
    ASSERT_EQ(Pages(asStored), 2);
    EXPECT_EQ(Entry(asStored, 0, 1)["rectangle"].toObject()["top"], 5);
    const QJsonObject arranged = Layout({ "--settings", "s.ini", "--arrange", "a.png", "a.png", "a.png" });
    ASSERT_EQ(Pages(arranged), 2);
    EXPECT_GT(Entry(arranged, 0, 1)["rectangle"].toObject()["width"].toDouble(), 4);
}

TEST_F(CtlPrint, KfactorTableIsPrintedAsDiagram)
{
    Store("k.csv", "K Factor Table\n");
    const CtlResult refused = Ctl({ "print", "--to", "out.pdf", "k.csv" });
    EXPECT_EQ(refused.ExitCode, 1);
    EXPECT_FALSE(QFile::exists(Path("out.pdf")));
    ASSERT_TRUE(QFile::copy(EXAMPLES_FOLDER "/" EXAMPLE_KFACTOR, Path("dipole.tvk")));
    ExpectDone(Ctl({ "print", "--to", "out.pdf", "dipole.tvk" }));
    const QJsonObject entry = Entry(Layout({ "dipole.tvk" }), 0, 0);
    EXPECT_EQ(entry["type"], 1);
    EXPECT_NEAR(entry["rectangle"].toObject()["width"].toDouble() / entry["rectangle"].toObject()["height"].toDouble(),
        792.0 / 560, 1e-3);
}

TEST_F(CtlPrint, MarginsShrinkUntilTwoInchesRemain)
{
    Picture("a.png");
    const QJsonObject table = Layout({ "--paper", "Letter", "--margins", "4,0,4,0", "a.png" });
    const QJsonObject margins = table["pages"].toArray()[0].toObject()["margins"].toObject();
    EXPECT_NEAR(margins["left"].toDouble(), 3.2, 1e-5);
    EXPECT_NEAR(margins["right"].toDouble(), 3.2, 1e-5);
    EXPECT_NEAR(margins["top"].toDouble(), 0.25, 1e-5);
}

TEST_F(CtlPrint, LandscapeOffsetAndResolution)
{
    Picture("a.png");
    const QJsonObject table =
        Layout({ "--paper", "legal", "--landscape", "--offset", "0.5,0.1", "--dpi", "600", "a.png" });
    EXPECT_EQ(table["paper"], QJsonObject({ { "width", 14 }, { "height", 8.5 } }));
    EXPECT_EQ(table["offset"], QJsonObject({ { "x", 0.5 }, { "y", 0.1 } }));
    EXPECT_EQ(table["dpi"], QJsonObject({ { "x", 600 }, { "y", 600 } }));
}

TEST_F(CtlPrint, WrongUsageIsExplained)
{
    Picture("a.png");
    ExpectUsage({ "--to", "a.pdf" }, "too few arguments");
    ExpectUsage({ "--to", "a.txt", "a.png" }, "--to takes a file whose name ends in .pdf");
    ExpectUsage({ "--to", "a.pdf", "--printer", "p", "a.png" }, "--to and --printer exclude each other");
    ExpectUsage({ "--paper", "B5", "a.png" }, "--paper takes A3, A4, A5, Letter or Legal");
    for (const char* wrong : { "-1,0,0,0", "1,1,1", "1,1,1,x", "", "nan,0,0,0", "1,1,1,1,1", "inf,0,0,0" })
        ExpectUsage({ QStringLiteral("--margins=") + wrong, "a.png" },
            "--margins takes LEFT,TOP,RIGHT,BOTTOM in inches, none below 0");
    ExpectUsage({ "--offset=-1,0", "a.png" }, "--offset takes X,Y in inches, none below 0");
    ExpectUsage({ "--offset=5,0", "a.png" }, "--offset leaves nothing of the paper");
    ExpectUsage({ "--dpi", "0", "a.png" }, "--dpi takes a number from 36 to 2400");
    ExpectUsage({ "--per-page", "11", "a.png" }, "--per-page takes a number from 1 to 10");
    ExpectUsage({ "--per-page", "0", "a.png" }, "--per-page takes a number from 1 to 10");
    ExpectUsage({ "--title", "--no-title", "a.png" }, "--title and --no-title exclude each other");
    EXPECT_EQ(FolderEntries(), QStringList({ "a.png" }));
}

TEST_F(CtlPrint, MissingFilesLeaveNothing)
{
    Picture("a.png");
    for (const QStringList& arguments : { QStringList({ "--to", "out.pdf", "a.png", "gone.png" }),
             QStringList({ "--to", "out.pdf", "--settings", "gone.ini", "a.png" }),
             QStringList({ "--to", "gone/out.pdf", "a.png" }) }) {
        const CtlResult result = Ctl(QStringList("print") + arguments);
        EXPECT_EQ(result.ExitCode, 1);
        EXPECT_FALSE(result.Err.isEmpty());
        EXPECT_EQ(FolderEntries(), QStringList({ "a.png" }));
    }
}

TEST_F(CtlPrint, RefusedTargetStaysAsItIs)
{
    Picture("a.png");
    Store("out.pdf", "old");
    EXPECT_EQ(Ctl({ "print", "--to", "out.pdf", "a.png", "gone.png" }).ExitCode, 1);
    EXPECT_EQ(Bytes("out.pdf"), "old");
    ExpectDone(Ctl({ "print", "--to", "out.pdf", "a.png" }));
    EXPECT_TRUE(Bytes("out.pdf").startsWith("%PDF-"));
}

TEST_F(CtlPrint, ReadOnlyTargetIsRefused)
{
    Picture("a.png");
    Store("out.pdf", "old");
    ASSERT_TRUE(QFile::setPermissions(Path("out.pdf"), QFile::ReadOwner));
    ExpectRefused(Ctl({ "print", "--to", "out.pdf", "a.png" }), "out.pdf: 12728: ");
    EXPECT_EQ(Bytes("out.pdf"), "old");
}

TEST_F(CtlPrint, WithoutPrinterTheMessagesSaySo)
{
    Picture("a.png");
    SetEnvironment("CUPS_SERVER", "127.0.0.1:1");
    ExpectRefused(Ctl({ "print", "a.png" }), "tarvikctl: 12708: ");
    ExpectRefused(Ctl({ "print", "--printer", "gone", "a.png" }), "gone: 12709: ");
}

} // namespace tarvik
