#include "tests/support/fixture.h"

#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/state/project.h"
#include "closed/loader.h"

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

ProgramTest::StartValues::StartValues()
{
    ResetAllState();
}

ProgramTest::StartValues::~StartValues()
{
    ResetAllState();
    ModulesReset();
}

ProgramTest::ProgramTest()
{
    SetRegion(QLocale(QLocale::English, QLocale::UnitedStates));
    BindModules();
    Program().AppPath = Folder();
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
