// link/connection/connectDialog.h: what the list of connections shows and allows, and what becomes of an edited
// connection.
#pragma once

#include "app/text/textNumber.h"
#include "link/connection/connect.h"

#include <vector>

namespace tarvik {

enum ConnectTab { ConnectTabUsb = 0, ConnectTabLan = 1 };

/// The tab that the dialog opens with: USB, unless a LAN entry is or was connected.
int conStartTab();

/// What of the dialog can be used.
struct ConnectControls {
    bool CanConnect = false; ///< and choose, edit or remove a connection
    bool CanDisconnect = false;
    bool CanAdd = false;
    bool HasEditButtons = false; ///< adding, editing, removing: not for the USB entry, which is fixed
    TextNumber<0> Title;
};

/// `rowsShown` is the number of rows of the list as last shown.
ConnectControls conControls(int tab, int rowsShown);

struct ConnectRow {
    ConnectionFields Fields;
    QString Icon; ///< key of the frame's image list
    bool Connected = false;
    bool Selected = false;
};

/// The valid entries of a tab. The one that was chosen last is selected, or else the first one, so that there is
/// something to connect to.
std::vector<ConnectRow> conRows(int tab);

/// Stores what was typed as the selected entry, or as a new one while none is selected. False after a message:
/// 10451 for a name of another connection, 10435 for what can't be stored.
[[nodiscard]] bool conEntryAccept(const ConnectionFields& fields);

enum class ConnectField { Name, Address, Port };

/// The field to look at after `conEntryAccept` has refused: the first one that can't stay as it is.
ConnectField conFieldAtFault(const ConnectionFields& fields);

} // namespace tarvik
