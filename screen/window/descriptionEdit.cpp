#include "screen/window/descriptionEdit.h"

#include "app/message/message.h"
#include "app/state/project.h"
#include "app/text/textId.h"
#include "screen/document/fit.h"
#include "screen/document/screenStatus.h"
#include "screen/window/screenWindow.h"

#include <QScopedValueRollback>

namespace tarvik {

namespace {

void ShowText(WindowId id)
{
    const QScopedValueRollback storing(TheScreenWindows().StoringDescription, true);
    if (ScreenView* view = ViewOf(id))
        view->SetDescription(WindowAt(id).Description);
}

/// The first ten lines of a text as wrapped in the window.
QString FirstTenLines(const QString& text, WindowId id)
{
    return DescrLaidOut(text.left(kMaxLaidOutCharacters), id).FirstLines(kDescriptionLines);
}

/// Applies the rule that counts characters, not words: the rest can still wrap into more lines, and it can cut text
/// that would have fitted.
QString Fitted(const QString& text, WindowId id)
{
    return FirstTenLines(DescrFit(text, WindowAt(id).DescriptionColumns), id);
}

/// Stores the text in the window and shows it.
void StoreText(WindowId id, const QString& text)
{
    WindowAt(id).Description = DescrStored(text);
    ShowText(id);
}

/// Fits the picture to the area left by the description.
void RefitPicture(WindowId id, ScreenView& view)
{
    const DescriptionLayout layout = DescrLayout(id, view.ClientSize());
    view.LayOutDescription(layout);
    const QSize graph = GraphFor(view.ClientSize(), layout.Visible, layout.LineTop);
    if (graph == view.GraphSize())
        return;
    view.SetGraphSize(graph);
    DrawScreenWindow(id);
}

} // namespace

void DescrSetVisible(bool visible, WindowId id)
{
    ScreenView* view = ViewOf(id);
    if (!WindowInUse(id) || view == nullptr)
        return;
    if (visible && view->State() == WinState::Maximised) {
        WindowAt(id).Description.clear();
        ShowText(id);
    }
    WindowAt(id).DescriptionVisible = visible;
    if (view->State() == WinState::Minimised)
        return;
    DescrResize(id);
    RefitPicture(id, *view); // in a window that can't become higher
    DrawScreenWindow(id);
}

void DescrToggle(WindowId id)
{
    if (WindowInUse(id))
        DescrSetVisible(!WindowAt(id).DescriptionVisible, id);
}

void DescrTextChanged(WindowId id, const QString& text)
{
    if (TheScreenWindows().StoringDescription || !WindowInUse(id))
        return;
    WindowRecord& record = WindowAt(id);
    if (DescrLaidOut(text.left(kMaxLaidOutCharacters), id).LineCount() > kDescriptionLines) {
        ShowText(id);
        return;
    }
    const QString stored = DescrStored(text);
    record.Modified = record.Modified || stored != record.Description;
    record.Description = stored;
    if (stored != DescrNormalised(text))
        ShowText(id); // without the part that was cut
    DescrResize(id);
    if (ScreenView* view = ViewOf(id))
        RefitPicture(id, *view);
}

bool DescrSetText(WindowId id, const QString& text)
{
    if (!WindowInUse(id))
        return false;
    StoreText(id, FirstTenLines(text, id));
    DescrResize(id);
    if (ScreenView* view = ViewOf(id))
        RefitPicture(id, *view);
    return WindowAt(id).Description == DescrNormalised(text);
}

void DescrResize(WindowId id)
{
    ScreenView* view = ViewOf(id);
    if (!WindowInUse(id) || view == nullptr || WindowAt(id).InResize)
        return;
    if (view->State() == WinState::Minimised) {
        ApplySize(id);
        return;
    }
    if (view->State() == WinState::Maximised)
        return;
    const QScopedValueRollback resizing(WindowAt(id).InResize, true);
    const int height = view->GraphSize().height() + DescrHeight(id) + StatusHeight(id);
    view->SetClientSize({ view->ClientSize().width(), height });
}

DescriptionChoice::DescriptionChoice(WindowId id)
    : id_(id)
    , columns_(WindowInUse(id) ? WindowAt(id).DescriptionColumns : qint16(0))
    , text_(WindowInUse(id) ? WindowAt(id).Description : QString())
    , modified_(WindowIsModified(id))
{
}

DescriptionColumns DescriptionChoice::Limits() const
{
    return DescrColumnsOf(WindowTypeOf(id_));
}

int DescriptionChoice::Columns() const
{
    return WindowInUse(id_) ? WindowAt(id_).DescriptionColumns : 0;
}

bool DescriptionChoice::Apply(const QString& typed)
{
    const DescriptionColumns limits = Limits();
    int columns = 0;
    if (!ValidInt(typed, limits, columns)) {
        MsgOkNum2(TextId::NumberOutOfRange, limits.Most, limits.Least);
        return false;
    }
    if (WindowInUse(id_)) {
        WindowAt(id_).DescriptionColumns = static_cast<qint16>(columns);
        Show(Fitted(text_, id_));
    }
    return true;
}

void DescriptionChoice::Cancel()
{
    if (!WindowInUse(id_))
        return;
    WindowAt(id_).DescriptionColumns = columns_;
    Show(text_);
}

/// With the current columns of the window.
void DescriptionChoice::Show(const QString& text)
{
    StoreText(id_, text);
    WindowRecord& record = WindowAt(id_);
    record.Modified = modified_ || record.Description != text_;
    DescrResize(id_);
    ApplySize(id_);
}

} // namespace tarvik
