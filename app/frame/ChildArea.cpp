#include "app/frame/ChildArea.h"

#include "app/state/project.h"

#include <QKeyEvent>
#include <QMdiSubWindow>

namespace tarvik {

bool ChildArea::StepKey(const QKeyEvent& event)
{
    const bool isForward = event.key() == Qt::Key_Tab;
    const bool isStep =
        event.modifiers().testFlag(Qt::ControlModifier) && (isForward || event.key() == Qt::Key_Backtab);
    if (isStep && event.type() == QEvent::KeyPress && CanAct())
        StepWindow(isForward ? 1 : -1);
    return isStep;
}

/// The base class would toggle between the two windows used last.
bool ChildArea::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    const auto* control = qobject_cast<QWidget*>(watched);
    if (!isKey || control == nullptr || !isAncestorOf(control)) // tabs of other windows have these keys too
        return QMdiArea::eventFilter(watched, event);
    return StepKey(*static_cast<QKeyEvent*>(event));
}

void ChildArea::StepWindow(int step)
{
    const QList<QMdiSubWindow*> windows = subWindowList(CreationOrder);
    if (windows.isEmpty())
        return;
    const auto count = windows.size();
    const auto active = windows.indexOf(activeSubWindow());
    setActiveSubWindow(windows[(active + step + count) % count]);
}

} // namespace tarvik
