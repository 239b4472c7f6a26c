// composition.cpp: the one place that sees every folder.
#include "composition.h"

#include "app/FmAbout.h"
#include "app/FmHelp.h"
#include "app/FmMessage.h"
#include "app/Pictures.h"
#include "app/PlatformSeams.h"
#include "app/dropFiles.h"
#include "app/help.h"
#include "app/helpFile.h"
#include "app/info.h"
#include "app/lang.h"
#include "app/project.h"
#include "link/bindLink.h"
#include "link/connect.h"
#include "link/file.h"
#include "lists/bindEditors.h"
#include "print/allSettings.h"
#include "screen/bindScreen.h"

#include <QApplication>

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
