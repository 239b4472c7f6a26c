#include "app/frame/FrameStatusBar.h"

#include "app/forms/Pictures.h"
#include "app/forms/form.h"
#include "app/frame/ProgressPicture.h"
#include "app/platform/instrumentLink.h"
#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace tarvik {

namespace {

constexpr int kPictureTwips = 270;
constexpr std::array<int, kStatusPanels> kPanelTwips{ 0, 1800, 1800, 1500 }; ///< the first one takes the rest

constexpr std::array<TextNumber<0>, kStatusPanels> kPanelHints{ TextId::StatusBarProgramHint,
    TextId::StatusBarProgressHint, TextId::StatusBarInstrumentHint, TextId::StatusBarCommandHint };

constexpr int kProgressPanel = 2;
constexpr int kInstrumentPanel = 3;

/// Elides a long text instead of widening the frame; the tip has the whole text.
class StatusPanel final : public QLabel {
public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override
    {
        return { 1, QLabel::minimumSizeHint().height() };
    }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ToolTip)
            setToolTip(fontMetrics().horizontalAdvance(text()) > width() ? PlainTip(text()) : QString());
        return QLabel::event(event);
    }

    void paintEvent(QPaintEvent* event) override
    {
        Q_UNUSED(event);
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        style()->drawItemText(
            &painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown, foregroundRole());
    }
};

void SetStatusControl(QWidget* control, TextNumber<0> hint, int help)
{
    SetControlHelp(control, help);
    SetControlHint(control, hint);
    control->setAccessibleName(LngStr(hint));
}

} // namespace

FrameStatusBar::FrameStatusBar(QWidget* frame)
    : QStatusBar(frame)
{
    setObjectName(QStringLiteral("PbStatusBar"));
    setSizeGripEnabled(true);
    panels_ = new QWidget(this);
    panels_->setObjectName(QStringLiteral("StatusBar"));
    auto* row = new QHBoxLayout(panels_);
    row->setContentsMargins(4, 0, 4, 0);
    row->setSpacing(8);
    for (int panel = 1; panel <= kStatusPanels; ++panel)
        row->addWidget(NewPanel(panel), panel == 1 ? 1 : 0);
    addWidget(panels_, 1);

    progress_ = new ProgressPicture(this);
    auto* inPanel = new QHBoxLayout(Panels[kProgressPanel - 1]);
    inPanel->setContentsMargins(0, 0, 0, 0);
    inPanel->addWidget(progress_);
    ImConnect = NewConnectionPicture("ImConnect", QStringLiteral("connected"));
    ImNoConnect = NewConnectionPicture("ImNoConnect", QStringLiteral("notconnected"));
    ShowConnectionPictures();
    ShowLinkState(false);
}

QLabel* FrameStatusBar::NewPanel(int panel)
{
    auto* label = new StatusPanel(panels_);
    NameControl(label, QStringLiteral("Panel[%1]").arg(panel));
    label->setTextFormat(Qt::PlainText);
    if (panel == 1)
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    else
        label->setFixedWidth(PixelsFromTwips(this, kPanelTwips[static_cast<size_t>(panel - 1)]));
    Panels[static_cast<size_t>(panel - 1)] = label;
    return label;
}

QLabel* FrameStatusBar::NewConnectionPicture(const char* name, const QString& picture)
{
    auto* label = new QLabel(this);
    NameControl(label, QString::fromLatin1(name));
    label->setProperty("Picture", picture);
    addPermanentWidget(label);
    return label;
}

/// Redrawn when the palette changes, since their lines have its text colour.
void FrameStatusBar::ShowConnectionPictures()
{
    for (QLabel* label : { ImConnect, ImNoConnect }) {
        const QIcon icon = PictureIcon(label->property("Picture").toString());
        const int side = PixelsFromTwips(this, kPictureTwips);
        label->setPixmap(icon.pixmap(QSize(side, side), devicePixelRatioF()));
    }
}

void FrameStatusBar::changeEvent(QEvent* event)
{
    QStatusBar::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && ImNoConnect != nullptr)
        ShowConnectionPictures();
}

void FrameStatusBar::SetTexts()
{
    setAccessibleName(PlainCaption(LngStr(TextId::MenuViewStatusBar)));
    panels_->setAccessibleName(accessibleName());
    SetControlHelp(this, HelpId::StatusBar);
    SetControlHelp(panels_, HelpId::StatusBarPanels);
    for (size_t at = 0; at < Panels.size(); ++at) {
        SetControlHint(Panels[at], kPanelHints[at]);
        Panels[at]->setAccessibleName(LngStr(kPanelHints[at]));
    }
    SetStatusControl(progress_, TextId::StatusBarProgressHint, HelpId::StatusBarProgress);
    SetStatusControl(ImConnect, TextId::StatusBarConnectedHint, HelpId::StatusBarConnected);
    SetStatusControl(ImNoConnect, TextId::StatusBarNotConnectedHint, HelpId::StatusBarNotConnected);
    ImNoConnect->setToolTip(PlainTip(LngStr(TextId::StatusBarNotConnectedHint)));
}

void FrameStatusBar::SetPanelText(int panel, const QString& text)
{
    if (panel >= 1 && panel <= kStatusPanels)
        Panels[static_cast<size_t>(panel - 1)]->setText(text);
}

QString FrameStatusBar::PanelText(int panel) const
{
    return panel >= 1 && panel <= kStatusPanels ? Panels[static_cast<size_t>(panel - 1)]->text() : QString();
}

void FrameStatusBar::ShowLinkState(bool linkUp)
{
    ImConnect->setVisible(linkUp);
    ImNoConnect->setVisible(!linkUp);
    const QString name = TheInstrumentLink()->Name();
    const QString connection = LngStr2(TextId::StatusBarConnectedTo, name, TheInstrumentLink()->Address());
    ImConnect->setToolTip(PlainTip(connection));
    ImConnect->setAccessibleName(connection);
    SetPanelText(kInstrumentPanel, linkUp ? name : QString());
}

void FrameStatusBar::EnablePanels(bool enabled)
{
    panels_->setEnabled(enabled);
}

} // namespace tarvik
