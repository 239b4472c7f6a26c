#include "app/forms/dialog.h"

#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "tests/support/fakeDialog.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fixture.h"

namespace tarvik {

class Dialog : public ProgramTest {
protected:
    FakeFrame frame_;
};

TEST_F(Dialog, ReturnsTheStatusThatItEndedWith)
{
    FakeDialog form;
    form.WhileOpen = [&form] { DialogEnd(form, 7); };
    EXPECT_EQ(DialogShow(form), 7);
    EXPECT_TRUE(form.WasBlocking);
}

TEST_F(Dialog, ClosedByOtherMeansReturnsOne)
{
    FakeDialog form;
    Program().DialogResult = 9;
    EXPECT_EQ(DialogShow(form), 1);
}

TEST_F(Dialog, RestoresTheResultOfTheOuterDialog)
{
    Program().DialogResult = 9;
    FakeDialog form;
    form.WhileOpen = [&form] { DialogEnd(form, 7); };
    DialogShow(form);
    EXPECT_EQ(Program().DialogResult, 9);
}

TEST_F(Dialog, NestedDialogsKeepTheirOwnStatus)
{
    FakeDialog outer;
    FakeDialog inner;
    int innerStatus = 0;
    inner.WhileOpen = [&inner] { DialogEnd(inner, 4); };
    outer.WhileOpen = [&] {
        innerStatus = DialogShow(inner);
        DialogEnd(outer, 5);
    };
    EXPECT_EQ(DialogShow(outer), 5);
    EXPECT_EQ(innerStatus, 4);
}

TEST_F(Dialog, HidesAndRestoresTheStatusOfAJob)
{
    StatusJob("working");
    FakeDialog form;
    QString during = "unset";
    bool holdDuring = true;
    form.WhileOpen = [&] {
        during = frame_.Status;
        holdDuring = Program().StatusHold;
    };
    DialogShow(form);
    EXPECT_EQ(during, "");
    EXPECT_FALSE(holdDuring);
    EXPECT_TRUE(Program().StatusHold);
    EXPECT_EQ(frame_.Status, "working");
}

TEST_F(Dialog, RestoresAPlainStatusText)
{
    StatusSet("hint");
    FakeDialog form;
    DialogShow(form);
    EXPECT_FALSE(Program().StatusHold);
    EXPECT_EQ(frame_.Status, "hint");
}

TEST_F(Dialog, RestoresOnlyTheTextOfAJobWhileAnotherProgramIsActive)
{
    StatusSet("hint");
    FakeDialog form;
    form.WhileOpen = [this] { frame_.Active = false; };
    DialogShow(form);
    EXPECT_EQ(frame_.Status, "");
    StatusJob("working");
    DialogShow(form);
    EXPECT_EQ(frame_.Status, "working");
}

TEST_F(Dialog, ClosesTheTipOnlyForTheFirstDialog)
{
    FakeDialog outer;
    FakeDialog inner;
    outer.WhileOpen = [&inner] { DialogShow(inner); };
    DialogShow(outer);
    EXPECT_EQ(frame_.TipsClosed, 1);
}

TEST_F(Dialog, ShowsWithoutBlockingWhenDialogsAreNotModal)
{
    Program().NonModalDialogs = true;
    FakeDialog form;
    DialogShow(form);
    EXPECT_FALSE(form.WasBlocking);
}

TEST_F(Dialog, PushPreparesTheWindowAndUpdatesTheMenus)
{
    FakeDialog form;
    DialogPush(form, true);
    EXPECT_EQ(form.Prepared, 1);
    EXPECT_TRUE(DialogIsOpen());
    EXPECT_EQ(DialogTop(), &form);
    EXPECT_EQ(frame_.Log, QStringList("menu"));
}

TEST_F(Dialog, PushKeepsTheCloseEntry)
{
    FakeDialog form;
    DialogPush(form, false);
    EXPECT_EQ(form.Prepared, 2);
}

TEST_F(Dialog, PopClearsTheStatusAndUpdatesTheMenus)
{
    FakeDialog form;
    DialogPush(form, false);
    frame_.Log.clear();
    DialogPop();
    EXPECT_FALSE(DialogIsOpen());
    EXPECT_EQ(frame_.Log, QStringList({ "status:", "menu" }));
}

TEST_F(Dialog, PopOfAnEmptyStackLeavesItEmpty)
{
    DialogPop();
    EXPECT_FALSE(DialogIsOpen());
    FakeDialog form;
    DialogPush(form, false);
    EXPECT_EQ(DialogStack().size(), 1U);
}

TEST_F(Dialog, ResetEmptiesTheStack)
{
    FakeDialog form;
    DialogPush(form, false);
    DialogReset();
    EXPECT_FALSE(DialogIsOpen());
    EXPECT_EQ(DialogTop(), nullptr);
    EXPECT_FALSE(form.WasUnloaded);
}

TEST_F(Dialog, IsActiveWhenAnyFormOnTheStackIs)
{
    FakeDialog lower;
    FakeDialog upper;
    DialogPush(lower, false);
    DialogPush(upper, false);
    EXPECT_FALSE(DialogIsActive());
    lower.Active = true;
    EXPECT_TRUE(DialogIsActive());
}

TEST_F(Dialog, EscapeEndsTheActiveFormWithStatusOne)
{
    FakeDialog form;
    form.Active = true;
    form.WhileOpen = [] {
        Program().DialogResult = 5;
        DialogCancelActive();
    };
    EXPECT_EQ(DialogShow(form), 1);
    EXPECT_TRUE(form.WasUnloaded);
}

TEST_F(Dialog, EscapeSearchesFromTheOldestForm)
{
    FakeDialog lower;
    FakeDialog upper;
    DialogPush(lower, false);
    DialogPush(upper, false);
    lower.Active = true;
    upper.Active = true;
    DialogCancelActive();
    EXPECT_TRUE(lower.WasUnloaded);
    EXPECT_FALSE(upper.WasUnloaded);
}

TEST_F(Dialog, EscapeTwiceClosesOneFormEach)
{
    FakeDialog lower;
    FakeDialog upper;
    DialogPush(lower, false);
    DialogPush(upper, false);
    upper.Active = true;
    DialogCancelActive();
    lower.Active = true;
    DialogCancelActive();
    EXPECT_TRUE(upper.WasUnloaded);
    EXPECT_TRUE(lower.WasUnloaded);
    EXPECT_FALSE(DialogIsOpen());
}

TEST_F(Dialog, EscapeWithoutAnActiveFormDoesNothing)
{
    FakeDialog form;
    DialogPush(form, false);
    Program().DialogResult = 5;
    DialogCancelActive();
    EXPECT_FALSE(form.WasUnloaded);
    EXPECT_EQ(Program().DialogResult, 5);
}

TEST_F(Dialog, AFormMayRefuseToClose)
{
    FakeDialog form;
    form.RefusesToClose = true;
    DialogPush(form, false);
    DialogEnd(form, 3);
    EXPECT_TRUE(DialogIsOpen());
    EXPECT_EQ(Program().DialogResult, 3);
}

} // namespace tarvik
