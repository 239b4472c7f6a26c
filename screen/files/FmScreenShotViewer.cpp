#include "screen/files/FmScreenShotViewer.h"

#include "app/forms/formLayout.h"
#include "app/help/help.h"
#include "app/text/textId.h"
#include "screen/bitmap/stretch.h"
#include "screen/files/document.h"
#include "screen/files/pictureFile.h"
#include "screen/window/PictureBox.h"

#include <QApplication>
#include <QBoxLayout>
#include <QFileInfo>
#include <QPushButton>
#include <QScreen>

namespace tarvik {

namespace {

constexpr QSize kMinStageSizePx(320, 200);
constexpr double kMaxShareOfScreen = 0.8;

} // namespace

FmScreenShotViewer::FmScreenShotViewer(const QImage& picture, const QString& name, QWidget* parent)
    : FormBase("FmScreenShotViewer", parent)
    , picture_(picture)
{
    setWindowTitle(name);
    SetHelpNumber(TextId::ScreenShotCaptions);
    BuildControls();
    BuildLayout();
    PbGraph->setAccessibleName(name);
}

void FmScreenShotViewer::BuildControls()
{
    stage_ = new QWidget(this);
    NameControl(stage_, QStringLiteral("Stage"));
    stage_->setMinimumSize(kMinStageSizePx);
    PbGraph = new PictureBox(stage_, "PbGraph", [this](QSize devicePixels) { return Stretch(picture_, devicePixels); });
    BtClose = NewButton(this, "BtClose", { TextId::ControlClose, TextId::ControlClose, TextId::ControlCloseHint });
    BtHelp = NewButton(this, "BtHelp", { TextId::ControlHelp, TextId::ControlHelp, TextId::ControlHelpHint });
    BtClose->setDefault(true);
    connect(BtClose, &QPushButton::clicked, this, [this] { Unload(); });
    connect(BtHelp, &QPushButton::clicked, this, [this] { ShowHelp(HelpNumber()); });
}

void FmScreenShotViewer::BuildLayout()
{
    QHBoxLayout* buttons = NewButtonRow({ BtClose, BtHelp });
    QVBoxLayout* form = NewFormColumn(this);
    form->addWidget(stage_, 1);
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(buttons);
}

bool FmScreenShotViewer::OnLoad()
{
    DialogPush(*this, false);
    const QSize maxSize = screen()->availableSize() * kMaxShareOfScreen;
    const QSize margins = size() - stage_->size();
    resize(FittedSize(maxSize - margins).expandedTo(kMinStageSizePx) + margins);
    move(screen()->availableGeometry().center() - rect().center());
    BtClose->setFocus();
    return true;
}

void FmScreenShotViewer::resizeEvent(QResizeEvent* event)
{
    FormBase::resizeEvent(event);
    layout()->activate();
    PlacePicture();
}

QSize FmScreenShotViewer::FittedSize(QSize available) const
{
    const QSize fitted = picture_.size().scaled(available, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return picture_.size().boundedTo(fitted);
}

void FmScreenShotViewer::PlacePicture()
{
    QRect geometry(QPoint(), FittedSize(stage_->size()));
    geometry.moveCenter(stage_->rect().center());
    PbGraph->setGeometry(geometry);
}

void ShowScreenShot(const QString& path)
{
    const QImage picture = ImgRead(path, ImageKind::Png); // the only kind of screen shots
    if (picture.isNull())
        return;
    FmScreenShotViewer form(picture, QFileInfo(path).fileName(), QApplication::activeWindow());
    DialogShow(form);
}

} // namespace tarvik
