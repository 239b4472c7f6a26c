#include "app/state/project.h"
#include "app/text/lang.h"
#include "link/connection/FmConnect.h"
#include "tests/link/connection/connect_form_fixture.h"

#include <QApplication>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

namespace tarvik {

namespace {

class ConnectForm : public ConnectionForms {
protected:
    ConnectForm()
    {
        forms.OnConnecting = [this] {
            tried.append(state.SelectedEntry);
            fake.Connected = connects;
            state.ConnectInProgress = false;
        };
    }

    void Run(const std::function<void()>& during)
    {
        RunForm(form, [&] {
            during();
            state.ConnectInProgress = false;
            if (!form.IsClosed())
                Click(form, "BtCancel");
        });
    }

    void ShowLan()
    {
        Find<QTabBar>(form, "TcConnect").setCurrentIndex(1);
    }

    QTreeWidget& List()
    {
        return Find<QTreeWidget>(form, "LvIpAddress");
    }

    QStringList Rows()
    {
        QStringList rows;
        for (int at = 0; at < List().topLevelItemCount(); ++at) {
            const QTreeWidgetItem* item = List().topLevelItem(at);
            rows.append(item->text(0) + u'|' + item->text(1) + u'|' + item->text(2)
                + (item->isSelected() ? QStringLiteral("|selected") : QString()));
        }
        return rows;
    }

    void Select(int row)
    {
        List().setCurrentItem(List().topLevelItem(row));
    }

    /// Calls `during` once the entry form is open above this one.
    static void InConnection(const std::function<void(QWidget& connection)>& during)
    {
        QTimer::singleShot(0, qApp, [during] {
            QWidget* connection = QApplication::activeModalWidget();
            ASSERT_NE(connection, nullptr);
            ASSERT_EQ(connection->objectName(), "FmConnection");
            ASSERT_TRUE(QTest::qWaitForWindowActive(connection));
            QCoreApplication::processEvents();
            during(*connection);
        });
    }

    bool IsEnabled(const char* name)
    {
        return FindControl(form, QLatin1String(name)).isEnabled();
    }
    bool IsVisible(const char* name)
    {
        return FindControl(form, QLatin1String(name)).isVisible();
    }

