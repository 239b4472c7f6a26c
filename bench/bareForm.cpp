#include "bench/bareForm.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

namespace tarvik {

namespace {

/// nullptr for a widget that is not a control, or only part of one.
const QMetaObject* KindOf(const QWidget& widget)
{
    for (const QMetaObject* kind = widget.metaObject(); kind != nullptr; kind = kind->superClass()) {
        for (const QMetaObject* known :
            { &QLineEdit::staticMetaObject, &QLabel::staticMetaObject, &QPushButton::staticMetaObject,
                &QCheckBox::staticMetaObject, &QComboBox::staticMetaObject, &QScrollBar::staticMetaObject }) {
            if (kind == known)
                return known;
        }
    }
    return nullptr;
}

QWidget* NewControl(const BareControl& control, QWidget* parent)
{
    if (control.Kind == &QLineEdit::staticMetaObject)
        return new QLineEdit(control.Text, parent);
    if (control.Kind == &QLabel::staticMetaObject)
        return new QLabel(control.Text, parent);
    if (control.Kind == &QPushButton::staticMetaObject)
        return new QPushButton(control.Text, parent);
    if (control.Kind == &QCheckBox::staticMetaObject)
        return new QCheckBox(control.Text, parent);
    if (control.Kind == &QComboBox::staticMetaObject)
        return new QComboBox(parent);
    return new QScrollBar(control.Place.width() < control.Place.height() ? Qt::Vertical : Qt::Horizontal, parent);
}

} // namespace

BareFormPlan PlanOf(const QWidget& form)
{
    BareFormPlan plan{ form.size(), {} };
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        if (const QMetaObject* kind = KindOf(*widget); kind != nullptr && widget->isVisible())
            plan.Controls.push_back({ kind, QRect(widget->mapTo(&form, QPoint()), widget->size()),
                widget->property("text").toString(), widget->property("frame").toBool() });
    }
    return plan;
}

BareForm::BareForm(const BareFormPlan& plan)
{
    resize(plan.Size);
    for (const BareControl& control : plan.Controls) {
        QWidget* widget = NewControl(control, this);
        widget->setGeometry(control.Place);
        if (auto* edit = qobject_cast<QLineEdit*>(widget); edit != nullptr) {
            edit->setFrame(control.HasFrame);
            edits_.push_back(edit);
        }
    }
}

void BareForm::ShowTexts(const BareFormPlan& plan)
{
    auto edit = edits_.begin();
    for (const BareControl& control : plan.Controls) {
        if (control.Kind == &QLineEdit::staticMetaObject && edit != edits_.end())
            (*edit++)->setText(control.Text);
    }
}

} // namespace tarvik
