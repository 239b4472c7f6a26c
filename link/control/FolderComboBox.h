// link/control/FolderComboBox.h: a box of folders on the screen: pictures, and items that stand in by their level.
#pragma once

#include "link/files/combo.h"

#include <QComboBox>

namespace tarvik {

class FolderComboBox final : public QComboBox {
    Q_OBJECT
public:
    FolderComboBox(const QString& name, QWidget* parent);

    void ShowItems(const FolderCombo& combo);

    /// Of the selected item.
    QString Path() const;

    void showPopup() override;

Q_SIGNALS:
    void AboutToDropDown(); ///< the items may still change

protected:
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace tarvik
