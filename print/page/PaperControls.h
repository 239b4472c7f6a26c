// print/page/PaperControls.h: the controls of page setup and printer setup for paper, source and orientation.
#pragma once

#include "print/printer/printers.h"

#include <QGridLayout>
#include <QWidget>

#include <array>
#include <functional>

class QComboBox;
class QGroupBox;
class QLabel;
class QRadioButton;

namespace tarvik {

class PaperControls {
public:
    /// Creates `CbPaper`, `CbBin` and `FrOrientation` with `OpOrientation[0]` and `[1]` in a form.
    explicit PaperControls(QWidget* form);

    /// Puts the labelled combos into rows of a grid.
    void PlaceCombos(QGridLayout& grid, int row);

    QGroupBox* Orientation() const
    {
        return FrOrientation;
    }

    /// Offers what a printer has, and selects a choice; its default for what it does not have.
    void Fill(const PrinterAbilities& abilities, const PrinterChoice& choice);

    /// Calls `changed` when the user has changed one of them.
    void OnChange(const std::function<void()>& changed);

    void Read(PrinterChoice& choice) const;

private:
    QWidget* form_;
    QComboBox* CbPaper = nullptr;
    QComboBox* CbBin = nullptr;
    QGroupBox* FrOrientation = nullptr;
    std::array<QRadioButton*, 2> OpOrientation{};
};

/// Adds a labelled control as a row of a grid.
void AddRow(QGridLayout& grid, int row, QLabel* label, QWidget* control);

} // namespace tarvik
