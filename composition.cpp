// composition.cpp: the one place that sees every folder.
#include "composition.h"

#include "allSettings.h"
#include "app/about/FmAbout.h"
#include "app/about/info.h"
#include "app/forms/Pictures.h"
#include "app/frame/PlatformSeams.h"
#include "app/frame/dropFiles.h"
#include "app/help/FmHelp.h"
#include "app/help/help.h"
#include "app/help/helpFile.h"
#include "app/message/FmMessage.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "link/bindLink.h"
#include "link/connection/connect.h"
#include "link/documents/file.h"
#include "lists/bindEditors.h"
#include "screen/bindScreen.h"

#include <QApplication>

namespace tarvik {

namespace {

void ShowAbout()
{
    FmAbout about(QApplication::activeWindow());
    DialogShow(about);
}

/// What lower folders ask of higher ones.
void BindFolders()
{
    TheLangHooks().InstrumentAccepted = [] { return Connection().InstrumentAccepted == 1; };
    TheProjectHooks().FileOpen = [](const QString& path) { return FileOpen(path, true, true); };
    BindLink();
    BindScreen();
    BindListEditors();
    BindHelpViewer();
    TheHelpHooks().ShowAbout = ShowAbout;
    TheInfoHooks().HelpBookVersion = ReadHelpVersion;
    TheDropHooks().IsKnownFile = FileCanBeDropped;
    SettingsSetGroups(AllSettingsGroups());
}

} // namespace

void ComposeProgram()
{
    QApplication::setWindowIcon(ProgramIcon());
    BindPlatformSeams();
    BindMessageForm();
    BindFolders();
}

} // namespace tarvik
