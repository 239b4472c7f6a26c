// tools/examples/main.cpp: writes every list of examples/ in both file formats, with the program's own writers.
#include "app/message/message.h"
#include "app/state/project.h"
#include "closed/loader.h"
#include "link/classes/model.h"
#include "lists/editor/editorGeneral.h"
#include "lists/memory/memoryList.h"
#include "lists/values/limits.h"
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

bool WritePlan(const ChannelPlan& plan, const QString& folder)
{
    MemoryTable empty;
    if (plan.Channels.size() > static_cast<size_t>(kMemoryRows) || !ClearMemoryList(empty))
        return false;
    for (const QString& extension : { ModGetExtension(FileClassMemoryList), QStringLiteral(".csv") }) {
        MemoryTable table = TableOfPlan(plan, empty);
        if (!WriteMemoryList(folder + QLatin1Char('/') + plan.Name + extension, table))
            return false;
    }
    return true;
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
    SetEditorType(FileClassMemoryList);
    for (const ChannelPlan& plan : AllPlans()) {
        if (!WritePlan(plan, arguments[1]))
            return 1;
    }
    return 0;
}
