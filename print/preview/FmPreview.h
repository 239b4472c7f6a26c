// print/preview/FmPreview.h: the print preview: one sheet at a time, whose windows can be moved, sized, added and
// removed.
#pragma once

#include "app/forms/form.h"
#include "print/page/pageTable.h"
#include "print/preview/sheetEdit.h"

#include <array>

class QScrollBar;
class QVBoxLayout;

namespace tarvik {

class SheetView;

/// Close and Print keep the layout; Cancel, Escape and the close button of the window don't.
class FmPreview final : public FormBase {
    Q_OBJECT
public:
    explicit FmPreview(QWidget* parent = nullptr);

protected:
    bool OnLoad() override;
    void OnUnload() override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildSheet();
    void BuildChoices();
    void BuildPosition();
    void BuildButtons();
    void BuildLayout();
    QVBoxLayout* BuildSide();
    void ConnectControls();
    void RestoreSize();
    void StoreSize() const;

    void LayOutSheet();
    void DrawPage();
    void ShowPages();
    void ShowState();
    void ShowPosition();

    void OnPerPage(const QString& text);
    void OnAdd();
    void OnRemove();
    void OnArrange();
    void OnPrint();
    void OnSetup();
    void OnPage(int number);
    void OnTitle(bool on);
    void OnOutline(bool on);
    void OnBlackAndWhite(bool on);

    bool OnKey(Qt::KeyboardModifiers modifiers, int key);
    bool OnArrow(Qt::KeyboardModifiers modifiers, int key);
    bool TextBoxTakes(int key) const;

    QWidget* area_ = nullptr; ///< around the sheet
    SheetView* PbPreview = nullptr;
    QScrollBar* VsNrPages = nullptr;
    QLabel* LbPage = nullptr;
    QLabel* LbNrOfWindows = nullptr;
    QLineEdit* TbNrOfWindows = nullptr;
    QCheckBox* ChOutline = nullptr;
    QCheckBox* ChTitle = nullptr;
    QCheckBox* ChBw = nullptr;
    QPushButton* BtAdd = nullptr;
    QPushButton* BtDel = nullptr;
    QPushButton* BtDflt = nullptr;
    QPushButton* BtPrint = nullptr;
    QPushButton* BtSetup = nullptr;
    QPushButton* BtClose = nullptr;
    QPushButton* BtCancel = nullptr;
    QPushButton* BtHelp = nullptr;
    QPushButton* BtWhatsThis = nullptr;
    QGroupBox* FrPos = nullptr;
    std::array<QLabel*, 4> LbPos{};
    std::array<QLabel*, 4> LbPosVal{};

    int perPage_ = 1;
    bool keeps_ = false;
    bool titleBefore_ = false;
    bool outlineBefore_ = false;
};

/// The print preview command: message 12708 or 12709 without a printer.
void ShowPreview();

} // namespace tarvik
