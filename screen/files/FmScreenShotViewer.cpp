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

constexpr QSize kLeastRoom(320, 200);
constexpr double kMostOfScreen = 0.8;

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
    stage_->setMinimumSize(kLeastRoom);
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
    const QSize room = screen()->availableSize() * kMostOfScreen;
    const QSize around = size() - stage_->size();
    const QSize shown = SizeIn(room - around);
    resize(shown.expandedTo(kLeastRoom) + around);
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

/// Of the picture in a room. A line stays one, however thin.
QSize FmScreenShotViewer::SizeIn(QSize room) const
{
    const QSize fitted = picture_.size().scaled(room, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    return picture_.size().boundedTo(fitted);
}

/// In the middle.
void FmScreenShotViewer::PlacePicture()
{
    QRect place(QPoint(), SizeIn(stage_->size()));
    place.moveCenter(stage_->rect().center());
    PbGraph->setGeometry(place);
}

void ShowScreenShot(const QString& path)
{
    const QImage picture = ImgRead(path, ImageKind::Png); // screen shots have no other form
    if (picture.isNull())
        return;
    FmScreenShotViewer form(picture, QFileInfo(path).fileName(), QApplication::activeWindow());
    DialogShow(form);
}

} // namespace tarvik
