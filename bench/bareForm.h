// bench/bareForm.h: the minimum cost of a form: bare widgets of the same classes with the same geometry.
#pragma once

#include <QDialog>
#include <QLineEdit>

#include <vector>

namespace tarvik {

/// One control of a form.
struct BareControl {
    const QMetaObject* Kind = nullptr; ///< its Qt base class
    QRect Place; ///< geometry in the form
    QString Text; ///< of a line edit, a label or a button
    bool HasFrame = false; ///< a line edit
};

struct BareFormPlan {
    QSize Size;
    std::vector<BareControl> Controls;
};

/// Visible line edits, labels, buttons, check boxes, combo boxes and scroll bars of `form`.
BareFormPlan PlanOf(const QWidget& form);

/// A dialog of such controls, without rules or layout.
class BareForm final : public QDialog {
    Q_OBJECT
public:
    explicit BareForm(const BareFormPlan& plan);

    /// Sets the texts of the line edits to those of another plan of the same form.
    void ShowTexts(const BareFormPlan& plan);

private:
    std::vector<QLineEdit*> edits_;
};

} // namespace tarvik
