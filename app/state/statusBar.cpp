#include "app/state/statusBar.h"

#include "app/state/dialogStack.h"
#include "app/state/frame.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

namespace tarvik {

namespace {

void ShowPointer(bool busy)
{
    if (DialogForm* top = DialogTop())
        top->ShowBusyPointer(busy);
    else
        TheFrame()->ShowBusyPointer(busy);
}

} // namespace

void BeginBusy()
{
    ProgramState& program = Program();
    if (!program.Idle)
        return;
    program.Idle = false;
    StatusClear();
    TheFrame()->SetPanelText(kStatusPanels, {});
    TheFrame()->MenuUpdate();
}

void EndBusy()
{
    ProgramState& program = Program();
    if (program.Idle)
        return;
    program.Idle = true;
    TheFrame()->MenuUpdate();
    StatusClear();
    program.StatusHold = false;
    ShowPointer(false);
}

BusyScope::BusyScope()
    : wasIdle_(Program().Idle)
{
    BeginBusy();
}

BusyScope::~BusyScope()
{
    if (wasIdle_)
        EndBusy();
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
    if (text.isEmpty() || TheFrame()->HasActivation() || DialogIsActive())
        TheFrame()->SetStatusText(text);
}

void StatusSetId(TextNumber<0> id)
{
    StatusSet(LngStr(id));
}

void StatusSetReady(int index)
{
    StatusSetId(TextId::ReadyHints + index);
}

void StatusJob(const QString& text)
{
    Program().StatusHold = true;
    TheFrame()->SetStatusText(text);
}

void StatusClear()
{
    TheFrame()->SetStatusText({});
}

void MousePointerBusy()
{
    ShowPointer(Program().StatusHold);
}

} // namespace tarvik
