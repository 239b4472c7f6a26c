#include "app/frame/keyboardHook.h"

#include "app/forms/dialog.h"
#include "app/help/help.h"
#include "app/state/frame.h"
#include "app/state/project.h"

#include <QtCore/qnamespace.h>

namespace tarvik {

namespace {

bool EnterWhatsThis()
{
    TheFrame()->EnterWhatsThis();
    return true;
}

bool ShowHighlightedTopic()
{
    const std::optional<int> help = TheFrame()->HighlightedHelp();
    if (help && *help != 0)
        ShowHelp(*help);
    return help.has_value();
}

} // namespace

bool KeyboardHookKey(const HookKey& key)
{
    ProgramState& program = Program();
    if (key.Key == Qt::Key_Shift)
        program.ShiftDown = true;
    if (key.Released)
        program.ShiftDown = false; // on any key, not only on Shift
    if (key.Key == Qt::Key_Escape)
        DialogCancelActive(); // on press, on each auto-repeat and on release
    const bool goesDown = !key.Released && !key.AutoRepeat;
    if (key.Key == Qt::Key_F1 && goesDown)
        return program.ShiftDown ? EnterWhatsThis() : ShowHighlightedTopic();
    return false;
}

} // namespace tarvik
