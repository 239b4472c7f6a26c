// The toolkit's file dialogs, through the seams.
#include "app/forms/form.h"
#include "app/frame/PlatformSeams.h"
#include "app/platform/seams.h"
#include "tests/support/forms.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QTreeView>

namespace tarvik {

namespace {

class PlatformDialogs : public FormTest {
protected:
    PlatformDialogs()
    {
        BindPlatformSeams();
        question.Title = "Save As";
        question.InitialFolder = Folder();
        question.FileName = "night";
        question.Filters = { "Windows bitmap|*.bmp", "PCX picture|*.pcx", "PNG picture|*.png" };
        question.FilterIndex = 3;
        question.HelpNumber = 11600;
    }

    static QFileDialog& Dialog()
    {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            qFatal("no file dialog");
        return *dialog;
    }

    static QLineEdit& Name()
    {
        return *Dialog().findChild<QLineEdit*>("fileNameEdit");
    }

    /// Runs the save dialog; `during` is called once it is shown.
    QString Save(const std::function<void()>& during)
    {
        QTimer::singleShot(0, qApp, [&during] {
            during();
            if (auto* still = qobject_cast<QFileDialog*>(QApplication::activeModalWidget()))
                still->reject();
        });
        return TheSeams().SaveFile(question);
    }

    /// As Save, with a name typed over the proposed one, and Enter.
    QString SaveTyped(const QString& name)
    {
        return Save([&name] {
            Name().setText(name);
            static_cast<QDialog&>(Dialog()).accept();
        });
    }

    SaveFileQuestion question;
};

} // namespace

TEST_F(PlatformDialogs, SaveProposesTheNameWithTheExtensionOfTheFilter)
{
    QString proposed;
    QString filter;
    int help = 0;
    EXPECT_EQ(Save([&] {
        proposed = Name().text();
        filter = Dialog().selectedNameFilter();
        help = HelpNumberOf(&Dialog());
    }),
        "");
    EXPECT_EQ(proposed, "night.png");
    EXPECT_EQ(filter, "PNG picture (*.png)");
    EXPECT_EQ(help, 11600);
}

TEST_F(PlatformDialogs, ColumnsOfTheFilesFollowTheirContents)
{
    Save([] {
        const QHeaderView& header = *Dialog().findChild<QTreeView*>("treeView")->header();
        EXPECT_EQ(header.sectionResizeMode(0), QHeaderView::Stretch);
        for (const int column : { 1, 2, 3 })
            EXPECT_EQ(header.sectionResizeMode(column), QHeaderView::ResizeToContents) << column;
        EXPECT_GE(header.sectionSize(0), header.length() / 3) << "room for names";
    });
}

TEST_F(PlatformDialogs, SaveWithoutANameProposesNone)
{
    question.FileName.clear();
    QString proposed = "x";
    Save([&proposed] { proposed = Name().text(); });
    EXPECT_EQ(proposed, "");
}

TEST_F(PlatformDialogs, ProposedNameKeepsItsPoints)
{
    question.FileName = "Tower.2024.night";
    EXPECT_EQ(Save([] { static_cast<QDialog&>(Dialog()).accept(); }), FilePath("Tower.2024.night.png"));
}

TEST_F(PlatformDialogs, TypedNameGetsTheExtensionOfTheFilter)
{
    EXPECT_EQ(SaveTyped("mast"), FilePath("mast.png"));
    EXPECT_EQ(SaveTyped("Tower.2024"), FilePath("Tower.2024.png"));
    EXPECT_EQ(SaveTyped("Shot.1"), FilePath("Shot.1.png"));
    EXPECT_EQ(SaveTyped("Tower.night"), FilePath("Tower.night.png"));
    EXPECT_EQ(SaveTyped("mast."), FilePath("mast.png"));
    EXPECT_EQ(SaveTyped("  mast "), FilePath("mast.png"));
}

TEST_F(PlatformDialogs, TypedExtensionStays)
{
    EXPECT_EQ(SaveTyped("mast.bmp"), FilePath("mast.bmp"));
    EXPECT_EQ(SaveTyped("mast.PCX"), FilePath("mast.PCX"));
    EXPECT_EQ(SaveTyped("mast.jpeg"), FilePath("mast.jpeg")) << "of another kind, which the caller refuses";
}

TEST_F(PlatformDialogs, OtherFilterChangesTheExtension)
{
    EXPECT_EQ(Save([] {
        QTest::keyClick(Dialog().findChild<QComboBox*>("fileTypeCombo"), Qt::Key_Up);
        EXPECT_EQ(Name().text(), "night.pcx");
        Name().setText("mast");
        static_cast<QDialog&>(Dialog()).accept();
    }),
        FilePath("mast.pcx"));
}

TEST_F(PlatformDialogs, WheelChangesABoxOnlyWhileItHasTheFocus)
{
    const auto turn = [] {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Dialog()));
        auto& types = *Dialog().findChild<QComboBox*>("fileTypeCombo");
        auto& folders = *Dialog().findChild<QComboBox*>("lookInCombo");
        const QString folder = Dialog().directory().absolutePath();
        const int type = types.currentIndex();
        const int other = type > 0 ? type - 1 : type + 1;
        Name().setFocus();
        Wheel(types, type > 0 ? 120 : -120);
        EXPECT_EQ(types.currentIndex(), type);
        for (const int delta : { 120, -120 })
            Wheel(folders, delta);
        EXPECT_EQ(Dialog().directory().absolutePath(), folder);
        EXPECT_TRUE(Name().hasFocus());
        types.setFocus();
        Wheel(types, type > 0 ? 120 : -120);
        EXPECT_EQ(types.currentIndex(), other);
    };
    Save(turn);
    QTimer::singleShot(0, qApp, [&turn] {
        turn();
        Dialog().reject();
    });
    TheSeams().OpenFile({ "Open", Folder(), { "All|*", "Windows bitmap|*.bmp" } });
}

