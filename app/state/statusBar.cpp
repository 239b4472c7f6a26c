#include "app/state/statusBar.h"

#include "app/state/dialogStack.h"
#include "app/state/frameHooks.h"
#include "app/state/project.h"
#include "app/text/lang.h"

namespace tarvik {

namespace {

constexpr int kFirstReadyText = 10600;

void ShowPointer(bool busy)
{
    if (DialogForm* top = DialogTop())
        top->ShowBusyPointer(busy);
    else
        TheFrameHooks().ShowBusyPointer(busy);
}

} // namespace

void BeginBusy()
{
    ProgramState& program = Program();
    if (!program.Idle)
        return;
    program.Idle = false;
    StatusClear();
    TheFrameHooks().SetPanelText(kStatusPanels, {});
    TheFrameHooks().MenuUpdate();
}

void EndBusy()
{
    ProgramState& program = Program();
    if (program.Idle)
        return;
    program.Idle = true;
    TheFrameHooks().MenuUpdate();
    StatusClear();
    program.StatusHold = false;
    ShowPointer(false);
}

bool IdleSet(bool value)
{
    const bool previous = Program().Idle;
    Program().Idle = value;
    return previous;
}

void StatusSet(const QString& text)
{
    if (Program().StatusHold)
        return;
    if (text.isEmpty() || TheFrameHooks().HasActivation() || DialogIsActive())
        TheFrameHooks().SetStatusText(text);
}

void StatusSetId(int id)
{
    StatusSet(LngStr(id));
}

void StatusSetReady(int index)
{
    StatusSetId(kFirstReadyText + index);
}

void StatusJob(const QString& text)
{
    Program().StatusHold = true;
    TheFrameHooks().SetStatusText(text);
}

void StatusClear()
{
    TheFrameHooks().SetStatusText({});
}

void MousePointerBusy()
{
    ShowPointer(Program().StatusHold);
}

} // namespace tarvik
