#include "link/bindLink.h"

#include "app/frame/commands.h"
#include "app/help/help.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "link/classes/model.h"
#include "link/connection/FmConnect.h"
#include "link/connection/FmConnecting.h"
#include "link/connection/connect.h"
#include "link/control/FmControlGeneral.h"
#include "link/documents/FmFileConvert.h"
#include "link/documents/fileDialogs.h"
#include "link/documents/fileSave.h"

#include <QApplication>

namespace tarvik {

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

void OpenFileControl(int fileClass)
{
    BeginBusy();
    ModFileInit(fileClass);
    ShowLinkForm<FmControlGeneral>();
    EndBusy();
}

/// One command for each class that has files on the instrument.
void BindFileControl()
{
    CommandHooks& commands = TheCommandHooks();
    commands[Command::Control1] = [] { OpenFileControl(FileClassAntennaList); };
    commands[Command::Control2] = [] { OpenFileControl(FileClassKfactorTable); };
    commands[Command::Control3] = [] { OpenFileControl(FileClassMemoryList); };
    commands[Command::Control4] = [] { OpenFileControl(FileClassSuppressList); };
    commands[Command::Control5] = [] { OpenFileControl(FileClassScreenShot); };
    commands[Command::Control6] = [] { OpenFileControl(FileClassCorrectionSet); };
}

bool ShowConvertForm()
{
    FmFileConvert form(QApplication::activeWindow());
    DialogShow(form);
    return form.IsAccepted();
}

void BindFiles()
{
    CommandHooks& commands = TheCommandHooks();
    commands[Command::FileOpen] = [] { FileOpenDlg(false); };
    commands[Command::FileConvert] = [] { FileOpenDlg(true); };
    commands[Command::FileSaveAs] = [] { FileSaveAsDlg(TheFileDocumentHooks().ActiveWindow()); };
    TheFileDialogHooks().ShowConvertForm = ShowConvertForm;
}

} // namespace

void BindLink()
{
    BindConnections();
    BindFiles();
    BindFileControl();
}

} // namespace tarvik
