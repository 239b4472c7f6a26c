// The form of the file control window: controls by class, hints, help, opening and closing.
#include "tests/link/control/control_form_fixture.h"

#include "app/menu/commands.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "link/bindLink.h"
#include "tests/support/fakeHelp.h"

#include <QApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

namespace tarvik {

namespace {

const QStringList kInstrFolderControls{ "CmbInstr", "BtInstrDirUp", "BtInstrDirOpen", "BtInstrDirNew", "BtInstrRen" };

} // namespace

TEST_F(ControlForm, HasItsControls)
{
    Open(FileClassScreenShot);
    ExpectControls(form,
        { "CmbPc", "BtPcDirUp", "BtPcDirOpen", "BtPcDirNew", "LvPc", "BtPcSel", "BtPcDel", "BtPcRef", "BtPcRen",
            "BtPcEdit[0]", "BtPcEdit[4]", "CmbInstr", "BtInstrDirUp", "BtInstrDirOpen", "BtInstrDirNew", "LvInstr",
            "BtInstrSel", "BtInstrDel", "BtInstrRef", "BtInstrRen", "BtUl", "BtDl", "BtNew", "BtClose", "BtHlp",
            "BtWhatsThis", "LbFree", "FrPc", "FrInstr" });
    EXPECT_EQ(form.objectName(), "FmControlGeneral");
    EXPECT_EQ(TextOf(form, "LbFree"), "");
}

TEST_F(ControlForm, TabReachesEveryControlInReadingOrder)
{
    for (const FileClass fileClass : { FileClassMemoryList, FileClassScreenShot, FileClassCorrectionSet }) {
        Open(fileClass);
        ExpectTabOrder(form);
        DialogEnd(form, 1);
    }
}

TEST_F(ControlForm, MnemonicsAreUnique)
{
    for (const FileClass fileClass : kFileClasses) {
        Open(fileClass);
        QStringList keys;
        for (const QPushButton* button : form.findChildren<QPushButton*>()) {
            if (button->isVisible() && !button->shortcut().isEmpty())
                keys.append(button->shortcut().toString());
        }
        EXPECT_GE(keys.size(), 5) << fileClass;
        EXPECT_EQ(keys.removeDuplicates(), 0) << fileClass << keys.join(u' ').toStdString();
        DialogEnd(form, 1);
    }
}

TEST_F(ControlForm, ShowsEveryText)
{
    for (const FileClass fileClass : { FileClassKfactorTable, FileClassScreenShot }) {
        Open(fileClass);
        ExpectNothingClipped(form);
        DialogEnd(form, 1);
    }
}

TEST_F(ControlForm, ShowsWhatEachClassHas)
{
    for (const FileClass fileClass : kFileClasses) {
        Open(fileClass);
        const ControlRules rules = ControlRulesOf(fileClass);
        EXPECT_EQ(form.windowTitle(), LngStr(ModCaption(CaptionSlot::ControlTitle)));
        for (const QString& name : kInstrFolderControls)
            EXPECT_EQ(IsShown(name), rules.HasInstrFolders) << fileClass << name.toStdString();
        for (int at = 0; at < kEditButtons; ++at)
            EXPECT_EQ(IsShown(QString("BtPcEdit[%1]").arg(at)), at == rules.EditButton) << fileClass;
        EXPECT_EQ(IsShown("BtInstrDel"), rules.DeletesOnInstr) << fileClass;
        EXPECT_EQ(IsShown("BtNew"), fileClass != FileClassScreenShot);
        for (const char* list : { "LvPc", "LvInstr" }) {
            EXPECT_EQ(List(list).isColumnHidden(kFileDateColumn), !rules.HasDates) << fileClass;
            EXPECT_EQ(List(list).isColumnHidden(kFileTimeColumn), !rules.HasDates) << fileClass;
            EXPECT_TRUE(List(list).isColumnHidden(kFileSortColumn)) << fileClass;
        }
        DialogEnd(form, 1);
    }
}

TEST_F(ControlForm, NameColumnFillsRoomOfDates)
{
    Open(FileClassMemoryList);
    EXPECT_EQ(List("LvPc").header()->sectionSize(kFileNameColumn), List("LvPc").viewport()->width());
}

TEST_F(ControlForm, RefreshTakesPlaceOfDelete)
{
    Open(FileClassKfactorTable);
    const int place = FindControl(form, "BtInstrDel").x();
    EXPECT_GT(FindControl(form, "BtInstrRef").x(), place);
    DialogEnd(form, 1);
    Open(FileClassMemoryList);
    EXPECT_EQ(FindControl(form, "BtInstrRef").x(), place);
}

TEST_F(ControlForm, OpensWideEnoughForNamesIfScreenHasRoom)
{
    Open(FileClassKfactorTable);
    const QSize room = form.screen()->availableGeometry().size();
    const int most = std::max(room.width() * 95 / 100, form.minimumSizeHint().width());
    EXPECT_EQ(form.width(), std::min(form.sizeHint().width(), most));
}

TEST_F(ControlForm, PanesShareWidth)
{
    Open(FileClassMemoryList);
    form.resize(form.width() + 301, form.height() + 100);
    QCoreApplication::processEvents();
    EXPECT_NEAR(FindControl(form, "FrPc").width(), FindControl(form, "FrInstr").width(), 1);
}

TEST_F(ControlForm, ControlsHaveHelpAndHintsOfClass)
{
    Open(FileClassMemoryList);
    EXPECT_EQ(form.HelpNumber(), 12468);
    const QList<std::tuple<QString, int, int>> numbers{ { "BtPcEdit[2]", 12463, 12463 }, { "BtPcSel", 12472, 12464 },
        { "BtInstrSel", 12472, 12464 }, { "BtDl", 12465, 12465 }, { "BtUl", 12466, 12466 }, { "BtNew", 12467, 12467 },
        { "FrInstr", 12470, 12470 }, { "LvInstr", 12470, 12470 }, { "FrPc", 12471, 12471 }, { "LvPc", 12471, 12471 },
        { "BtPcDel", 12406, 12425 }, { "BtClose", 12413, 12428 } };
    for (const auto& [name, help, hint] : numbers) {
        EXPECT_EQ(HelpNumberOf(&FindControl(form, name)), help) << name.toStdString();
        EXPECT_EQ(FindControl(form, name).property(kHintNumberProperty).toInt(), hint) << name.toStdString();
    }
}

TEST_F(ControlForm, PointerShowsHintOfButtonThenOfPane)
{
    Open(FileClassMemoryList);
    PointAt(form, "BtUl");
    EXPECT_EQ(Frame.Status, LngStr(12466));
    PointAway(form, "BtUl");
    EXPECT_EQ(Frame.Status, "");
    PointAt(form, "BtPcSel");
    EXPECT_EQ(Frame.Status, LngStr(12464));
    PointAway(form, "BtPcSel");
    EXPECT_EQ(Frame.Status, LngStr(12471));
    PointAway(form, "FrPc");
    EXPECT_EQ(Frame.Status, "");
}

TEST_F(ControlForm, ListsShowRowsWithDatesAndPictures)
{
    OnInstr({ "a.tvk" });
    Open(FileClassKfactorTable);
    const QAbstractItemModel& model = *List("LvInstr").model();
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.index(0, kFileNameColumn).data().toString(), "a.tvk");
    EXPECT_EQ(model.index(0, kFileDateColumn).data().toString(), "31/03/26");
    EXPECT_EQ(model.index(0, kFileTimeColumn).data().toString(), "00:00:00");
    EXPECT_FALSE(model.index(0, kFileNameColumn).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(model.headerData(kFileNameColumn, Qt::Horizontal).toString(), "Name");
    EXPECT_EQ(model.headerData(kFileDateColumn, Qt::Horizontal).toString(), "Date");
}

TEST_F(ControlForm, ClosesAtOnceWithoutAnswer)
{
    Instrument.Answer("GetCurrentDirectory", ChannelStatus::LinkFailed);
    Answers().Expect(12703, Ok);
    ModFileInit(FileClassMemoryList);
    DialogShow(form); // closes by itself
    EXPECT_TRUE(form.IsClosed());
    EXPECT_EQ(Instrument.Count("StartFind"), 0);
}

TEST_F(ControlForm, ClosesByButtonAndRemembersFolders)
{
    Open(FileClassMemoryList);
    Click(form, "BtClose");
    EXPECT_TRUE(form.IsClosed());
    EXPECT_EQ(FileClasses().InstrPaths[FileClassMemoryList], "\\Public\\Screen Shots");
}

TEST_F(ControlForm, HelpButtonsShowTopicAndEnterWhatsThis)
{
    Open(FileClassMemoryList);
    FakeHelp help;
    Click(form, "BtHlp");
    Click(form, "BtWhatsThis");
    Key(form, "LvPc", Qt::Key_F1);
    ASSERT_FALSE(help.Topics.isEmpty());
    EXPECT_EQ(help.Topics.last(), 12471);
    EXPECT_EQ(Frame.WhatsThis, 1);
}

TEST_F(ControlForm, JobDisablesButtonsAndRestoresFocus)
{
    OnPc({ "a.tvk" });
    Open(FileClassKfactorTable);
    ClickRow("LvPc", 0);
    Instrument.OnCall = [this](const QString& call) {
        if (call.startsWith("PutKfactorTableFile")) {
            EXPECT_FALSE(IsEnabled("BtClose"));
            EXPECT_FALSE(IsEnabled("BtUl"));
            EXPECT_FALSE(IsEnabled("BtInstrDel"));
            EXPECT_TRUE(IsEnabled("BtHlp"));
            form.close();
        }
    };
    FindControl(form, "BtUl").setFocus();
    Click(form, "BtUl");
    EXPECT_EQ(Instrument.Count("PutKfactorTableFile"), 1);
    EXPECT_FALSE(form.IsClosed());
    EXPECT_TRUE(IsEnabled("BtClose"));
    EXPECT_EQ(form.focusWidget(), &FindControl(form, "BtUl"));
}

TEST_F(ControlForm, ShowsTenThousandRows)
{
    Open(FileClassScreenShot);
    QStringList names;
    for (int number = 0; number < 10000; ++number)
        names.append(QString("shot%1.png").arg(number));
    OnInstr(names);
    Click(form, "BtInstrRef");
    QCoreApplication::processEvents();
    EXPECT_EQ(List("LvInstr").model()->rowCount(), 10000);
    Key(form, "LvInstr", Qt::Key_A, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(TransferCountSelected(*Transfer().LvInstr), 10000);
}

TEST_F(ControlForm, SixCommandsOpenItForTheirClass)
{
    BindLink();
    const QList<std::pair<Command, FileClass>> commands{ { Command::Control1, FileClassAntennaList },
        { Command::Control2, FileClassKfactorTable }, { Command::Control3, FileClassMemoryList },
        { Command::Control4, FileClassSuppressList }, { Command::Control5, FileClassScreenShot },
        { Command::Control6, FileClassCorrectionSet } };
    for (const auto& [command, fileClass] : commands) {
        QString title;
        QTimer::singleShot(0, qApp, [&title] {
            QWidget* window = nullptr;
            EXPECT_TRUE(QTest::qWaitFor([&window] {
                window = QApplication::activeModalWidget();
                return window != nullptr && window->isActiveWindow();
            }));
            title = window->windowTitle();
            EXPECT_FALSE(Program().Idle);
            window->close();
        });
        EXPECT_TRUE(CommandRun(command));
        EXPECT_EQ(FileClasses().CurrentFileClass, fileClass);
        EXPECT_EQ(title, LngStr(ModCaption(CaptionSlot::ControlTitle)));
        EXPECT_TRUE(Program().Idle);
    }
}

} // namespace tarvik
