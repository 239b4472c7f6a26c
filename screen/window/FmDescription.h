// screen/window/FmDescription.h: sets the width of a window's description.
#pragma once

#include "app/forms/form.h"
#include "screen/window/descriptionEdit.h"

#include <optional>

class QBoxLayout;

namespace tarvik {

class ColumnsBox;

/// Previews the width in the window. OK keeps it; closing in any other way restores width and text.
class FmDescription final : public FormBase {
    Q_OBJECT
public:
    explicit FmDescription(WindowId id, QWidget* parent = nullptr);

protected:
    bool OnLoad() override;
    void OnUnload() override;

private:
    void BuildControls();
    void BuildButtons();
    void BuildLayout();
    bool Apply();

    DescriptionChoice choice_;
    bool keeps_ = false;
    QLabel* LbText1 = nullptr;
    QLabel* LbText2 = nullptr;
    QLabel* LbDefault = nullptr;
    ColumnsBox* UpDown = nullptr;
    QPushButton* BtApply = nullptr;
    QPushButton* BtClose = nullptr;
    QPushButton* BtCancel = nullptr;
    QPushButton* BtDefault = nullptr;
    QPushButton* BtHelp = nullptr;
};

} // namespace tarvik
