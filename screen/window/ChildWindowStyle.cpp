#include "screen/window/ChildWindowStyle.h"

#include "app/forms/darkColor.h"

#include <QMdiArea>
#include <QProxyStyle>
#include <QStyleOptionTitleBar>

namespace tarvik {

namespace {

constexpr int kBarPercent = 130; ///< lightness of the bar relative to the window background

class TitleBarStyle final : public QProxyStyle {
public:
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
        const QWidget* widget) const override
    {
        const auto* bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
        if (control == CC_TitleBar && bar != nullptr && IsIllegible(*bar))
            DrawLegible(*bar, painter, widget);
        else
            QProxyStyle::drawComplexControl(control, option, painter, widget);
    }

private:
    bool IsIllegible(const QStyleOptionTitleBar& bar) const
    {
        return (bar.titleBarState & State_Active) == 0 && baseStyle()->name() == QLatin1String("fusion")
            && IsDark(bar.palette.color(QPalette::Window));
    }

    /// Draws the bar like an active one, with white buttons, but in its own colour.
    void DrawLegible(const QStyleOptionTitleBar& bar, QPainter* painter, const QWidget* widget) const
    {
        QStyleOptionTitleBar legible(bar);
        legible.titleBarState |= static_cast<int>(State_Active);
        legible.palette.setColor(QPalette::Highlight, bar.palette.color(QPalette::Window).lighter(kBarPercent));
        QProxyStyle::drawComplexControl(CC_TitleBar, &legible, painter, widget);
    }
};

} // namespace

QStyle* ChildWindowStyle(QMdiArea& area)
{
    static const QString kName = QStringLiteral("ChildWindowStyle");
    auto* style = area.findChild<QStyle*>(kName, Qt::FindDirectChildrenOnly);
    if (style == nullptr) {
        style = new TitleBarStyle;
        style->setObjectName(kName);
        style->setParent(&area);
    }
    return style;
}

} // namespace tarvik
