// composition.cpp: the one place that sees every folder.
#include "composition.h"

#include "allSettings.h"
#include "app/forms/Pictures.h"
#include "app/frame/PlatformSeams.h"
#include "app/help/FmHelp.h"
#include "app/message/FmMessage.h"
#include "link/bindLink.h"
#include "lists/bindEditors.h"
#include "screen/bindScreen.h"

#include <QApplication>

namespace tarvik {

namespace {

/// What lower folders ask of higher ones.
void BindFolders()
{
    BindLink();
    BindScreen();
    BindListEditors();
    BindHelpViewer();
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
