// lists/correction/FmEditorCorrectionSet.h: the correction set editor.
#pragma once

#include "lists/correction/CorrTabPage.h"
#include "lists/correction/correctionSet.h"
#include "lists/editor/FmEditorFrame.h"

class QGridLayout;
class QTabWidget;

namespace tarvik {

/// Edits one correction set: its header, and its three tables on tabs.
class FmEditorCorrectionSet final : public FmEditorFrame {
    Q_OBJECT
public:
    explicit FmEditorCorrectionSet(QWidget* parent = nullptr);

    /// Turns a page of the current tab if the pointer, at this place on the screen, is over its frame.
    void MouseWheel(int keys, int delta, int x, int y);

protected:
    void ShowEmptyList() override;
    bool ReadFile(const QString& path) override;
    bool WriteFile(const QString& path) override;
    bool Validate() override;
    bool MayLeaveHead() override;
    QString ListName() const override;
    void FocusStart(bool isNew) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QWidget* BuildHead();
    QLineEdit* AddBox(QGridLayout& layout, int row, int column, const char* labelName, TextNumber<0> label,
        const char* name, int length);
    QWidget* BuildTabs();
    void ConnectHead();

    CorrTabPage& Page(CorrTableId table);
    QLineEdit* BoxOf(CorrBox box) const;
    CorrHeaderTexts Texts() const;
    void ShowTexts(const CorrHeaderTexts& texts);
    bool CheckBox(CorrBox box);
    bool ValidateCorrHeader();
    bool SortTab(CorrTabPage& page);
    void ViewCorrTab(CorrTabPage& page);
    void ShowSet();
    void OnTab();

    CorrSet set_;
    std::array<CorrTabPage*, kCorrTables.size()> pages_{};
    QTabWidget* CsTab = nullptr;
    QLineEdit* TbFileName = nullptr;
    QLineEdit* TbAntName = nullptr;
    QLineEdit* TbManufacturerName = nullptr;
    QLineEdit* TbAntCode = nullptr;
    QLineEdit* TbStartFreq = nullptr;
    QLineEdit* TbStopFreq = nullptr;
    int shownTab_ = 0;
    int wheelDelta_ = 0; // remainder of less than a notch
};

} // namespace tarvik
