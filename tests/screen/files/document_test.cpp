#include "screen/files/document.h"

#include "app/state/progressBar.h"
#include "app/text/lang.h"
#include "closed/loader.h"
#include "screen/document/color.h"
#include "screen/files/pictureFile.h"
#include "screen/window/arrange.h"
#include "screen/window/descriptionEdit.h"
#include "screen/window/palette.h"
#include "tests/support/screens.h"
#include "tests/support/unbindModule.h"

#include <QFile>

namespace tarvik {

namespace {

struct KindCase {
    const char* Name;
    ImageKind Kind;
    int Unreadable; ///< text number
};

constexpr std::array<KindCase, 4> kCases{ {
    { "a.bmp", ImageKind::Bitmap, 12754 },
    { "a.pcx", ImageKind::Pcx, 12756 },
    { "a.png", ImageKind::Png, 12760 },
    { "a.wmf", ImageKind::Metafile, 12758 },
} };

/// The steps of each job when its box is cleared.
class ProgressCounts final : public FakeFrame {
public:
    void ClearProgress() override
    {
        Totals.append(tarvik::Progress().TotalSteps);
        Done.append(tarvik::Progress().WorkCounter);
    }
    QVector<int> Totals;
    QVector<int> Done;
};

class Documents : public ScreenTest {
protected:
    QString File(const char* name) const
    {
        return FilePath(QLatin1String(name));
    }

    /// A picture in which adjacent pixels differ.
    static QImage Pattern(QSize size = { 37, 21 })
    {
        QImage picture(size, QImage::Format_RGB32);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                picture.setPixel(x, y, qRgb(x * 5, y * 11, (x + y) * 3 & 0xFF));
        }
        return picture;
    }

    /// A file with the pattern, written by this program.
    QString StorePattern(const char* name, ImageKind kind, const QImage& picture = Pattern()) const
    {
        QString path = File(name);
        EXPECT_TRUE(EncodePicture(path, kind, picture));
        return path;
    }

    static OpenedImage OpenFile(const QString& path, ImageKind kind)
    {
        return ImgOpen(path, kind, WindowSubtype::File);
    }

