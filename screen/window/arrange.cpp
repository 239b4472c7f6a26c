#include "screen/window/arrange.h"

#include "app/state/frame.h"
#include "app/state/project.h"
#include "screen/document/fit.h"
#include "screen/document/view.h"

#include <QScopedValueRollback>

namespace tarvik {

namespace {

/// After a cascade. Minimised windows keep their state.
void SetAllToDefaultSize()
{
    for (WindowId id = WindowNext(0); id != 0; id = WindowNext(id)) {
        const ScreenView* view = ViewOf(id);
        if (view != nullptr && view->State() == WinState::Normal)
            SetDefaultSize(id);
    }
}

} // namespace

void ArrangeWindows(Arrangement arrangement)
{
    {
        const QScopedValueRollback arranging(TheScreenWindows().Arranging, arrangement);
        TheScreenDesktop()->Arrange(arrangement);
    }
    if (arrangement == Arrangement::Cascade)
        SetAllToDefaultSize();
}

void ToggleAutoTile()
{
    Program().AutoTile = !Program().AutoTile;
    TheFrame()->MenuUpdate();
    RetileIfAutoTile();
}

void RetileIfAutoTile()
{
    if (Program().AutoTile && !TheScreenWindows().ClosingAll && !TheScreenWindows().Batch
        && WindowCount(WindowType::Screen) > 1)
        ArrangeWindows(Arrangement::TileHorizontally);
}

void ChooseWindows(int mask, bool withImages)
{
    ChooseWindows(mask, withImages, WindowTable().Active);
}

void ChooseWindows(int mask, bool withImages, WindowId marked)
{
    const QVector<WindowId> offered = WindowsFor(mask, withImages);
    QVector<WindowId>& chosen = TheScreenWindows().Chosen;
    if (offered.size() <= 1) {
        chosen = offered;
        return;
    }
    chosen.clear();
    chosen = TheScreenDesktop()->SelectWindows(offered, marked);
}

} // namespace tarvik
