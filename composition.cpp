// composition.cpp: the one place that includes every floor.
#include "composition.h"

#include "allSettings.h"
#include "app/forms/Pictures.h"
#include "app/frame/PlatformSeams.h"
#include "app/help/FmHelp.h"
#include "app/message/FmMessage.h"
#include "link/bindLink.h"
#include "lists/bindEditors.h"
#include "print/bindPrint.h"
#include "screen/bindScreen.h"

#include <QApplication>

namespace tarvik {

namespace {

/// Sets the ports of all floors, and the groups of settings.
void BindFloors()
{
    BindLink();
    BindScreen();
    BindListEditors();
    BindPrint();
    BindHelpViewer();
    SettingsSetGroups(AllSettingsGroups());
}

} // namespace

void ComposeProgram()
{
    QApplication::setWindowIcon(ProgramIcon());
    BindPlatformSeams();
    BindMessageForm();
    BindFloors();
}

} // namespace tarvik
