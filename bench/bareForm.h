// bench/bareForm.h: what a form costs at least: bare widgets of the same kinds in the same places.
#pragma once

#include <QDialog>
#include <QLineEdit>

#include <vector>

namespace tarvik {

/// One control of a form.
struct BareControl {
    const QMetaObject* Kind = nullptr; ///< the class of Qt that it is or descends from
    QRect Place; ///< in the form
    QString Text; ///< of a line edit, a label or a button
    bool HasFrame = false; ///< a line edit
};

struct BareFormPlan {
    QSize Size;
    std::vector<BareControl> Controls;
};

/// Visible line edits, labels, buttons, check boxes, combo boxes and scroll bars of `form`.
BareFormPlan PlanOf(const QWidget& form);

/// A dialog of such controls, with no rule and no layout.
class BareForm final : public QDialog {
    Q_OBJECT
public:
    explicit BareForm(const BareFormPlan& plan);

    /// Gives the line edits, in the order of the plan they were made from, the texts of another plan of the same form.
    void ShowTexts(const BareFormPlan& plan);

private:
    std::vector<QLineEdit*> edits_;
};

} // namespace tarvik
