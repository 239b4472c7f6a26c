// link/documents/FmFileConvert.h: asks for folder and type of a conversion.
#pragma once

#include "app/forms/form.h"

class QLayout;

namespace tarvik {

class FmFileConvert final : public FormBase {
    Q_OBJECT
public:
    explicit FmFileConvert(QWidget* parent = nullptr);

    /// True if the form was closed with OK.
    bool IsAccepted() const
    {
        return accepted_;
    }

protected:
    bool OnLoad() override;

private:
    QLayout* BuildFields();
    QLayout* BuildButtons();
    void Browse();
    void ShowFolder(const QString& folder);
    void Accept();

    QComboBox* CbType = nullptr;
    QLineEdit* TbDir = nullptr;
    QPushButton* BtBrowse = nullptr;
    QCheckBox* CkBlackAndWhite = nullptr;
    bool accepted_ = false;
};

} // namespace tarvik
