// User input in the file control window: selection, keys, editing names, folder boxes.
#include "tests/link/control/control_form_fixture.h"
#include "tests/support/fakeDocuments.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QToolTip>

namespace tarvik {

TEST_F(ControlForm, SelectionEnablesTransfers)
{
    OnPc({ "a.tva", "b.tva" });
    OnInstr({ "c.tva" });
    Open(FileClassAntennaList);
    EXPECT_FALSE(IsEnabled("BtUl"));
    EXPECT_FALSE(IsEnabled("BtDl"));
    ClickRow("LvPc", 0);
    EXPECT_TRUE(IsEnabled("BtUl"));
    ClickRow("LvPc", 1, Qt::ControlModifier);
    EXPECT_FALSE(IsEnabled("BtUl")) << "one file at a time";
    ClickRow("LvInstr", 0);
    EXPECT_TRUE(IsEnabled("BtDl"));
    EXPECT_TRUE(Transfer().LvInstr->Rows[0].Selected);
    EXPECT_EQ(Transfer().LvPc->CurrentRow, 1);
}

TEST_F(ControlForm, ControlASelectsFiles)
{
    OnPc({ "a.tvk", "b.tvk", "+folder" });
    Open(FileClassKfactorTable);
    Key(form, "LvPc", Qt::Key_A);
    EXPECT_LE(Selected("LvPc").size(), 1) << "finds a name";
    Key(form, "LvPc", Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Selected("LvPc"), QStringList({ "a.tvk", "b.tvk" }));
    EXPECT_TRUE(IsEnabled("BtUl"));
    ClickRow("LvPc", 0);
    Click(form, "BtPcSel");
    EXPECT_EQ(Selected("LvPc"), QStringList({ "a.tvk", "b.tvk" }));
    EXPECT_TRUE(HasFocus(form, "LvPc"));
}

TEST_F(ControlForm, DelKeyAsks)
{
    OnPc({ "a.tvk" });
    Open(FileClassKfactorTable);
    Key(form, "LvPc", Qt::Key_Delete);
    ClickRow("LvPc", 0);
    Answers().Expect(12732, No);
    Key(form, "LvPc", Qt::Key_Delete);
    EXPECT_TRUE(QFile::exists(PcFile("a.tvk")));
}

TEST_F(ControlForm, F2EditsNameUpToExtension)
{
    OnPc({ "Van.tvc" });
    Open(FileClassCorrectionSet);
    Key(form, "LvPc", Qt::Key_F2);
    EXPECT_EQ(LabelEdit(), nullptr) << "no row is selected";
    ClickRow("LvPc", 0);
    Key(form, "LvPc", Qt::Key_F2);
    ASSERT_NE(LabelEdit(), nullptr);
    EXPECT_EQ(LabelEdit()->selectedText(), "Van");
    QTest::keyClicks(LabelEdit(), "Bus");
    EndLabelEdit();
    EXPECT_EQ(Rows("LvPc"), QStringList({ "Bus.tvc" }));
    EXPECT_TRUE(QFile::exists(PcFile("Bus.tvc")));
    EXPECT_FALSE(form.IsClosed());
}

TEST_F(ControlForm, EscapeEndsEditThenWindow)
{
    OnPc({ "Van.tvc" });
    Open(FileClassCorrectionSet);
    ClickRow("LvPc", 0);
    Click(form, "BtPcRen");
    ASSERT_NE(LabelEdit(), nullptr);
    QTest::keyClicks(LabelEdit(), "Bus");
    Key(Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_FALSE(form.IsClosed());
    EXPECT_EQ(Rows("LvPc"), QStringList({ "Van.tvc" }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(ControlForm, ClosingWindowKeepsEditedName)
{
    OnPc({ "Van.tvc" });
    Open(FileClassCorrectionSet);
    ClickRow("LvPc", 0);
    Key(form, "LvPc", Qt::Key_F2);
    ASSERT_NE(LabelEdit(), nullptr);
    QTest::keyClicks(LabelEdit(), "Bus");
    FindControl(form, "BtClose").setFocus();
    Click(form, "BtClose");
    EXPECT_TRUE(form.IsClosed());
    EXPECT_TRUE(QFile::exists(PcFile("Bus.tvc")));
}

TEST_F(ControlForm, CommandByKeyEndsEditFirst)
{
    OnPc({ "Van.tvc" });
    bool wasRenamed = false;
    FakeListFiles editors;
    editors.OnOpen = [&](const QString&, FileClass) {
        wasRenamed = QFile::exists(PcFile("Bus.tvc"));
        QCoreApplication::sendPostedEvents(
            nullptr, QEvent::DeferredDelete); // deletes the label edit while the editor is open
        return true;
    };
    Open(FileClassCorrectionSet);
    ClickRow("LvPc", 0);
    Key(form, "LvPc", Qt::Key_F2);
    ASSERT_NE(LabelEdit(), nullptr);
    QTest::keyClicks(LabelEdit(), "Bus");
    Find<QPushButton>(form, "BtNew").click(); // like its mnemonic, without moving the focus
    EXPECT_TRUE(wasRenamed);
    EXPECT_EQ(LabelEdit(), nullptr);
    EXPECT_TRUE(HasFocus(form, "LvPc"));
}

TEST_F(ControlForm, ClosingWindowByKeyKeepsEditedName)
{
    OnPc({ "Van.tvc" });
    Open(FileClassCorrectionSet);
    ClickRow("LvPc", 0);
    Key(form, "LvPc", Qt::Key_F2);
    ASSERT_NE(LabelEdit(), nullptr);
    QTest::keyClicks(LabelEdit(), "Bus");
    Find<QPushButton>(form, "BtClose").click();
    EXPECT_TRUE(form.IsClosed());
    EXPECT_TRUE(QFile::exists(PcFile("Bus.tvc")));
}

TEST_F(ControlForm, F2ContinuesEdit)
{
    OnPc({ "Van.tvc" });
    Open(FileClassCorrectionSet);
    ClickRow("LvPc", 0);
    Key(form, "LvPc", Qt::Key_F2);
    ASSERT_NE(LabelEdit(), nullptr);
    QTest::keyClicks(LabelEdit(), "Bus");
    Key(Qt::Key_F2);
    QCoreApplication::processEvents();
    ASSERT_NE(LabelEdit(), nullptr);
    EXPECT_EQ(LabelEdit()->text(), "Bus.tvc");
    EXPECT_TRUE(LabelEdit()->hasFocus());
    EXPECT_TRUE(QFile::exists(PcFile("Van.tvc")));
}

TEST_F(ControlForm, UnchangedNameIsNotRenamed)
{
    OnPc({ "+Trip", "a.png" });
    OnInstr({ "+Trip", "b.png" });
    Open(FileClassScreenShot);
    for (const char* list : { "LvPc", "LvInstr" }) {
        for (const int row : { 0, 1 }) {
            ClickRow(list, row);
            Key(form, list, Qt::Key_F2);
            ASSERT_NE(LabelEdit(), nullptr);
            EndLabelEdit(); // an unexpected message would fail the test
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    Click(form, "BtPcDirNew");
    ASSERT_NE(LabelEdit(), nullptr);
    EndLabelEdit(); // accepts the proposed name
    EXPECT_EQ(Rows("LvPc"), QStringList({ "New Folder", "Trip", "a.png" }));
    EXPECT_EQ(Instrument.Count("Rename"), 0);
}

TEST_F(ControlForm, RefusedNameIsRestored)
{
    OnPc({ "Van.tvc" });
    Open(FileClassCorrectionSet);
    ClickRow("LvPc", 0);
    Key(form, "LvPc", Qt::Key_F2);
    ASSERT_NE(LabelEdit(), nullptr);
    LabelEdit()->setText("Van.txt");
    Answers().Expect(12748, Ok);
    EndLabelEdit();
    EXPECT_EQ(Rows("LvPc"), QStringList({ "Van.tvc" }));
}

TEST_F(ControlForm, ClickOverRefusedNameCounts)
{
    OnPc({ "Van.tvc" });
    Open(FileClassCorrectionSet);
    ClickRow("LvPc", 0);
    Key(form, "LvPc", Qt::Key_F2);
    ASSERT_NE(LabelEdit(), nullptr);
    LabelEdit()->setText("Van.txt");
    QWindow* window = form.windowHandle();
    QWidget& close = FindControl(form, "BtClose");
    const QPoint at = close.mapTo(&form, close.rect().center());
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, at); // a message here would fail the test
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_FALSE(form.IsClosed());
    Answers().Expect(12748, Ok);
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, at);
    QCoreApplication::processEvents();
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(ControlForm, ClickElsewhereEndsEdit)
{
    OnPc({ "Van.tvc" });
    Open(FileClassCorrectionSet);
    ClickRow("LvPc", 0);
    Key(form, "LvPc", Qt::Key_F2);
    ASSERT_NE(LabelEdit(), nullptr);
    LabelEdit()->setText("Bus.tvc");
    QWidget& list = *List("LvInstr").viewport();
    QTest::mouseClick(form.windowHandle(), Qt::LeftButton, Qt::NoModifier, list.mapTo(&form, list.rect().center()));
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(Rows("LvPc"), QStringList({ "Bus.tvc" }));
}

TEST_F(ControlForm, OnlyScreenShotsAreEditedOnInstrument)
{
    OnInstr({ "a.tvk" });
    Open(FileClassKfactorTable);
    ClickRow("LvInstr", 0);
    Key(form, "LvInstr", Qt::Key_F2);
    EXPECT_EQ(LabelEdit(), nullptr);
    DialogEnd(form, 1);
    Instrument.Rows.clear();
    OnInstr({ "a.png" });
    Open(FileClassScreenShot);
    ClickRow("LvInstr", 0);
    Key(form, "LvInstr", Qt::Key_F2);
    EXPECT_NE(LabelEdit(), nullptr);
}

TEST_F(ControlForm, NewFolderIsEditedAtOnce)
{
    OnPc({ "a.tvk" });
    Open(FileClassKfactorTable);
    Click(form, "BtPcDirNew");
    ASSERT_NE(LabelEdit(), nullptr);
    EXPECT_EQ(LabelEdit()->text(), "New Folder");
    EXPECT_EQ(LabelEdit()->selectedText(), "New Folder");
    QTest::keyClicks(LabelEdit(), "Trip");
    EndLabelEdit();
    EXPECT_EQ(Rows("LvPc"), QStringList({ "Trip", "a.tvk" }));
}

TEST_F(ControlForm, EnterAndDoubleClickOpenRow)
{
    OnPc({ "+folder", "Van.tvm" });
    QStringList opened;
    FakeListFiles editors;
    editors.OnOpen = [&](const QString& path, FileClass) {
        opened.append(path);
        EXPECT_FALSE(IsEnabled("BtClose"));
        EXPECT_FALSE(IsEnabled("BtPcEdit[2]"));
        EXPECT_TRUE(IsEnabled("BtHlp"));
        return true;
    };
    Open(FileClassMemoryList);
    DoubleClickRow("LvPc", 1);
    EXPECT_EQ(opened, QStringList({ PcFile("Van.tvm") }));
    EXPECT_TRUE(IsEnabled("BtClose"));
    ClickRow("LvPc", 0);
    Key(form, "LvPc", Qt::Key_Return);
    EXPECT_EQ(TextOf(form, "CmbPc"), "folder");
    EXPECT_EQ(Rows("LvPc"), QStringList());
    Click(form, "BtPcDirUp");
    EXPECT_EQ(TextOf(form, "CmbPc"), "pc");
}

TEST_F(ControlForm, EditButtonOpensSelectedFile)
{
    OnPc({ "Van.tvm" });
    QString opened;
    FakeListFiles editors;
    editors.OnOpen = [&](const QString& path, FileClass) {
        opened = path;
        return true;
    };
    Open(FileClassMemoryList);
    ClickRow("LvPc", 0);
    Click(form, "BtPcEdit[2]");
    EXPECT_EQ(opened, PcFile("Van.tvm"));
    EXPECT_TRUE(HasFocus(form, "LvPc"));
    Click(form, "BtNew");
    EXPECT_EQ(opened, "");
}

TEST_F(ControlForm, HeaderClicksReverseOrder)
{
    OnPc({ "a.tvk", "b.tvk" });
    Open(FileClassKfactorTable);
    QHeaderView& header = *List("LvPc").header();
    EXPECT_TRUE(header.isSortIndicatorShown());
    EXPECT_EQ(header.sortIndicatorSection(), kFileNameColumn);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(40, header.height() / 2));
    EXPECT_EQ(Rows("LvPc"), QStringList({ "b.tvk", "a.tvk" }));
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::AscendingOrder) << "drawn as an arrow that points down";
}

TEST_F(ControlForm, DateColumnFitsDatesOfRegion)
{
    OnInstr({ "a.tvk" });
    for (const QLocale::Language language : { QLocale::English, QLocale::Hungarian, QLocale::Japanese }) {
        SetRegion(QLocale(language));
        Open(FileClassKfactorTable);
        TransferSortColumn(*Transfer().LvInstr, kFileDateColumn);
        const FileListWidget& list = List("LvInstr");
        const QModelIndex date = list.model()->index(0, kFileDateColumn);
        EXPECT_EQ(date.data().toString(), QLocale(language).toString(QDate(2026, 3, 31), QLocale::ShortFormat));
        EXPECT_LE(list.sizeHintForIndex(date).width(), list.header()->sectionSize(kFileDateColumn)) << language;
        DialogEnd(form, 1);
    }
}

TEST_F(ControlForm, RefreshKeepsScrollPosition)
{
    QStringList names;
    for (int number = 0; number < 200; ++number)
        names.append(QString("list%1.tvk").arg(number, 3, 10, QLatin1Char('0')));
    OnPc(names);
    Open(FileClassKfactorTable);
    List("LvPc").verticalScrollBar()->setValue(700);
    Click(form, "BtPcRef");
    EXPECT_EQ(List("LvPc").verticalScrollBar()->value(), 700);
    EXPECT_EQ(Selected("LvPc"), QStringList());
}

TEST_F(ControlForm, PcFolderBoxDropsDownDrivesAndEntersThem)
{
    Open(FileClassKfactorTable);
    auto& combo = Find<FolderComboBox>(form, "CmbPc");
    EXPECT_EQ(combo.count(), 1);
    combo.showPopup();
    EXPECT_GT(combo.count(), 2);
    EXPECT_EQ(combo.currentText(), "pc");
    EXPECT_EQ(combo.itemText(combo.count() - 1), "STICK (/media/stick)");
    combo.hidePopup();
    combo.setCurrentIndex(0);
    Q_EMIT combo.activated(0);
    EXPECT_EQ(CurrentPcFolder(), "/");
}

TEST_F(ControlForm, WheelOverFolderBoxKeepsFolder)
{
    Open(FileClassKfactorTable);
    auto& combo = Find<FolderComboBox>(form, "CmbPc");
    combo.showPopup();
    combo.hidePopup();
    const QString folder = CurrentPcFolder();
    QWidget& list = List("LvPc");
    for (QWidget* focused : { &list, static_cast<QWidget*>(&combo) }) {
        focused->setFocus();
        for (const int turn : { 120, -120 }) {
            Wheel(combo, turn);
            EXPECT_EQ(combo.currentText(), "pc");
            EXPECT_EQ(CurrentPcFolder(), folder);
            EXPECT_TRUE(focused->hasFocus());
        }
    }
}

TEST_F(ControlForm, DropDownKeepsScrollPosition)
{
    QStringList names;
    for (int number = 0; number < 200; ++number)
        names.append(QString("list%1.tvk").arg(number));
    OnPc(names);
    Open(FileClassKfactorTable);
    List("LvPc").verticalScrollBar()->setValue(700);
    auto& combo = Find<FolderComboBox>(form, "CmbPc");
    combo.showPopup();
    combo.hidePopup();
    EXPECT_EQ(List("LvPc").verticalScrollBar()->value(), 700);
    Q_EMIT combo.activated(0);
    EXPECT_EQ(List("LvPc").verticalScrollBar()->value(), 0) << "another folder";
}

TEST_F(ControlForm, ElidedNameHasToolTip)
{
    const QString longName = "<b>" + QString(200, u'x');
    OnPc({ "+" + longName, "+short" });
    Open(FileClassKfactorTable);
    const auto tipOf = [this](int row) {
        QWidget* area = List("LvPc").viewport();
        const QPoint place = CentreOf("LvPc", row);
        QHelpEvent ask(QEvent::ToolTip, place, area->mapToGlobal(place));
        QApplication::sendEvent(area, &ask);
        return QToolTip::text();
    };
    EXPECT_EQ(tipOf(1), "");
    EXPECT_EQ(tipOf(0), PlainTip(longName));
}

TEST_F(ControlForm, InstrumentFolderBoxDropsDownParents)
{
    Open(FileClassScreenShot);
    auto& combo = Find<FolderComboBox>(form, "CmbInstr");
    EXPECT_EQ(combo.currentText(), "Screen Shots");
    combo.showPopup();
    EXPECT_EQ(combo.count(), 3);
    combo.hidePopup();
    Q_EMIT combo.activated(1);
    EXPECT_EQ(Instrument.Directory, "\\Public");
    EXPECT_EQ(combo.currentText(), "Public");
}

TEST_F(ControlForm, SelectionFrameSelectsRowsAndEndsOnRelease)
{
    OnPc({ "a.tvk", "b.tvk" });
    Open(FileClassKfactorTable);
    QWidget* area = List("LvPc").viewport();
    const QPoint below = CentreOf("LvPc", 1) + QPoint(0, 20);
    QTest::mousePress(area, Qt::LeftButton, Qt::NoModifier, below);
    const QPoint above = CentreOf("LvPc", 0);
    QMouseEvent move(QEvent::MouseMove, above, area->mapToGlobal(above), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(area, &move);
    EXPECT_EQ(Selected("LvPc"), QStringList({ "a.tvk", "b.tvk" }));
    EXPECT_TRUE(IsEnabled("BtUl"));
    QTest::mouseRelease(area, Qt::LeftButton, Qt::NoModifier, above);
    const auto frames = area->findChildren<QWidget*>();
    for (const QWidget* frame : frames)
        EXPECT_FALSE(frame->inherits("QRubberBand") && frame->isVisible());
}

TEST_F(ControlForm, ClosesWithTheProgramUnlessANameIsBeingTyped)
{
    OnPc({ "a.tvk" });
    Open(FileClassKfactorTable);
    EXPECT_TRUE(form.CanCloseUnasked());
    ClickRow("LvPc", 0);
    Key(form, "LvPc", Qt::Key_F2);
    EXPECT_FALSE(form.CanCloseUnasked());
}

} // namespace tarvik
