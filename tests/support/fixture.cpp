#include "tests/support/fixture.h"

#include "app/dialog.h"
#include "app/frameHooks.h"
#include "app/info.h"
#include "app/progressBar.h"
#include "app/project.h"
#include "app/seams.h"
#include "app/settings.h"
#include "closed/loader.h"
#include "link/connect.h"
#include "link/controlGeneral.h"
#include "link/drives.h"
#include "link/file.h"
#include "link/fileConvert.h"
#include "link/fileDialogs.h"
#include "link/fileList.h"
#include "link/fileSave.h"
#include "link/model.h"
#include "link/transfer.h"
#include "print/printSettings.h"
#include "screen/color.h"
#include "screen/description.h"
#include "screen/screenWindow.h"

#include <QFile>

#include <ostream>

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

void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
