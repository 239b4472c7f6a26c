// link/connection/connectDialog.h: the rules of the connection forms: what they show and enable, and storing an edited
// connection.
#pragma once

#include "app/text/textNumber.h"
#include "link/connection/connect.h"

#include <vector>

namespace tarvik {

/// The tabs, numbered from the left.
enum class ConnectTab { Usb = 0, Lan = 1 };

/// The first tab shown: USB, unless a LAN entry is or was connected.
ConnectTab conStartTab();

/// Which controls of the dialog are enabled.
struct ConnectControls {
    bool CanConnect = false; ///< also select, edit and remove a connection
    bool CanDisconnect = false;
    bool CanAdd = false;
    bool HasEditButtons = false; ///< add, edit, remove; not for the fixed USB entry
    TextNumber<0> Title;
};

/// `rowsShown` is the number of rows of the list as last shown.
ConnectControls conControls(ConnectTab tab, int rowsShown);

struct ConnectRow {
    ConnectionFields Fields;
    QString Icon; ///< key of the frame's image list
    bool Connected = false;
    bool Selected = false;
};

/// The valid entries of a tab. `Selected` is set for the selected entry, else for the first one.
std::vector<ConnectRow> conRows(ConnectTab tab);

/// Stores the typed fields in the selected entry, or as a new one while none is selected. False after a message: 10451
/// if another connection has the name, 10435 if the entry can't be stored.
[[nodiscard]] bool conEntryAccept(const ConnectionFields& fields);

enum class ConnectField { Name, Address, Port };

/// The first invalid field, after `conEntryAccept` has refused.
ConnectField conFieldAtFault(const ConnectionFields& fields);

} // namespace tarvik
