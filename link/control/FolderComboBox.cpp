#include "link/control/FolderComboBox.h"

#include "app/forms/Pictures.h"
#include "app/forms/form.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QWheelEvent>

namespace tarvik {

namespace {

constexpr int kLevelRole = Qt::UserRole;
constexpr int kPathRole = Qt::UserRole + 1;
constexpr int kLevelPx = 16;
constexpr int kUsualCharacters = 18;
constexpr int kVisibleItems = 20;

int IndentationPx(const QModelIndex& index)
{
    return index.data(kLevelRole).toInt() * kLevelPx;
}

class LevelDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The highlight covers the whole width; only icon and text are indented.
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem background(option);
        background.text.clear();
        option.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &background, painter, option.widget);
        QStyleOptionViewItem shifted(option);
        shifted.rect.setLeft(option.rect.left() + IndentationPx(index));
        QStyledItemDelegate::paint(painter, shifted, index);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(IndentationPx(index), 0);
    }
};

} // namespace

FolderComboBox::FolderComboBox(const QString& name, QWidget* parent)
    : QComboBox(parent)
{
    NameControl(this, name);
    setFocusPolicy(Qt::StrongFocus); // not by the wheel
    setItemDelegate(new LevelDelegate(this));
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kUsualCharacters);
    setMaxVisibleItems(kVisibleItems);
    view()->setTextElideMode(Qt::ElideMiddle);
}

void FolderComboBox::ShowItems(const FolderCombo& combo)
{
    const QSignalBlocker quiet(this);
    clear();
    for (const FolderItem& item : combo.Items) {
        addItem(item.Icon.isEmpty() ? QIcon() : PictureIcon(item.Icon), item.Text);
        setItemData(count() - 1, item.Indentation, kLevelRole);
        setItemData(count() - 1, item.Path, kPathRole);
        setItemData(count() - 1, PlainTip(item.Path), Qt::ToolTipRole);
    }
    setCurrentIndex(combo.Selected);
    setToolTip(currentData(Qt::ToolTipRole).toString());
}

QString FolderComboBox::Path() const
{
    return currentData(kPathRole).toString();
}

void FolderComboBox::showPopup()
{
    Q_EMIT AboutToDropDown();
    QComboBox::showPopup();
}

/// Scrolling over the box must not change the folder.
void FolderComboBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace tarvik
