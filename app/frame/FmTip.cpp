#include "app/frame/FmTip.h"

#include "app/frame/tip.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QToolTip>

namespace tarvik {

FmTip::FmTip(QWidget* parent)
    : QWidget(parent, Qt::ToolTip | Qt::WindowDoesNotAcceptFocus)
{
    setObjectName(QStringLiteral("FmTip"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    LbTip = new QLabel(this);
    LbTip->setObjectName(QStringLiteral("LbTip"));
    LbTip->setTextFormat(Qt::PlainText);
    LbTip->setAlignment(Qt::AlignCenter);
    LbTip->setFrameShape(QFrame::Box);
    LbTip->setAutoFillBackground(true);
    LbTip->setBackgroundRole(QPalette::ToolTipBase);
    LbTip->setForegroundRole(QPalette::ToolTipText);
}

void FmTip::ShowTip(const QString& text, const QRect& button)
{
    if (isVisible() && LbTip->text() == text)
        return;
    setPalette(QToolTip::palette());
    setFont(QToolTip::font());
    LbTip->setText(text);
    setAccessibleName(text);
    LbTip->setAccessibleName(text);
    const QScreen* where = QGuiApplication::screenAt(button.center());
    const QRect screenArea = where == nullptr ? screen()->geometry() : where->geometry();
    setGeometry(TipRect(button, LbTip->fontMetrics().size(Qt::TextSingleLine, text), screenArea));
    LbTip->setGeometry(rect());
    show();
}

} // namespace tarvik
