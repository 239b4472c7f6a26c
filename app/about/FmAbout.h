// app/about/FmAbout.h: shows product and version, and opens the list of installed files.
#pragma once

#include "app/forms/form.h"

namespace tarvik {

class FmAbout final : public FormBase {
    Q_OBJECT
public:
    explicit FmAbout(QWidget* parent = nullptr);

    bool CanCloseUnasked() const override
    {
        return true;
    }

protected:
    bool OnLoad() override;

private:
    void BuildLabels();
    void BuildButtons();
    void BuildLayout();

    QLabel* ImProd = nullptr;
    QLabel* LbProd = nullptr;
    QLabel* LbUse1 = nullptr;
    QLabel* LbCopy = nullptr;
    QLabel* LbVers = nullptr;
    QPushButton* BtInfo = nullptr;
    QPushButton* BtHelp = nullptr;
    QPushButton* BtClose = nullptr;
};

} // namespace tarvik