TEST_F(PlatformDialogs, ConfirmsReplacingAFileOfTheCompletedName)
{
    Store(FilePath("Tower.2024.png"), "old");
    for (const char* typed : { "Tower.2024", " Tower.2024.png ", "Tower.2024.png" }) {
        QString asked;
        QTimer::singleShot(0, qApp, [&asked] {
            QTimer::singleShot(50, qApp, [&asked] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                    asked = box->text();
                    box->reject();
                }
            });
        });
        EXPECT_EQ(SaveTyped(QString::fromLatin1(typed)), "") << "refused, then cancelled";
        EXPECT_TRUE(asked.contains("Tower.2024.png")) << typed;
    }
}

TEST_F(PlatformDialogs, FolderWithAPointIsEntered)
{
    ASSERT_TRUE(QDir(Folder()).mkdir("Tower.2024"));
    QString entered;
    EXPECT_EQ(Save([&entered] {
        Name().setText("Tower.2024");
        static_cast<QDialog&>(Dialog()).accept();
        entered = Dialog().directory().absolutePath();
    }),
        "");
    EXPECT_EQ(entered, FilePath("Tower.2024"));
}

TEST_F(PlatformDialogs, FolderBrowserShowsAndReturnsFolders)
{
    ASSERT_TRUE(QDir(Folder()).mkdir("lists"));
    QTimer::singleShot(0, qApp, [this] {
        EXPECT_EQ(Dialog().windowTitle(), "Target");
        EXPECT_EQ(Dialog().fileMode(), QFileDialog::Directory);
        EXPECT_TRUE(Dialog().testOption(QFileDialog::ShowDirsOnly));
        Name().setText("lists");
        static_cast<QDialog&>(Dialog()).accept();
    });
    EXPECT_EQ(TheSeams().BrowseFolder({ "Target", Folder() }), FilePath("lists"));
}

TEST_F(PlatformDialogs, EscapeClosesOnlyTheDialogAboveAForm)
{
    class PlainForm final : public FormBase {
    public:
        PlainForm()
            : FormBase("PlainForm")
        {
        }
        bool OnLoad() override
        {
            DialogPush(*this, false);
            return true;
        }
    };
    PlainForm form;
    ShowForm(form);
    bool wasOpen = false;
    EXPECT_EQ(Save([&] {
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::focusWidget() == &Name(); }));
        wasOpen = true;
        KeyDown(Qt::Key_Escape);
        EXPECT_EQ(QApplication::activeModalWidget(), &form);
    }),
        "");
    EXPECT_TRUE(wasOpen);
    form.activateWindow(); // as a window manager does
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    KeyUp(Qt::Key_Escape);
    EXPECT_FALSE(form.IsClosed());
    Key(Qt::Key_Escape);
    EXPECT_TRUE(form.IsClosed());
}

TEST_F(PlatformDialogs, OpenReturnsSeveralFilesAndSelectsTheFirstFilter)
{
    Store(FilePath("a.png"), "a");
    Store(FilePath("b.bmp"), "b");
    OpenFilesQuestion open;
    open.InitialFolder = Folder();
    open.Filters = { "All pictures|*.bmp;*.png", "Windows bitmap|*.bmp" };
    open.DefaultExtension = "bmp";
    QString filter;
    QTimer::singleShot(0, qApp, [&filter] {
        filter = Dialog().selectedNameFilter();
        Name().setText("\"a.png\" \"b.bmp\"");
        static_cast<QDialog&>(Dialog()).accept();
    });
    EXPECT_EQ(TheSeams().OpenFiles(open), QStringList({ FilePath("a.png"), FilePath("b.bmp") }));
    EXPECT_EQ(filter, "All pictures (*.bmp *.png)");
}

} // namespace tarvik
