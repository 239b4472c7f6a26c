// The form that asks for folder and type of a conversion.
#include "tests/support/forms.h"

#include "app/platform/seams.h"
#include "app/text/lang.h"
#include "link/documents/FmConvertProgress.h"
#include "link/documents/FmFileConvert.h"
#include "link/documents/fileConvert.h"
#include "tests/support/drawnText.h"
#include "tests/support/fakeDocuments.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QTimer>
#include <QtTest/QTest>

#include <algorithm>

namespace tarvik {

namespace {

class ConvertForm : public FormTest {
protected:
    ConvertForm()
    {
        FileConvert().Sources = { FilePath("a.bmp") };
    }

    QString FolderText()
    {
        return QDir::toNativeSeparators(Folder().chopped(1));
    }

    FakeDocuments windows;
    FmFileConvert form;
};

/// Converts three files; `During` is called while each is open.
class ConvertProgressForm : public FormTest {
protected:
    ConvertProgressForm()
    {
        FileConvert().Sources = { FilePath("a.bmp"), FilePath("b.bmp"), FilePath("c.bmp") };
        FileConvert().TargetFolder = Folder();
        FileConvert().TargetExtension = ".png";
        TheSeams().Now = [this] { return now; };
        windows.OnOpen = [this] {
            During(++opened);
            now = now.addMSecs(openingMs);
            return opened;
        };
    }

