// link/connection/FmConnection.h: edits the selected connection, or adds one while none is selected.
#pragma once

#include "app/forms/form.h"

class QLayout;

namespace tarvik {

struct ConnectionFields;

class FmConnection final : public FormBase {
    Q_OBJECT
public:
    explicit FmConnection(QWidget* parent = nullptr);

protected:
    bool OnLoad() override;

private:
    QLayout* BuildFields();
    QLayout* BuildButtons();
    void ShowFields(const ConnectionFields& fields);
    void OnOk();

    QLineEdit* TbConnectionName = nullptr;
    QLineEdit* TbIpAddress = nullptr;
    QLineEdit* TbIpPort = nullptr;
};

} // namespace tarvik
