// screen/window/FmSelectWindow.h: chooses among the open windows.
#pragma once

#include "app/forms/form.h"
#include "screen/document/window.h"

class QListWidget;

namespace tarvik {

/// Offers windows by their captions; `marked` is selected at first. `Chosen` holds the accepted ones in list order;
/// empty after Cancel.
class FmSelectWindow final : public FormBase {
    Q_OBJECT
public:
    FmSelectWindow(const QVector<WindowId>& offered, WindowId marked, QWidget* parent = nullptr);

    const QVector<WindowId>& Chosen() const
    {
        return chosen_;
    }

protected:
    bool OnLoad() override;

private:
    void BuildControls();
    void BuildLayout();
    void FillList();
    void OnOk();

    QVector<WindowId> offered_;
    WindowId marked_;
    QVector<WindowId> chosen_;
    QListWidget* LxWin = nullptr;
    QPushButton* BtAll = nullptr;
    QPushButton* BtClear = nullptr;
    QPushButton* BtOk = nullptr;
    QPushButton* BtCancel = nullptr;
    QPushButton* BtHelp = nullptr;
};

} // namespace tarvik