    FakeDocuments windows;
    QDateTime now = QDateTime::fromSecsSinceEpoch(1'800'000'000, Qt::UTC);
    qint64 openingMs = kConvertShowIntervalMs;
    int opened = 0;
    std::function<void(int)> During = [](int) {};
    FmConvertProgress form;
};

} // namespace

TEST_F(ConvertForm, HasItsControlsInOrder)
{
    RunForm(form, [this] {
        ExpectControls(form,
            { "CbType", "TbDir", "BtBrowse", "CkBlackAndWhite", "LbType", "LbDir", "BtClose", "BtCancel", "BtHelp" });
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
        EXPECT_EQ(form.HelpNumber(), 11401);
        EXPECT_EQ(TextOf(form, "CbType"), "Windows bitmap");
        EXPECT_EQ(TextOf(form, "TbDir"), FolderText());
        form.Unload();
    });
}

TEST_F(ConvertForm, LongFoldersAreShownWhole)
{
    FileConvert().Sources = { "/srv/" + QString(70, u'a') + "/a.bmp" };
    RunForm(form, [this] {
        auto& box = Find<QLineEdit>(form, "TbDir");
        EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(box.text()));
        const int before = form.width();
        TheSeams().BrowseFolder = [](const FolderQuestion&) { return "/" + QString(1000, u'w'); };
        Click(form, "BtBrowse");
        QCoreApplication::processEvents();
        EXPECT_LT(form.width(), 2 * before);
        form.Unload();
    });
}

TEST_F(ConvertForm, UnknownSourcesAskForAType)
{
    FileConvert().Sources = { FilePath("a.doc") };
    RunForm(form, [this] {
        EXPECT_EQ(TextOf(form, "CbType"), LngStr(11005));
        EXPECT_EQ(Find<QComboBox>(form, "CbType").count(), 7);
        form.Unload();
    });
}

TEST_F(ConvertForm, OkStoresFolderAndType)
{
    RunForm(form, [this] {
        Find<QComboBox>(form, "CbType").setCurrentText(LngStr(11605));
        Type(form, "TbDir", FilePath("new"));
        Click(form, "BtClose");
    });
    EXPECT_TRUE(form.IsAccepted());
    EXPECT_EQ(FileConvert().TargetFolder, FilePath("new"));
    EXPECT_EQ(FileConvert().TargetExtension, ".png");
    EXPECT_TRUE(QDir(FilePath("new")).exists());
}

TEST_F(ConvertForm, ShowsPaletteOfNewDocumentsAndStoresChoice)
{
    windows.BlackAndWhite = true;
    RunForm(form, [this] {
        EXPECT_TRUE(Find<QCheckBox>(form, "CkBlackAndWhite").isChecked());
        Click(form, "BtClose");
    });
    EXPECT_EQ(FileConvert().BlackAndWhite, true);
    RunForm(form, [this] {
        Click(form, "CkBlackAndWhite");
        Click(form, "BtClose");
    });
    EXPECT_EQ(FileConvert().BlackAndWhite, false);
    EXPECT_TRUE(windows.BlackAndWhite) << "of windows";
}

TEST_F(ConvertForm, EmptyFolderKeepsFormOpenAndFocus)
{
    Answers().Expect(11426, Ok);
    RunForm(form, [this] {
        Type(form, "TbDir", " ");
        Click(form, "BtClose");
        EXPECT_TRUE(form.IsLoaded());
        EXPECT_TRUE(HasFocus(form, "TbDir"));
        Click(form, "BtCancel");
    });
}

TEST_F(ConvertForm, FailedFolderKeepsFormOpenAndFocus)
{
    Answers().Expect(12752, Ok);
    RunForm(form, [this] {
        Type(form, "TbDir", FilePath("one/two"));
        Click(form, "BtClose");
        EXPECT_TRUE(form.IsLoaded());
        EXPECT_TRUE(HasFocus(form, "TbDir"));
        Click(form, "BtCancel");
    });
    EXPECT_FALSE(form.IsAccepted());
}

TEST_F(ConvertForm, CancelAndEscapeDoNotAccept)
{
    RunForm(form, [this] { Click(form, "BtClose"); });
    ASSERT_TRUE(form.IsAccepted());
    RunForm(form, [this] { Click(form, "BtCancel"); });
    EXPECT_FALSE(form.IsAccepted());
    RunForm(form, [this] { Key(form, "TbDir", Qt::Key_Escape); });
    EXPECT_FALSE(form.IsAccepted());
}

TEST_F(ConvertForm, BrowseStartsAtFolderAndReplacesIt)
{
    FolderQuestion asked;
    TheSeams().BrowseFolder = [&](const FolderQuestion& question) {
        asked = question;
        return FilePath("chosen");
    };
    RunForm(form, [this] {
        Click(form, "BtBrowse");
        EXPECT_EQ(TextOf(form, "TbDir"), FilePath("chosen"));
        TheSeams().BrowseFolder = [](const FolderQuestion&) { return QString(); };
        Click(form, "BtBrowse");
        EXPECT_EQ(TextOf(form, "TbDir"), FilePath("chosen")) << "cancelled";
        form.Unload();
    });
    EXPECT_EQ(asked.Title, LngStr(12753));
    EXPECT_EQ(asked.Start, FolderText());
}

TEST_F(ConvertProgressForm, ShowsCountNameAndProgress)
{
    QStringList seen;
    During = [&](int file) {
        if (file == 1) {
            ExpectControls(form, { "LbCount", "LbName", "progressBar", "BtCancel" });
            ExpectTabOrder(form);
            ExpectNothingClipped(form);
            EXPECT_EQ(form.HelpNumber(), 11401);
            EXPECT_TRUE(form.isVisible());
            EXPECT_EQ(form.windowTitle(), LngStr(11416));
        }
        const auto& bar = Find<QProgressBar>(form, "progressBar");
        seen.append(QStringLiteral("%1, %2, %3 of %4")
                        .arg(TextOf(form, "LbCount"), TextOf(form, "LbName"))
                        .arg(bar.value())
                        .arg(bar.maximum()));
    };
    DialogShow(form);
    EXPECT_EQ(seen, QStringList({ "1 of 3, a.bmp, 0 of 3", "2 of 3, b.bmp, 1 of 3", "3 of 3, c.bmp, 2 of 3" }));
    EXPECT_TRUE(form.IsClosed());
    EXPECT_EQ(form.Result().Converted, 3);
}

TEST_F(ConvertProgressForm, DrawsNameBeforeFileIsOpened)
{
    const DrawnText drawn(Find<QLabel>(form, "LbName"));
    QStringList texts;
    During = [&](int) { texts.append(drawn.Text); };
    DialogShow(form);
    EXPECT_EQ(texts, QStringList({ "a.bmp", "b.bmp", "c.bmp" }));
}

TEST_F(ConvertProgressForm, ShortFilesAreNotAllDrawn)
{
    FileConvert().Sources = { FilePath("a.bmp"), FilePath("b.bmp"), FilePath("c.bmp"), FilePath("d.bmp"),
        FilePath("e.bmp"), FilePath("f.bmp") };
    openingMs = kConvertShowIntervalMs / 4;
    const DrawnText drawn(Find<QLabel>(form, "LbName"));
    QStringList texts;
    During = [&](int) {
        texts.append(drawn.Text + u' ' + QString::number(Find<QProgressBar>(form, "progressBar").value()));
    };
    DialogShow(form);
    EXPECT_EQ(texts, QStringList({ "a.bmp 0", "a.bmp 0", "a.bmp 0", "a.bmp 0", "d.bmp 3", "d.bmp 3" }));
    EXPECT_EQ(form.Result().Converted, 6);
}

TEST_F(ConvertProgressForm, EachBatchDrawsItsFirstFile)
{
    openingMs = 1;
    DialogShow(form);
    const DrawnText drawn(Find<QLabel>(form, "LbName"));
    FileConvert().Sources = { FilePath("x.bmp") };
    During = [&](int) { EXPECT_EQ(drawn.Text, "x.bmp"); };
    DialogShow(form);
    EXPECT_EQ(opened, 4);
}

TEST_F(ConvertProgressForm, DrawsFilesAfterClockWasSetBack)
{
    openingMs = -3'600'000;
    const DrawnText drawn(Find<QLabel>(form, "LbName"));
    QStringList texts;
    During = [&](int) { texts.append(drawn.Text); };
    DialogShow(form);
    EXPECT_EQ(texts, QStringList({ "a.bmp", "b.bmp", "c.bmp" }));
}

TEST_F(ConvertProgressForm, DrawsLargeFileBeforeItIsOpened)
{
    openingMs = 1;
    for (const QString name : { "b.bmp", "c.bmp" }) {
        QFile file(FilePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.resize(kConvertLongFile - (name == "c.bmp" ? 1 : 0)));
    }
    const DrawnText drawn(Find<QLabel>(form, "LbName"));
    QStringList texts;
    During = [&](int) { texts.append(drawn.Text); };
    DialogShow(form);
    EXPECT_EQ(texts, QStringList({ "a.bmp", "b.bmp", "b.bmp" }));
}

/// As when a message asks whether to replace it.
TEST_F(ConvertProgressForm, DrawsShortFileThatWaits)
{
    openingMs = 1;
    During = [&](int file) {
        const QString name = QChar(u'a' + file - 1) + QStringLiteral(".bmp");
        EXPECT_TRUE(QTest::qWaitFor([&] { return TextOf(form, "LbName") == name; }));
    };
    DialogShow(form);
    EXPECT_EQ(opened, 3);
}

TEST_F(ConvertProgressForm, NoNameReplacesThatItStops)
{
    openingMs = 1;
    During = [&](int file) {
        if (file != 2)
            return;
        Click(form, "BtCancel");
        now = now.addSecs(1);
        const auto timers = form.findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        EXPECT_TRUE(std::none_of(timers.begin(), timers.end(), [](const QTimer* timer) { return timer->isActive(); }));
    };
    DialogShow(form);
    EXPECT_EQ(TextOf(form, "LbName"), LngStr(11421));
    EXPECT_EQ(opened, 2);
}

TEST_F(ConvertProgressForm, DrawsAtOnceThatItStops)
{
    const DrawnText drawn(Find<QLabel>(form, "LbName"));
    During = [&](int) {
        Click(form, "BtCancel");
        EXPECT_EQ(drawn.Text, LngStr(11421));
    };
    DialogShow(form);
    EXPECT_EQ(opened, 1);
}

TEST_F(ConvertProgressForm, IsBusyButForCancel)
{
    During = [&](int) {
        EXPECT_EQ(form.cursor().shape(), Qt::WaitCursor);
        EXPECT_EQ(FindControl(form, "BtCancel").cursor().shape(), Qt::ArrowCursor);
    };
    DialogShow(form);
    EXPECT_EQ(opened, 3);
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ConvertProgressForm, EndsAfterCurrentFileByButtonEscapeAndClose)
{
    const QVector<std::function<void()>> ways{ [this] { Click(form, "BtCancel"); },
        [this] { Key(form, "BtCancel", Qt::Key_Escape); }, [this] { form.close(); } };
    for (const auto& cancel : ways) {
        opened = 0;
        During = [&](int file) {
            if (file != 2)
                return;
            cancel();
            EXPECT_FALSE(form.IsClosed());
            EXPECT_EQ(TextOf(form, "LbName"), LngStr(11421));
        };
        DialogShow(form);
        EXPECT_TRUE(form.IsClosed());
        EXPECT_EQ(form.Result().Converted, 2);
        EXPECT_EQ(form.Result().Total, 3);
        EXPECT_EQ(windows.Log.last(), "close 2");
    }
}

} // namespace tarvik
