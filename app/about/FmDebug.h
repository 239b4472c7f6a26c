// app/about/FmDebug.h: what a diagnostic build shows when a check fails. Nothing shows it in the delivered program.
#pragma once

#include "app/forms/form.h"

namespace tarvik {

class FmDebug final : public FormBase {
    Q_OBJECT
public:
    /// `function` is the name of the routine whose check failed.
    explicit FmDebug(const QString& function, QWidget* parent = nullptr);

protected:
    bool OnLoad() override;

private:
    QLabel* LbText1 = nullptr;
};

} // namespace tarvik
