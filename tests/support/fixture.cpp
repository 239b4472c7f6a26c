#include "tests/support/fixture.h"

#include "app/about/info.h"
#include "app/forms/dialog.h"
#include "app/platform/seams.h"
#include "app/settings/settings.h"
#include "app/state/frameHooks.h"
#include "app/state/progressBar.h"
#include "app/state/project.h"
#include "closed/loader.h"
#include "link/classes/model.h"
#include "link/connection/connect.h"
#include "link/control/controlGeneral.h"
#include "link/documents/file.h"
#include "link/documents/fileConvert.h"
#include "link/documents/fileDialogs.h"
#include "link/documents/fileSave.h"
#include "link/files/drives.h"
#include "link/files/fileList.h"
#include "link/transfer/transfer.h"
#include "print/printer/printSettings.h"
#include "screen/document/color.h"
#include "screen/document/description.h"
#include "screen/window/screenWindow.h"

#include <QFile>

#include <ostream>

void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace tarvik {

namespace {

template <typename Api>
void Bind(Module module, Api& table, int16_t (*bind)(Api*))
{
    table = {};
    table.Size = sizeof(Api);
    ASSERT_EQ(bind(&table), 0);
    ModuleMarkBound(module);
}

/// Every record that outlives a form.
void ResetModules()
{
    InfoReset();
    ProgressReset();
    SettingsReset();
    FileClassesReset();
    CurrentPcFolder().clear();
    TransferReset();
    FileOpenersReset();
    FileDocumentHooksReset();
    FileDialogHooksReset();
    FileConvertReset();
    ConnectionReset();
    ControlReset();
    DrivesReset();
    ColorReset();
    DescrReset();
    ScreenWindowsReset();
    PrintSettingsReset();
}

} // namespace

void BindModules()
{
    Bind(Module::General, TvGen(), TvGenBind);
    Bind(Module::Language, TvLng(), TvLngBind);
    Bind(Module::Channel, TvScpi(), TvScpiBind);
    Bind(Module::ListStore, TvFio(), TvFioBind);
    Bind(Module::Traces, TvSwp(), TvSwpBind);
    Bind(Module::Pictures, TvImg(), TvImgBind);
}

ProgramTest::ProgramTest()
{
    SeamsReset();
    SetRegion(QLocale(QLocale::English, QLocale::UnitedStates));
    FrameHooksReset();
    DialogReset();
    ProgramReset();
    ResetModules();
    TheMessage() = {};
    BindModules();
    Program().AppPath = Folder();
}

ProgramTest::~ProgramTest()
{
    DialogReset();
    ModulesReset();
}

void ProgramTest::SetRegion(const QLocale& region)
{
    TheSeams().Region = [region] { return region; };
}

void ProgramTest::TearDown()
{
    answers_.Verify();
}

QString ProgramTest::Folder() const
{
    return folder_.path() + QLatin1Char('/');
}

QByteArray ProgramTest::Contents(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void ProgramTest::Store(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(bytes), bytes.size());
}

} // namespace tarvik
