// link/control/FolderComboBox.h: the combo box of a FolderCombo: items with icons, indented by their level.
#pragma once

#include "link/files/combo.h"

#include <QComboBox>

namespace tarvik {

class FolderComboBox final : public QComboBox {
    Q_OBJECT
public:
    FolderComboBox(const QString& name, QWidget* parent);

    void ShowItems(const FolderCombo& combo);

    /// Path of the selected item.
    QString Path() const;

    void showPopup() override;

Q_SIGNALS:
    void AboutToDropDown(); ///< the items may still change

protected:
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace tarvik