    FmConnect form;
    QStringList tried;
    bool connects = true;
};

} // namespace

TEST_F(ConnectForm, HasItsControls)
{
    Run([&] {
        ShowLan();
        ExpectControls(form,
            { "TcConnect", "LvIpAddress", "FrIpConfig", "BtCon", "BtDisc", "BtAdd", "BtEdit", "BtRemove", "BtCancel",
                "BtHelp" });
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
        EXPECT_EQ(List().headerItem()->text(0), "Name");
        EXPECT_EQ(List().headerItem()->text(1), "IP Address");
        EXPECT_EQ(List().headerItem()->text(2), "Port");
        EXPECT_EQ(Find<QTabBar>(form, "TcConnect").tabText(0), LngStr(10404));
        EXPECT_EQ(Find<QTabBar>(form, "TcConnect").tabText(1), LngStr(10406));
    });
}

TEST_F(ConnectForm, ControlsHaveTheirHelpNumbers)
{
    Run([&] {
        EXPECT_EQ(form.HelpNumber(), 10401);
        const std::vector<std::pair<const char*, int>> numbers{ { "TcConnect", 10405 }, { "LvIpAddress", 10408 },
            { "FrIpConfig", 10411 }, { "BtCon", 10412 }, { "BtDisc", 10413 }, { "BtAdd", 10414 }, { "BtEdit", 10415 },
            { "BtRemove", 10416 }, { "BtCancel", 10417 }, { "BtHelp", 10419 } };
        for (const auto& [name, number] : numbers)
            EXPECT_EQ(HelpNumberOf(&FindControl(form, QLatin1String(name))), number) << name;
        Key(form, "LvIpAddress", Qt::Key_F1);
        Click(form, "BtHelp");
        EXPECT_EQ(topics, (QList<int>{ 10408, 10401 }));
    });
}

TEST_F(ConnectForm, ShowsUsbEntryWithoutEditButtons)
{
    Run([&] {
        EXPECT_EQ(form.windowTitle(), LngStr(10402));
        EXPECT_EQ(Rows(), QStringList{ "Usb|169.254.1.1|5555|selected" });
        for (const char* name : { "BtAdd", "BtEdit", "BtRemove" })
            EXPECT_FALSE(IsVisible(name)) << name;
        EXPECT_TRUE(HasFocus(form, "LvIpAddress"));
        EXPECT_TRUE(IsEnabled("BtCon"));
        EXPECT_FALSE(IsEnabled("BtDisc"));
    });
}

TEST_F(ConnectForm, ChangeOfTabShowsOtherEntries)
{
    Run([&] {
        ShowLan();
        EXPECT_EQ(Rows(), (QStringList{ "Van|10.0.0.7|5555|selected", "Roof|10.0.0.8|80" }));
        for (const char* name : { "BtAdd", "BtEdit", "BtRemove" }) {
            EXPECT_TRUE(IsVisible(name)) << name;
            EXPECT_TRUE(IsEnabled(name)) << name;
        }
        EXPECT_TRUE(HasFocus(form, "LvIpAddress"));
    });
}

TEST_F(ConnectForm, OpensOnTabOfLastConnection)
{
    Program().ConnectedAtExit = true;
    state.SelectedEntry = state.LanEntries[1];
    state.ConnectInProgress = true;
    Run([&] {
        EXPECT_FALSE(state.ConnectInProgress);
        EXPECT_EQ(Find<QTabBar>(form, "TcConnect").currentIndex(), 1);
        EXPECT_EQ(Rows(), (QStringList{ "Van|10.0.0.7|5555", "Roof|10.0.0.8|80|selected" }));
    });
}

TEST_F(ConnectForm, NineEntriesDisableAdd)
{
    FillAllSlots();
    Run([&] {
        EXPECT_FALSE(IsVisible("BtAdd"));
        ShowLan();
        EXPECT_EQ(Rows().size(), 9);
        EXPECT_FALSE(IsEnabled("BtAdd"));
        EXPECT_TRUE(IsEnabled("BtEdit"));
        Click(form, "BtRemove");
        EXPECT_EQ(Rows().size(), 8);
        EXPECT_TRUE(IsEnabled("BtAdd"));
    });
}

TEST_F(ConnectForm, NineEntriesDisableAddWhenItOpensOnLan)
{
    FillAllSlots();
    Program().ConnectedAtExit = true;
    state.SelectedEntry = state.LanEntries[8];
    Run([&] {
        EXPECT_TRUE(IsVisible("BtAdd"));
        EXPECT_FALSE(IsEnabled("BtAdd"));
    });
}

TEST_F(ConnectForm, WhileConnectedOnlyDisconnects)
{
    fake.Connected = true;
    state.SelectedEntry = state.LanEntries[0];
    Run([&] {
        EXPECT_EQ(form.windowTitle(), LngStr(10418));
        for (const char* name : { "BtCon", "BtAdd", "BtEdit", "BtRemove", "FrIpConfig", "TcConnect" })
            EXPECT_FALSE(IsEnabled(name)) << name;
        EXPECT_TRUE(IsEnabled("BtDisc"));
        EXPECT_TRUE(HasFocus(form, "BtDisc"));
        Click(form, "BtDisc");
        EXPECT_EQ(fake.Log, QStringList{ "Disconnect" });
        EXPECT_EQ(form.windowTitle(), LngStr(10402));
        EXPECT_TRUE(IsEnabled("BtCon"));
        EXPECT_TRUE(HasFocus(form, "LvIpAddress"));
        EXPECT_FALSE(form.IsClosed());
    });
}

TEST_F(ConnectForm, ShowsIconForStateOfEachEntry)
{
    fake.Connected = true;
    state.SelectedEntry = state.LanEntries[1];
    Run([&] {
        EXPECT_EQ(List().topLevelItem(0)->data(0, Qt::UserRole).toString(), "LanNotConnected");
        EXPECT_EQ(List().topLevelItem(1)->data(0, Qt::UserRole).toString(), "LanConnected");
        const QSize size(16, 16);
        EXPECT_FALSE(List().topLevelItem(0)->icon(0).isNull());
        EXPECT_EQ(List().topLevelItem(0)->data(0, Qt::AccessibleDescriptionRole).toString(), "");
        EXPECT_EQ(List().topLevelItem(1)->data(0, Qt::AccessibleDescriptionRole).toString(), LngStr(10418));
        EXPECT_NE(List().topLevelItem(0)->icon(0).pixmap(size).toImage(),
            List().topLevelItem(1)->icon(0).pixmap(size).toImage());
    });
}

TEST_F(ConnectForm, ConnectsToSelectedRowAndCloses)
{
    Run([&] {
        ShowLan();
        Select(1);
        Click(form, "BtCon");
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_EQ(tried, QStringList{ "Roof:10.0.0.8:80" });
    EXPECT_EQ(state.SelectedEntry, "Roof:10.0.0.8:80");
}

TEST_F(ConnectForm, EnterConnects)
{
    Run([&] {
        Key(form, "LvIpAddress", Qt::Key_Return);
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_EQ(tried, QStringList{ "Usb:169.254.1.1:5555" });
}

TEST_F(ConnectForm, StaysOpenWhenConnectFails)
{
    connects = false;
    Run([&] {
        ShowLan();
        Select(1);
        Click(form, "BtCon");
        EXPECT_FALSE(form.IsClosed());
        EXPECT_EQ(Rows(), (QStringList{ "Van|10.0.0.7|5555", "Roof|10.0.0.8|80|selected" }));
        Click(form, "BtCon");
    });
    EXPECT_EQ(tried.size(), 2);
}

TEST_F(ConnectForm, EmptyListHasNothingToConnectEditOrRemove)
{
    state.LanEntries = {};
    state.SelectedEntry = "Kept:10.0.0.1:1";
    Run([&] {
        ShowLan();
        EXPECT_TRUE(Rows().isEmpty());
        for (const char* name : { "BtCon", "BtEdit", "BtRemove" })
            Click(form, QLatin1String(name));
        EXPECT_FALSE(form.IsClosed());
    });
    EXPECT_TRUE(tried.isEmpty());
    EXPECT_EQ(state.SelectedEntry, "Kept:10.0.0.1:1");
}

TEST_F(ConnectForm, AddOpensEmptyEntry)
{
    state.SelectedEntry = state.LanEntries[0];
    Run([&] {
        ShowLan();
        InConnection([&](QWidget& connection) {
            EXPECT_EQ(state.SelectedEntry, "");
            EXPECT_EQ(TextOf(connection, "TbConnectionName"), "");
            Type(connection, "TbConnectionName", "New");
            Type(connection, "TbIpAddress", "10.0.0.9");
            Type(connection, "TbIpPort", "5555");
            Click(connection, "BtOk");
        });
        Click(form, "BtAdd");
        EXPECT_EQ(Rows().last(), "New|10.0.0.9|5555|selected");
    });
}

TEST_F(ConnectForm, RoomIsCountedInListAsLastShown)
{
    FillAllSlots();
    state.LanEntries[8].clear();
    Run([&] {
        ShowLan();
        InConnection([](QWidget& connection) {
            Click(connection, "BtDefault");
            Click(connection, "BtOk");
        });
        Click(form, "BtAdd");
        EXPECT_EQ(Rows().size(), 9);
        EXPECT_TRUE(IsEnabled("BtAdd"));
    });
}

TEST_F(ConnectForm, EditOpensSelectedEntry)
{
    Run([&] {
        ShowLan();
        Select(1);
        InConnection([](QWidget& connection) {
            EXPECT_EQ(TextOf(connection, "TbConnectionName"), "Roof");
            EXPECT_EQ(TextOf(connection, "TbIpAddress"), "10.0.0.8");
            EXPECT_EQ(TextOf(connection, "TbIpPort"), "80");
            Type(connection, "TbIpPort", "81");
            Click(connection, "BtOk");
        });
        Click(form, "BtEdit");
        EXPECT_EQ(Rows(), (QStringList{ "Van|10.0.0.7|5555", "Roof|10.0.0.8|81|selected" }));
    });
}

TEST_F(ConnectForm, DoubleClickEditsOnLanTabOnly)
{
    Run([&] {
        const auto doubleClick = [this](int row) {
            const QPoint at = List().visualItemRect(List().topLevelItem(row)).center();
            QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, at);
            QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, at);
        };
        state.SelectedEntry = "Kept:10.0.0.1:1";
        doubleClick(0);
        EXPECT_EQ(state.SelectedEntry, "Kept:10.0.0.1:1");
        ShowLan();
        bool opened = false;
        InConnection([&](QWidget& connection) {
            opened = true;
            EXPECT_EQ(TextOf(connection, "TbConnectionName"), "Roof");
            Click(connection, "BtCancel");
        });
        doubleClick(1);
        EXPECT_TRUE(opened);
        EXPECT_EQ(state.SelectedEntry, "Roof:10.0.0.8:80");
    });
}

TEST_F(ConnectForm, RemoveDropsEntryAndKeepsSelectedEntry)
{
    state.SelectedEntry = state.LanEntries[0];
    Run([&] {
        ShowLan();
        Click(form, "BtRemove");
        EXPECT_EQ(Rows(), QStringList{ "Roof|10.0.0.8|80|selected" });
    });
    EXPECT_EQ(state.SelectedEntry, "Van:10.0.0.7:5555");
    EXPECT_EQ(state.LanEntries[1], "");
}

TEST_F(ConnectForm, NeitherClosesNorShowsHelpDuringConnect)
{
    Run([&] {
        state.ConnectInProgress = true;
        Click(form, "BtCancel");
        form.close();
        Key(Qt::Key_Escape);
        EXPECT_FALSE(form.IsClosed());
        Click(form, "BtHelp");
        EXPECT_TRUE(topics.isEmpty());
    });
}

TEST_F(ConnectForm, EscapeClosesIt)
{
    Run([&] {
        KeyDown(Qt::Key_Escape);
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_TRUE(fake.Log.isEmpty());
}

TEST_F(ConnectForm, ClosesWithProgram)
{
    Run([&] {
        EXPECT_TRUE(form.CanCloseUnasked());
        form.Unload();
        EXPECT_TRUE(form.IsClosed());
    });
}

} // namespace tarvik
