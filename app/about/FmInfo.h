// app/about/FmInfo.h: the version of every file that the program depends on.
#pragma once

#include "app/forms/form.h"

namespace tarvik {

class FmInfo final : public FormBase {
    Q_OBJECT
public:
    explicit FmInfo(QWidget* parent = nullptr);

    bool CanCloseUnasked() const override
    {
        return true;
    }

protected:
    bool OnLoad() override;

private:
    void BuildControls();
    void BuildLayout();
    void FillInfo();

    QLabel* LbFileName = nullptr;
    QLabel* LbFileVer = nullptr;
    QLabel* LbProdVer = nullptr;
    QPlainTextEdit* TbInfo = nullptr;
    QPushButton* BtHelp = nullptr;
    QPushButton* BtClose = nullptr;
};

} // namespace tarvik
