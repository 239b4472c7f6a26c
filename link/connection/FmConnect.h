// link/connection/FmConnect.h: the list of connections: connect, disconnect, add, edit and remove.
#pragma once

#include "app/forms/form.h"

#include <optional>
#include <vector>

class QLayout;
class QTabBar;
class QTreeWidget;

namespace tarvik {

enum class ConnectTab;
struct ConnectControls;
struct ConnectRow;

class FmConnect final : public FormBase {
    Q_OBJECT
public:
    explicit FmConnect(QWidget* parent = nullptr);

    /// May still be open from the start of the program.
    bool CanCloseUnasked() const override;

protected:
    bool OnLoad() override;
    bool QueryUnload() override;

private:
    void BuildTabs();
    void BuildList();
    void BuildFrame();
    QLayout* BuildButtons();
    void WatchButtons();

    void ShowTab();
    [[nodiscard]] ConnectTab CurrentTab() const;
    void Refresh();
    void ApplyControls(const ConnectControls& controls);
    void ShowRows(const std::vector<ConnectRow>& rows);

    /// The selected row as an entry; nullopt in an empty list.
    [[nodiscard]] std::optional<QString> SelectedEntry() const;
    void OnConnect();
    void OnDisconnect();
    void OnAdd();
    void OnEdit();
    void OnRemove();

    QTabBar* TcConnect = nullptr;
    QWidget* FrIpConfig = nullptr;
    QTreeWidget* LvIpAddress = nullptr;
    QPushButton* BtCon = nullptr;
    QPushButton* BtDisc = nullptr;
    QPushButton* BtAdd = nullptr;
    QPushButton* BtEdit = nullptr;
    QPushButton* BtRemove = nullptr;
    QPushButton* BtCancel = nullptr;
    QPushButton* BtHelp = nullptr;
};

} // namespace tarvik
