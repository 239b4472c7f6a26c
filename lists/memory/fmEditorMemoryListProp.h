// lists/memory/fmEditorMemoryListProp.h: the dialog for all fields of one memory entry.
#pragma once

#include "app/forms/form.h"
#include "app/text/textNumber.h"
#include "lists/memory/memoryEntry.h"
#include "lists/values/translate.h"

class QGridLayout;

namespace tarvik {

/// Edits `MemoryEntry`. Shows and collects; the rules are in memoryEntry.h.
class fmEditorMemoryListProp final : public FormBase {
    Q_OBJECT
public:
    explicit fmEditorMemoryListProp(QWidget* parent = nullptr);

protected:
    bool OnLoad() override;
    void OnUnload() override;

private:
    QWidget* BuildReceiver();
    QWidget* BuildDirectionFinder();
    QWidget* BuildEntry();
    QWidget* BuildButtons();
    QLineEdit* AddText(QGridLayout* layout, const char* label, TextNumber<0> text, const char* name, int length,
        const char* unit = nullptr, TextNumber<0> unitText = {});
    QComboBox* AddCombo(
        QGridLayout* layout, const char* label, TextNumber<0> text, const char* name, const CodeTable& codes);
    void WatchChanges();
    void CheckLeaving(QLineEdit* textBox, MemoryEntryField field);

    MemoryEntryFields Fields() const;
    void ShowTexts(const MemoryEntryFields& fields);
    void ShowFields(const MemoryEntryFields& fields);
    QWidget* ControlOf(MemoryEntryField field) const;

    void OnOk();
    void OnDelete();

    bool dirtyBefore_ = false;
    bool accepted_ = false; // closed by OK or Delete
    QLineEdit* TbFrequency = nullptr;
    QComboBox* CbModulation = nullptr;
    QComboBox* CbBandwidth = nullptr;
    QLineEdit* TbSquelchVal = nullptr;
    QComboBox* CbSquelchStat = nullptr;
    QLineEdit* TbAttennaNumber = nullptr;
    QComboBox* CbAttnStatus = nullptr;
    QComboBox* CbAFCStatus = nullptr;
    QLineEdit* TbDescription = nullptr;
    QComboBox* CbStatus = nullptr;
    QComboBox* CbDFSquelchStat = nullptr;
    QLineEdit* TbDFSquelchVal = nullptr;
    QLineEdit* TbDFMeasurementTime = nullptr;
    QComboBox* CbFrequencySpan = nullptr;
    QComboBox* CbDFStep = nullptr;
    QComboBox* CbDFBw = nullptr;
};

} // namespace tarvik
