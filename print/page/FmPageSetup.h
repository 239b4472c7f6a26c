// print/page/FmPageSetup.h: paper, orientation and margins.
#pragma once

#include "app/forms/form.h"
#include "print/page/PaperControls.h"
#include "print/page/pageSetup.h"

#include <array>

class QDoubleSpinBox;

namespace tarvik {

/// OK takes the settings over, with those of the printer setup if it was opened from here.
class FmPageSetup final : public FormBase {
    Q_OBJECT
public:
    explicit FmPageSetup(QWidget* parent = nullptr);

protected:
    bool OnLoad() override;

private:
    void BuildMargins();
    void BuildButtons();
    void BuildLayout();
    void ShowSetup();
    void LimitMargins();
    PageSetup SetupAsShown() const;
    void OnOk();
    void OnPrinter();

    PaperControls paper_;
    PageSetup setup_;
    QLabel* LbPrinter = nullptr;
    QGroupBox* FrMargins = nullptr;
    std::array<QDoubleSpinBox*, kEdges> TbMargin{};
    QPushButton* BtOk = nullptr;
    QPushButton* BtCancel = nullptr;
    QPushButton* BtPrinter = nullptr;
    QPushButton* BtHelp = nullptr;
};

/// The page setup command.
void ShowPageSetup();

} // namespace tarvik
