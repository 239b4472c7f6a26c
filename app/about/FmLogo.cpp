#include "app/about/FmLogo.h"

#include "app/platform/seams.h"
#include "app/state/project.h"

#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

namespace tarvik {

namespace {

constexpr int kLogoMs = 5000;
constexpr int kStatusOver = 0;

} // namespace

FmLogo::FmLogo(const QPixmap& picture, QWidget* parent)
    : FormBase("FmLogo", parent)
{
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
    setWindowTitle(Program().ProgramTitle);
    setAccessibleName(Program().ProgramTitle);
    auto* image = new QLabel(this);
    NameControl(image, QStringLiteral("ImLogo"));
    image->setAccessibleName(Program().ProgramTitle);
    image->setPixmap(picture);
    auto* form = new QVBoxLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->addWidget(image);
    form->setSizeConstraint(QLayout::SetFixedSize);
}

bool FmLogo::OnLoad()
{
    DialogPush(*this, true);
    TheSeams().StartTimer(kLogoMs, [form = QPointer<FmLogo>(this)] {
        if (form && form->IsLoaded())
            DialogEnd(*form, kStatusOver);
    });
    return true;
}

} // namespace tarvik
