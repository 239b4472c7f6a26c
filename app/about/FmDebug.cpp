#include "app/about/FmDebug.h"

#include "app/forms/formLayout.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <cstdlib>

namespace tarvik {

namespace {

/// Only developers see this form, so its texts are not in the table of texts.
QPushButton* NewDebugButton(QWidget* parent, const char* name, const QString& text)
{
    QPushButton* button = NewButton(parent, name, {});
    button->setText(text);
    button->setAccessibleName(PlainCaption(text));
    return button;
}

} // namespace

FmDebug::FmDebug(const QString& function, QWidget* parent)
    : FormBase("FmDebug", parent)
{
    LbText1 = NewLabel(this, "LbText1", {});
    LbText1->setTextFormat(Qt::PlainText);
    LbText1->setText(QStringLiteral("Function: ") + function);
    LbText1->setAccessibleName(LbText1->text());
    QPushButton* abort = NewDebugButton(this, "BtAbort", QStringLiteral("&Abort"));
    QPushButton* retry = NewDebugButton(this, "BtRetry", QStringLiteral("&Retry"));
    QPushButton* ignore = NewDebugButton(this, "BtIgnore", QStringLiteral("&Ignore"));
    connect(abort, &QPushButton::clicked, this, [] { std::_Exit(EXIT_FAILURE); });
    connect(retry, &QPushButton::clicked, this, [this] { DialogEnd(*this, 0); });
    connect(ignore, &QPushButton::clicked, this, [this] { Unload(); });

    QHBoxLayout* row = NewButtonRow({ abort, retry, ignore });
    QVBoxLayout* form = NewFormColumn(this);
    form->addWidget(LbText1);
    form->addSpacing(kFormMarginPx / 2);
    form->addLayout(row);
}

bool FmDebug::OnLoad()
{
    DialogPush(*this, false);
    return true;
}

} // namespace tarvik
