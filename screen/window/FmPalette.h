// screen/window/FmPalette.h: chooses the palette of the active window, with preview.
#pragma once

#include "app/forms/form.h"
#include "screen/window/palette.h"

#include <array>
#include <optional>

class QRadioButton;

namespace tarvik {

/// Its button keeps the choice; closing in any other way restores the previous palette.
class FmPalette final : public FormBase {
    Q_OBJECT
public:
    explicit FmPalette(QWidget* parent = nullptr);

    bool CanCloseUnasked() const override
    {
        return true;
    }

protected:
    bool OnLoad() override;
    void OnUnload() override;

private:
    void BuildControls();
    void BuildLayout();
    void Choose();

    QGroupBox* FrPalette = nullptr;
    std::array<QRadioButton*, 2> OpPalette{};
    QPushButton* BtClose = nullptr;
    QPushButton* BtCancel = nullptr;
    QPushButton* BtHelp = nullptr;
    std::optional<PaletteChoice> choice_;
    bool keeps_ = false;
};

/// Shows the form for the active window if that is a screen, and gives the window the focus.
void ColorDialog();

} // namespace tarvik
