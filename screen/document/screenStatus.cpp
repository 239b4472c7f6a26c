#include "screen/document/screenStatus.h"

#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/region.h"
#include "screen/document/color.h"
#include "screen/document/description.h"

#include <QScopedValueRollback>

namespace tarvik {

void StatusFill(WindowId id)
{
    ScreenView* view = ViewOf(id);
    bool& isFilling = WindowTable().FillingStatus;
    if (isFilling || view == nullptr)
        return;
    const QScopedValueRollback filling(isFilling, true);
    const ScreenRecord* record = ScreenOf(id);
    const QDateTime date = record == nullptr ? QDateTime() : record->Date;
    view->FillStatus(date.isValid() ? IniDateText(date) : QString(), LngStr(TextId::LiveScreenStatusHead),
        date.isValid() ? IniTimeText(date) : QString());
    StatusShow(id);
    view->LayOutDescription(DescrLayout(id, view->ClientSize()));
}

void StatusShow(WindowId id)
{
    if (ScreenView* view = ViewOf(id))
        view->HideStatus();
}

void StatusColours(WindowId id)
{
    if (ScreenView* view = ViewOf(id))
        view->SetColours(PaperColor(id), TextColor(id));
}

int StatusHeight(WindowId /*id*/)
{
    return 0;
}

int StatusLines(WindowId /*id*/)
{
    return -1;
}

int StatusCompose(WindowId /*id*/, QImage& /*target*/, quint32 /*paper*/)
{
    return 0;
}

} // namespace tarvik
