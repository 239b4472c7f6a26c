#include "app/text/lang.h"
#include "link/connection/FmConnection.h"
#include "tests/link/connection/connect_form_fixture.h"

#include <QLineEdit>

namespace tarvik {

namespace {

class ConnectionForm : public ConnectionForms {
protected:
    void Run(const std::function<void()>& during)
    {
        RunForm(form, during);
    }
    void Fill(const QString& name, const QString& address, const QString& port)
    {
        Type(form, "TbConnectionName", name);
        Type(form, "TbIpAddress", address);
        Type(form, "TbIpPort", port);
    }

    FmConnection form;
};

} // namespace

TEST_F(ConnectionForm, HasItsControls)
{
    Run([&] {
        ExpectControls(
            form, { "TbConnectionName", "TbIpAddress", "TbIpPort", "BtOk", "BtDefault", "BtCancel", "BtHelp" });
        ExpectTabOrder(form);
        ExpectNothingClipped(form);
        EXPECT_EQ(form.windowTitle(), LngStr(10436));
        EXPECT_TRUE(HasFocus(form, "TbConnectionName"));
        Click(form, "BtCancel");
    });
}

TEST_F(ConnectionForm, ControlsHaveTheirHelpNumbers)
{
    Run([&] {
        EXPECT_EQ(form.HelpNumber(), 10436);
        const std::vector<std::pair<const char*, int>> numbers{ { "TbConnectionName", 10437 }, { "TbIpAddress", 10438 },
            { "TbIpPort", 10439 }, { "BtOk", 10440 }, { "BtDefault", 10441 }, { "BtCancel", 10442 },
            { "BtHelp", 10443 } };
        for (const auto& [name, number] : numbers)
            EXPECT_EQ(HelpNumberOf(&FindControl(form, QLatin1String(name))), number) << name;
        Click(form, "BtHelp");
        EXPECT_EQ(topics, QList<int>{ 10436 });
        Click(form, "BtCancel");
    });
}

TEST_F(ConnectionForm, IsEmptyForNewOrInvalidEntry)
{
    for (const char* entry : { "", "Van:10.0.0.7", "a:b:c:d" }) {
        state.SelectedEntry = QLatin1String(entry);
        Run([&] {
            for (const char* name : { "TbConnectionName", "TbIpAddress", "TbIpPort" })
                EXPECT_EQ(TextOf(form, QLatin1String(name)), "") << name;
            Click(form, "BtCancel");
        });
    }
}

TEST_F(ConnectionForm, DefaultFillsInFactoryAddress)
{
    Run([&] {
        Click(form, "BtDefault");
        EXPECT_EQ(TextOf(form, "TbConnectionName"), "Default");
        EXPECT_EQ(TextOf(form, "TbIpAddress"), "172.17.75.1");
        EXPECT_EQ(TextOf(form, "TbIpPort"), "5555");
        EXPECT_FALSE(form.IsClosed());
        Click(form, "BtOk");
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_EQ(state.LanEntries[2], "Default:172.17.75.1:5555");
}

TEST_F(ConnectionForm, NameInUseKeepsItOpen)
{
    Run([&] {
        Fill("Van", "10.0.0.9", "5555");
        Answers().Expect(10451, QStringList(), Ok);
        Click(form, "BtOk");
        EXPECT_FALSE(form.IsClosed());
        EXPECT_EQ(TextOf(form, "TbIpAddress"), "10.0.0.9");
        Click(form, "BtCancel");
    });
    EXPECT_EQ(state.LanEntries[2], "");
}

TEST_F(ConnectionForm, InvalidAddressOrPortKeepsItOpen)
{
    Run([&] {
        Fill("New", "256.1.1.1", "5555");
        Answers().Expect(10435, QStringList(), Ok);
        Click(form, "BtOk");
        EXPECT_FALSE(form.IsClosed());
        Fill("New", "10.0.0.9", "12345");
        Answers().Expect(10435, QStringList(), Ok);
        Click(form, "BtOk");
        EXPECT_FALSE(form.IsClosed());
        Type(form, "TbIpPort", "1234");
        Key(Qt::Key_Return);
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_EQ(state.LanEntries[2], "New:10.0.0.9:1234");
}

TEST_F(ConnectionForm, RefusalMovesFocusToFieldAtFault)
{
    Run([&] {
        Fill("Van", "10.0.0.9", "5555");
        Answers().Expect(10451, QStringList(), Ok);
        Click(form, "BtOk");
        EXPECT_TRUE(HasFocus(form, "TbConnectionName"));
        EXPECT_EQ(Find<QLineEdit>(form, "TbConnectionName").selectedText(), "Van");
        Fill("New", "10.0.0.256", "5555");
        Answers().Expect(10435, QStringList(), Ok);
        Click(form, "BtOk");
        EXPECT_TRUE(HasFocus(form, "TbIpAddress"));
        Fill("New", "10.0.0.9", "55555");
        Answers().Expect(10435, QStringList(), Ok);
        Click(form, "BtOk");
        EXPECT_TRUE(HasFocus(form, "TbIpPort"));
        Click(form, "BtCancel");
    });
}

TEST_F(ConnectionForm, CancelAndEscapeKeepEntry)
{
    state.SelectedEntry = state.LanEntries[0];
    Run([&] {
        Fill("Other", "10.0.0.9", "1");
        Click(form, "BtCancel");
    });
    Run([&] {
        Fill("Other", "10.0.0.9", "1");
        KeyDown(Qt::Key_Escape);
        EXPECT_TRUE(form.IsClosed());
    });
    EXPECT_EQ(state.LanEntries[0], "Van:10.0.0.7:5555");
    EXPECT_EQ(state.SelectedEntry, "Van:10.0.0.7:5555");
}

TEST_F(ConnectionForm, ShowsLongNameWhole)
{
    const QString name(228, u'x');
    state.LanEntries[0] = name + QStringLiteral(":1.1.1.1:1");
    state.SelectedEntry = state.LanEntries[0];
    Run([&] {
        EXPECT_EQ(TextOf(form, "TbConnectionName"), name);
        Click(form, "BtOk");
    });
    EXPECT_EQ(state.LanEntries[0], name + ":1.1.1.1:1");
}

} // namespace tarvik