    QStringList EntriesOfFolder() const
    {
        return QDir(Folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
};

} // namespace

TEST_F(Documents, OpenInWindowOfTheirSize)
{
    for (const KindCase& kind : kCases) {
        const OpenedImage opened = OpenFile(StorePattern(kind.Name, kind.Kind), kind.Kind);
        ASSERT_EQ(opened.Result, 0) << kind.Name;
        EXPECT_EQ(ScreenOf(opened.Id)->Master, Pattern()) << kind.Name;
        EXPECT_EQ(ScreenOf(opened.Id)->Graph, Pattern()) << kind.Name;
        EXPECT_EQ(Views[opened.Id].Client, QSize(37, 21)) << kind.Name;
        EXPECT_EQ(Views[opened.Id].Title, QLatin1String(kind.Name));
        EXPECT_TRUE(WindowIsFileImage(opened.Id));
        EXPECT_FALSE(WindowIsModified(opened.Id));
    }
}

TEST_F(Documents, HaveDateOfTheirFile)
{
    const QDateTime change(QDate(2021, 3, 4), QTime(5, 6, 7));
    const QString path = StorePattern("a.png", ImageKind::Png);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(change, QFileDevice::FileModificationTime));
    file.close();
    EXPECT_EQ(ScreenOf(OpenFile(path, ImageKind::Png).Id)->Date, change);
}

TEST_F(Documents, WithoutFileDateHaveCurrentTime)
{
    TvGen().GenFileDateAndTime = [](const char*, int16_t*, int16_t*, int16_t*, int16_t*, int16_t*, int16_t*) {
        return int16_t(1);
    };
    const OpenedImage opened = OpenFile(StorePattern("a.png", ImageKind::Png), ImageKind::Png);
    EXPECT_EQ(ScreenOf(opened.Id)->Date, moment_);
}

TEST_F(Documents, UnreadableFileShowsMessageOfItsKindAndNoWindow)
{
    for (const KindCase& kind : kCases) {
        Store(File(kind.Name), "no picture at all");
        Answers().Expect(kind.Unreadable, { QLatin1String(kind.Name) }, Ok);
        EXPECT_NE(OpenFile(File(kind.Name), kind.Kind).Result, 0) << kind.Name;
        EXPECT_EQ(WindowCount(), 0) << kind.Name;
        EXPECT_EQ(Views.Loaded, 0) << kind.Name;
    }
}

TEST_F(Documents, MissingFileShowsMessageOfItsKind)
{
    Answers().Expect(12760, { QStringLiteral("none.png") }, Ok);
    EXPECT_NE(OpenFile(File("none.png"), ImageKind::Png).Result, 0);
}

TEST_F(Documents, TruncatedFileShowsMessageOfItsKindAndNoWindow)
{
    for (const KindCase& kind : kCases) {
        const QString path = StorePattern(kind.Name, kind.Kind);
        const QByteArray whole = Contents(path);
        Store(path, whole.left(whole.size() - whole.size() / 3));
        Answers().Expect(kind.Unreadable, { QLatin1String(kind.Name) }, Ok);
        EXPECT_NE(OpenFile(path, kind.Kind).Result, 0) << kind.Name;
        EXPECT_EQ(WindowCount(), 0) << kind.Name;
        EXPECT_EQ(Frame.Status, QString());
        EXPECT_FALSE(Progress().Active);
    }
}

TEST_F(Documents, MisnamedFileShowsMessageOfItsExtension)
{
    const QString path = StorePattern("a.png", ImageKind::Bitmap);
    Answers().Expect(12760, { QStringLiteral("a.png") }, Ok);
    EXPECT_NE(OpenFile(path, ImageKind::Png).Result, 0);
    EXPECT_EQ(WindowCount(), 0);
}

TEST_F(Documents, FullTableIsReported)
{
    for (WindowId id = 1; id <= kWindowSlots; ++id)
        WindowTable().Table[static_cast<size_t>(id)].Type = WindowType::DataSet;
    Answers().Expect(12711, {}, Ok);
    EXPECT_NE(OpenFile(StorePattern("a.png", ImageKind::Png), ImageKind::Png).Result, 0);
    EXPECT_EQ(WindowCount(WindowType::DataSet), 200);
}

TEST_F(Documents, HundredAndFirstReplacesOldest)
{
    const QString path = StorePattern("a.png", ImageKind::Png);
    const WindowId oldest = OpenLive();
    for (int count = 1; count < kDocumentsOfType; ++count)
        Open();
    Answers().Expect(12713, {}, No);
    EXPECT_NE(OpenFile(path, ImageKind::Png).Result, 0);
    EXPECT_EQ(ScreenOf(oldest)->Master, Picture());

    MsgAskOnceReset();
    Answers().Expect(12713, {}, Yes);
    const OpenedImage opened = OpenFile(path, ImageKind::Png);
    EXPECT_EQ(opened.Id, oldest);
    EXPECT_EQ(ScreenOf(oldest)->Master, Pattern());
    EXPECT_EQ(Views[oldest].Client, QSize(37, 21));
    EXPECT_EQ(Views[oldest].Title, QStringLiteral("a.png"));
    EXPECT_TRUE(WindowIsFileImage(oldest));
    EXPECT_EQ(WindowCount(), 100);
    EXPECT_EQ(Views.Loaded, 100);
}

TEST_F(Documents, OldestStaysIfNewOneCannotBeRead)
{
    const QString path = StorePattern("a.png", ImageKind::Png);
    Store(path, Contents(path).chopped(40));
    const WindowId oldest = OpenLive();
    WindowAt(oldest).Modified = true;
    for (int count = 1; count < kDocumentsOfType; ++count)
        Open();
    Answers().Expect(12713, {}, Yes);
    Answers().Expect(12760, Ok);
    EXPECT_NE(OpenFile(path, ImageKind::Png).Result, 0);
    EXPECT_TRUE(WindowInUse(oldest));
    EXPECT_EQ(ScreenOf(oldest)->Master, Picture());
    EXPECT_EQ(WindowSubtypeOf(oldest), WindowSubtype::Live);
    EXPECT_TRUE(WindowIsModified(oldest));
}

TEST_F(Documents, WithoutLibraryNothingHappens)
{
    const QString path = StorePattern("a.png", ImageKind::Png);
    const WindowId id = Open();
    UnbindModule(Module::Pictures);
    EXPECT_NE(OpenFile(path, ImageKind::Png).Result, 0);
    EXPECT_EQ(WindowCount(), 1);
    EXPECT_FALSE(ImgSave(File("b.png"), ImageKind::Png, id));
    EXPECT_FALSE(QFile::exists(File("b.png")));
}

TEST_F(Documents, LoadingShowsAndClearsStatusLine)
{
    const QString path = StorePattern("a.png", ImageKind::Png);
    Frame.Log.clear();
    OpenFile(path, ImageKind::Png);
    EXPECT_EQ(Frame.Log.value(0), QStringLiteral("status:a.png") + LngStr(14301) + LngStr(10104));
    EXPECT_EQ(Frame.Status, QString());
}

TEST_F(Documents, AutoTileFollowsNumberOfWindows)
{
    const QString path = StorePattern("a.png", ImageKind::Png);
    QVector<Arrangement> arrangements;
    Views.WhenArranged = [&](Arrangement arrangement) { arrangements.append(arrangement); };
    Program().AutoTile = true;
    OpenFile(path, ImageKind::Png);
    EXPECT_TRUE(arrangements.isEmpty());
    OpenFile(path, ImageKind::Png);
    EXPECT_EQ(arrangements, QVector{ Arrangement::TileHorizontally });
}

TEST_F(Documents, TransparentPixelsShowBackground)
{
    QImage picture(2, 1, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    picture.setPixelColor(1, 0, Qt::red);
    ASSERT_TRUE(picture.save(File("a.png")));
    TheColorDefaults().Background = 0x102030;
    EXPECT_EQ(ScreenOf(OpenFile(File("a.png"), ImageKind::Png).Id)->Master.pixelColor(0, 0), QColor(0x30, 0x20, 0x10));
    TheColorDefaults().PalNr = PaletteNumber::BlackAndWhite;
    EXPECT_EQ(ScreenOf(OpenFile(File("a.png"), ImageKind::Png).Id)->Master.pixelColor(0, 0), QColor(Qt::white));
}

TEST_F(Documents, ProgressCountsLinesOfPcx)
{
    const QString path = StorePattern("a.pcx", ImageKind::Pcx);
    ProgressCounts counts;
    OpenFile(path, ImageKind::Pcx);
    EXPECT_EQ(counts.Totals, QVector<int>{ 21 });
    EXPECT_EQ(counts.Done, QVector<int>{ 21 });
}

TEST_F(Documents, ProgressCountsSavedLines)
{
    const WindowId id = Open(WindowSubtype::File, Pattern());
    ProgressCounts counts;
    EXPECT_TRUE(ImgSave(File("a.png"), ImageKind::Png, id));
    EXPECT_TRUE(ImgSave(File("a.pcx"), ImageKind::Pcx, id));
    EXPECT_EQ(counts.Totals, QVector<int>({ 21, 21 }));
    EXPECT_EQ(counts.Done.last(), 21);
}

TEST_F(Documents, AreSavedInEachFormat)
{
    const WindowId id = Open(WindowSubtype::File, Pattern());
    for (const KindCase& kind : kCases) {
        EXPECT_TRUE(ImgSave(File(kind.Name), kind.Kind, id)) << kind.Name;
        EXPECT_EQ(DecodePicture(File(kind.Name), kind.Kind, { 37, 21 }, 0), Pattern()) << kind.Name;
    }
    EXPECT_EQ(EntriesOfFolder(), (QStringList{ "a.bmp", "a.pcx", "a.png", "a.wmf" }));
}

TEST_F(Documents, AreSavedWithDescription)
{
    const WindowId id = Open(WindowSubtype::File, Pattern());
    DescrSetVisible(true, id);
    DescrSetText(id, QStringLiteral("text"));
    ASSERT_TRUE(ImgSave(File("a.png"), ImageKind::Png, id));
    EXPECT_EQ(PictureSize(File("a.png")), QSize(37, 21 + DescrHeight(id)));
}

TEST_F(Documents, SavingClearsModifiedMarkAndRenamesFileWindow)
{
    const WindowId file = Open();
    const WindowId live = OpenLive();
    const QString title = Views[live].Title;
    WindowAt(file).Modified = WindowAt(live).Modified = true;
    EXPECT_TRUE(ImgSave(File("new name.png"), ImageKind::Png, file));
    EXPECT_TRUE(ImgSave(File("other.png"), ImageKind::Png, live));
    EXPECT_FALSE(WindowIsModified(0));
    EXPECT_EQ(Views[file].Title, QStringLiteral("new name.png"));
    EXPECT_EQ(Views[live].Title, title);
}

TEST_F(Documents, SavingShowsAndClearsStatusLine)
{
    const WindowId id = Open();
    Frame.Log.clear();
    EXPECT_TRUE(ImgSave(File("a.png"), ImageKind::Png, id));
    EXPECT_EQ(Frame.Log.value(0), QStringLiteral("status:file.png") + LngStr(14301) + LngStr(10105));
    EXPECT_EQ(Frame.Status, QString());
}

TEST_F(Documents, FailedMetafileIsReported)
{
    const WindowId id = Open();
    WindowAt(id).Modified = true;
    Answers().Expect(12759, { QStringLiteral("a.wmf") }, Ok);
    EXPECT_FALSE(ImgSave(File("none/a.wmf"), ImageKind::Metafile, id));
    EXPECT_TRUE(WindowIsModified(id));
    EXPECT_EQ(Views[id].Title, QStringLiteral("file.png"));
}

TEST_F(Documents, OtherFailedFormatsKeepModifiedMark)
{
    const WindowId id = Open();
    WindowAt(id).Modified = true;
    for (const KindCase& kind : kCases) {
        if (kind.Kind == ImageKind::Metafile)
            continue;
        EXPECT_FALSE(ImgSave(File("none/a"), kind.Kind, id)) << kind.Name;
    }
    EXPECT_TRUE(WindowIsModified(id));
    EXPECT_FALSE(Progress().Active);
}

TEST_F(Documents, OtherExtensionsAreNotWritten)
{
    const WindowId id = Open();
    for (const char* name : { "a", "a.csv", "a.txt", "a.tvm", "a.gif" })
        EXPECT_FALSE(ImgSave(File(name), FileKindOf(File(name)).Image, id)) << name;
    EXPECT_FALSE(ImgSave(File("a.png"), ImageKind::Png, 0));
    EXPECT_EQ(EntriesOfFolder(), QStringList());
}

TEST_F(Documents, BlackAndWhiteIsSavedAsDisplayed)
{
    const WindowId id = Open(WindowSubtype::File, Picture({ 4, 4 }, Qt::white));
    PaletteSet(PaletteNumber::BlackAndWhite, id, true);
    ASSERT_TRUE(ImgSave(File("a.png"), ImageKind::Png, id));
    EXPECT_EQ(DecodePicture(File("a.png"), ImageKind::Png, { 4, 4 }, 0), Picture({ 4, 4 }, Qt::black));
}

TEST_F(Documents, OpenAndSaveNamesOfAnyScript)
{
    const QString path = FilePath(QString::fromUtf8("Übersicht 受信 ✓.png"));
    const WindowId id = Open(WindowSubtype::File, Pattern());
    ASSERT_TRUE(ImgSave(path, ImageKind::Png, id));
    EXPECT_EQ(OpenFile(path, ImageKind::Png).Result, 0);
}

} // namespace tarvik
