#include "link/bindLink.h"

#include "app/commands.h"
#include "app/help.h"
#include "app/project.h"
#include "link/FmConnect.h"
#include "link/FmConnecting.h"
#include "link/connect.h"

#include <QApplication>

namespace {

template <typename Form>
void ShowLinkForm()
{
    Form form(QApplication::activeWindow());
    DialogShow(form);
}

void BindConnections()
{
    TheConnectHooks() = { ShowLinkForm<FmConnect>, ShowLinkForm<FmConnecting> };
    TheCommandHooks()[Command::Connect] = conShowDialog;
    TheProjectHooks().AutoConnect = conStart;
    TheHelpHooks().IsRefused = [] { return Connection().ConnectInProgress; };
}

} // namespace

void BindLink()
{
    BindConnections();
}
