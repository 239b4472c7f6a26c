// tools/examples/main.cpp: writes every list of examples/ in both file formats, with the program's own writers.
#include "app/message/message.h"
#include "app/state/project.h"
#include "closed/loader.h"
#include "link/classes/model.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/memoryList.h"
#include "lists/values/limits.h"
#include "tools/examples/antennas.h"
#include "tools/examples/bands.h"
#include "tools/examples/plans.h"

#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

#include <cstdio>

namespace tarvik {

namespace {

/// Answers Yes to overwriting; prints any other message to standard error.
class PlainPresenter final : public MessagePresenter {
public:
    void Present(MessageRequest& request) override
    {
        request.Result = request.IsQuestion() ? MsgResult::Yes : MsgResult::Ok;
        if (!request.IsQuestion())
            QTextStream(stderr) << request.HelpNumber << ": " << request.Text << '\n';
    }
};

/// Calls `write` with the paths of both formats of a list.
template <typename Write>
bool WriteBothFormats(FileClass fileClass, const QString& folder, const QString& name, Write write)
{
    SetEditorType(fileClass);
    const QString base = folder + QLatin1Char('/') + name;
    return write(base + ModGetExtension(fileClass)) && write(base + QStringLiteral(".csv"));
}

bool WritePlan(const ChannelPlan& plan, const QString& folder)
{
    MemoryTable empty;
    if (plan.Channels.size() > static_cast<size_t>(kMemoryRows) || !ClearMemoryList(empty))
        return false;
    return WriteBothFormats(FileClassMemoryList, folder, plan.Name, [&](const QString& path) {
        MemoryTable table = TableOfPlan(plan, empty);
        return WriteMemoryList(path, table);
    });
}

bool WriteCorrectionSet(const ExampleAntenna& antenna, const QString& folder)
{
    SetEditorType(FileClassCorrectionSet);
    CorrSet set;
    if (!FillCorrSet(antenna, set))
        return false;
    for (const CorrTableId table : kCorrTables) {
        if (!SortCorrRecords(table, set.Records))
            return false;
    }
    return SetCorrHeader(set)
        && SaveCorrSet(folder + QLatin1Char('/') + antenna.Name + ModGetExtension(FileClassCorrectionSet));
}

/// The linked files share a folder of their own.
bool WriteAntennas(const QString& parent)
{
    const QString folder = parent + QStringLiteral("/antennas");
    if (!QDir().mkpath(folder))
        return false;
    for (const ExampleAntenna& antenna : AllAntennas()) {
        const KfactorTable table = TableOfAntenna(antenna);
        const auto write = [&table](const QString& path) { return WriteKfactorFile(path, table); };
        if (!WriteBothFormats(FileClassKfactorTable, folder, antenna.Name, write)
            || !WriteCorrectionSet(antenna, folder))
            return false;
    }
    const AntennaTable site = SiteOfAntennas();
    return WriteBothFormats(
        FileClassAntennaList, folder, site.Name, [&site](const QString& path) { return WriteAntennaFile(path, site); });
}

bool WriteBands(SuppressTable& table, const QString& folder)
{
    return WriteBothFormats(FileClassSuppressList, folder, table.Name,
        [&table](const QString& path) { return WriteSuppressFile(path, table); });
}

bool WriteAll(const QString& folder)
{
    for (const ChannelPlan& plan : AllPlans()) {
        if (!WritePlan(plan, folder))
            return false;
    }
    for (SuppressTable& bands : AllBandLists()) {
        if (!WriteBands(bands, folder))
            return false;
    }
    return WriteAntennas(folder);
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2) {
        QTextStream(stderr) << "Usage: tarvik_examples FOLDER\n";
        return 2;
    }
    Program().AppPath = QCoreApplication::applicationDirPath() + QDir::separator();
    TheMessagePresenter().Implement<PlainPresenter>();
    for (const Module module : { Module::Language, Module::ListStore, Module::General }) {
        const ModuleLoadResult result = ModuleLoad(module, Program().AppPath);
        if (!result) {
            QTextStream(stderr) << result.Reason << '\n';
            return 1;
        }
    }
    ReadInstrumentLimits();
    return WriteAll(arguments[1]) ? 0 : 1;
}
