// lists/antenna/AntennaPanel.h: the properties of the selected antenna.
#pragma once

#include "app/text/textNumber.h"
#include "lists/antenna/antennaFields.h"

#include <QWidget>

class QComboBox;
class QGridLayout;
class QLineEdit;
class QPushButton;

namespace tarvik {

class AntennaPanel final : public QWidget {
    Q_OBJECT
public:
    explicit AntennaPanel(QWidget* parent);

    /// Shows a row, whose bits are put right if they are out of range.
    void ShowRow(AntennaRow& row);

    QLineEdit* BoxOf(AntennaField field) const;

    /// Sets the text of a box as the program does: without `Edited`.
    void SetText(AntennaField field, const QString& text);

    QPushButton* BtSelectKfactor = nullptr;
    QPushButton* BtNewKfactor = nullptr;
    QPushButton* BtSelectCorrectionSet = nullptr;
    QPushButton* BtNewCorrectionSet = nullptr;

Q_SIGNALS:
    void Edited(AntennaField field);
    void BitsEdited(AntennaBits bits, int pattern);

private:
    void BuildBoxes(QGridLayout& layout);
    void BuildLinks(QGridLayout& layout);
    void AlignBoxes();
    QLineEdit* AddBox(QGridLayout& layout, const char* labelName, TextNumber<0> label, AntennaField field,
        const char* name, int length);
    QComboBox* AddBits(
        QGridLayout& layout, const char* labelName, TextNumber<0> label, const char* name, AntennaBits bits);
    void AddUnit(QGridLayout& layout, const char* name, TextNumber<0> unit);

    std::array<QLineEdit*, 8> boxes_{};
    QComboBox* CbPassiveBits = nullptr;
    QComboBox* CbActiveBits = nullptr;
    bool filling_ = false;
};

} // namespace tarvik
