// link/control/FmControlGeneral.h: the file control window: files of one class on the PC and on the instrument.
#pragma once

#include "app/forms/form.h"
#include "app/text/textNumber.h"
#include "link/control/controlGeneral.h"

#include <QPointer>

#include <array>
#include <functional>

class QBoxLayout;

namespace tarvik {

class FileListWidget;
class FolderComboBox;

/// Shows two lists and passes every command to controlCommands.h.
class FmControlGeneral final : public FormBase, private ControlView {
    Q_OBJECT
public:
    explicit FmControlGeneral(QWidget* parent = nullptr);

    void PrepareWindow(bool removeClose) override;

    /// A job, or a name that is being typed, keeps it open.
    bool CanCloseUnasked() const override;

protected:
    bool OnLoad() override;
    void OnActivate() override;
    bool QueryUnload() override;
    void OnUnload() override;

private:
    void EnableBusySet(bool on) override;
    void EnableTransfers(bool upload, bool download) override;
    void ShowBusyPointer(bool busy) override;
    void ShowCombo(ControlSide side) override;
    void RunTransfer() override;
    void Close() override;

    /// The controls of one side.
    struct Pane {
        ControlSide Side = ControlSide::Pc;
        QGroupBox* Frame = nullptr;
        FolderComboBox* Combo = nullptr;
        QPushButton* DirUp = nullptr;
        QPushButton* DirOpen = nullptr;
        QPushButton* DirNew = nullptr;
        FileListWidget* List = nullptr;
        QPushButton* Sel = nullptr;
        QPushButton* Del = nullptr;
        QPushButton* Ref = nullptr;
        QPushButton* Ren = nullptr;
    };

    void BuildPane(Pane& pane, const QString& side);
    void BuildFolderRow(Pane& pane, const QString& side, QBoxLayout& layout);
    void BuildCommandRow(Pane& pane, const QString& side, QBoxLayout& layout);
    void BuildEditButtons(QBoxLayout& row);
    QPushButton* NewFolderButton(
        QWidget* parent, const QString& name, TextNumber<0> text, TextNumber<0> hint, const char* icon);
    QBoxLayout* BuildTransferColumn();
    QBoxLayout* BuildFormRow();
    void BuildLayout();

    void ConnectPane(Pane& pane);
    void ConnectList(Pane& pane);
    void ConnectForm();

    /// Runs a command after ending the edit of a name, which would change the rows under it.
    void Run(const std::function<void()>& command);
    void FinishLabelEdits();

    void ApplyClass();
    void ApplyClassTexts();
    std::vector<QPushButton*> BusyButtons() const;
    Pane& PaneOf(ControlSide side);

    FileControl control_{ *this };
    Pane pc_;
    Pane instr_;
    std::array<QPushButton*, kEditButtons> BtPcEdit{};
    QPushButton* BtUl = nullptr;
    QPushButton* BtDl = nullptr;
    QPushButton* BtNew = nullptr;
    QPushButton* BtClose = nullptr;
    QPushButton* BtHlp = nullptr;
    QPushButton* BtWhatsThis = nullptr;
    QLabel* LbFree = nullptr;
    QPointer<QWidget> focusBefore_; ///< had the focus when the buttons were disabled
};

} // namespace tarvik
