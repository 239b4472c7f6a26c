// print/page/FmPrintSetup.h: printer, paper, copies and other choices for the next jobs.
#pragma once

#include "app/forms/form.h"
#include "print/page/PaperControls.h"
#include "print/printer/printers.h"

#include <memory>

class QGridLayout;
class QSpinBox;

namespace tarvik {

/// Changes a choice; a choice that a printer doesn't have is disabled.
class FmPrintSetup final : public FormBase {
    Q_OBJECT
public:
    explicit FmPrintSetup(const PrinterChoice& choice, QWidget* parent = nullptr);

    /// That of OK, else the one it was opened with.
    const PrinterChoice& Choice() const
    {
        return choice_;
    }

protected:
    bool OnLoad() override;

private:
    void BuildControls();
    void BuildButtons();
    void BuildLayout();
    void FillPrinters();
    void ShowChoice();
    PrinterChoice ChoiceAsShown() const;
    void OnOk();

    PrinterChoice choice_;
    PrinterChoice shown_; ///< what the present printer doesn't have included, for another one
    std::unique_ptr<PaperControls> paper_;
    QComboBox* CbPrinter = nullptr;
    QSpinBox* TbCopies = nullptr;
    QComboBox* CbSides = nullptr;
    QComboBox* CbQuality = nullptr;
    QCheckBox* ChColour = nullptr;
    QPushButton* BtOk = nullptr;
    QPushButton* BtCancel = nullptr;
    QPushButton* BtHelp = nullptr;
};

/// The printer setup command.
void ShowPrintSetup();

} // namespace tarvik
