// link/connection/FmConnecting.h: runs the connect procedure and shows its progress.
#pragma once

#include "app/forms/form.h"

namespace tarvik {

class FmConnecting final : public FormBase {
    Q_OBJECT
public:
    explicit FmConnecting(QWidget* parent = nullptr);

protected:
    bool OnLoad() override;
    bool QueryUnload() override;
    void OnActivate() override;

private:
    void BuildControls();
    void BuildLayout();
    void OnCancel();

    QLabel* ImConnecting = nullptr;
    QPlainTextEdit* TbStatus = nullptr;
    QLabel* LbDebug = nullptr;
    QPushButton* BtCancel = nullptr;
    bool cancelled_ = false;
    bool canClose_ = false;
};

} // namespace tarvik
