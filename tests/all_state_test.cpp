// ResetAllState resets every state of the program.
#include "app/forms/dialog.h"
#include "app/frame/KeyboardFilter.h"
#include "app/frame/startup.h"
#include "app/help/FmHelp.h"
#include "app/help/help.h"
#include "app/help/helpFile.h"
#include "app/menu/commands.h"
#include "app/menu/recentFiles.h"
#include "app/message/message.h"
#include "app/platform/interval.h"
#include "app/platform/processState.h"
#include "app/platform/seams.h"
#include "app/settings/ini.h"
#include "app/settings/settings.h"
#include "app/state/dialogStack.h"
#include "app/state/progressBar.h"
#include "app/state/project.h"
#include "closed/loader.h"
#include "link/classes/model.h"
#include "link/connection/connect.h"
#include "link/documents/fileConvert.h"
#include "link/files/fileList.h"
#include "link/transfer/transferState.h"
#include "lists/editor/editorGeneral.h"
#include "lists/kfactor/kfactorTable.h"
#include "lists/memory/memoryEntry.h"
#include "lists/values/limits.h"
#include "print/page/pageTable.h"
#include "print/page/printCommand.h"
#include "print/page/printSettings.h"
#include "print/printer/jobWatch.h"
#include "print/printer/printers.h"
#include "screen/diagram/diagram.h"
#include "screen/document/description.h"
#include "screen/document/screenTable.h"
#include "screen/document/view.h"
#include "screen/window/screenWindow.h"
#include "tests/layers/sourceText.h"
#include "tests/support/fakeDialog.h"
#include "tests/support/fixture.h"

#include <QCoreApplication>
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace tarvik {

namespace {

/// How to change a state, and to check that it has its start value.
struct StateCase {
    const char* Function; ///< that returns the state
    void (*Change)();
    bool (*IsAtStart)();
};

/// In a folder that outlives the state of a case.
QString TemporaryFile(const QString& name)
{
    static const QTemporaryDir folder;
    return folder.filePath(name);
}

void PressArrow()
{
    KeyboardFilter filter;
    filter.Install();
    QObject target;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &press);
    filter.Remove();
}

/// Its timer never expires.
void BeginWait()
{
    TheSeams().StartTimer = [](int, const std::function<void()>&) {};
    TheSeams().PumpUntil = [](const std::function<bool()>&) {};
    IntervalWait(1);
}

bool WaitStartsItsTimer()
{
    bool started = false;
    TheSeams().StartTimer = [&started](int, const std::function<void()>& tick) {
        started = true;
        tick();
    };
    TheSeams().PumpUntil = [](const std::function<bool()>&) {};
    IntervalWait(1);
    return started;
}

bool groupIsRead = false;

void SetGroup()
{
    SettingsSetGroups({ { [](const QString&) { groupIsRead = true; }, [](const QString&) {} } });
}

bool connectCommandRan = false;

void BindConnectCommand()
{
    static constexpr std::array kBindings{ CommandBinding{ Command::Connect, [] { connectCommandRan = true; } } };
    CommandsBind(kBindings);
}

bool ConnectCommandDoesNothing()
{
    connectCommandRan = false;
    CommandRun(Command::Connect);
    return !connectCommandRan;
}

bool HasNoGroup()
{
    groupIsRead = false;
    IniRead();
    return !groupIsRead;
}

void BeginIniSession()
{
    static std::unique_ptr<IniSession> session;
    session = std::make_unique<IniSession>(TemporaryFile("a.ini"));
}

bool SettingIsWrittenAtOnce()
{
    IniWriteString(TemporaryFile("a.ini"), "Section", "Key", "x");
    return QFile::remove(TemporaryFile("a.ini"));
}

bool messageIsShown = false;

class RecordingPresenter final : public MessagePresenter {
public:
    void Present(MessageRequest&) override
    {
        messageIsShown = true;
    }
};

void SetPresenter()
{
    TheMessagePresenter().Implement<RecordingPresenter>();
}

bool HasNoPresenter()
{
    messageIsShown = false;
    MsgRaw(MsgStyle(MsgButtons::Ok, MsgIcon::Exclamation), "text", 0);
    return !messageIsShown;
}

void OpenBook()
{
    QFile::copy(HELP_BOOK, TemporaryFile("book.chm"));
    Program().HelpFilePath = TemporaryFile("book.chm");
    EXPECT_NE(TheHelpFile(), nullptr);
    QFile::remove(TemporaryFile("book.chm"));
}

bool HasNoBook()
{
    Program().HelpFilePath = TemporaryFile("book.chm");
    return TheHelpFile() == nullptr;
}

void OpenHelpViewer()
{
    Program().HelpFilePath = QStringLiteral(HELP_BOOK);
    BindHelpViewer();
    HelpCommand(11971);
}

void PushDialog()
{
    static FakeDialog dialog;
    DialogStackPush(dialog);
}

bool HasStartSeams()
{
    return TheSeams().SaveFile({}).isEmpty();
}

void MakeDiagram()
{
    MultiTraceInput input;
    input.PointCount = 1;
    input.SeriesCount = 1;
    DatasetTable()[1] = DiagramOf(input);
}

bool HasNoTraceBlock()
{
    uint32_t size = 0;
    return TraceBlockOf(1, &size) == nullptr;
}

void TakeTraceBlock()
{
    Trace trace{};
    EXPECT_TRUE(TraceFill(trace, { 1, 2 }));
}

const std::vector<StateCase>& Cases()
{
    static const std::vector<StateCase> cases{
        { "Program", [] { Program().Idle = false; }, [] { return Program().Idle; } },
        { "TheSeams", [] { TheSeams().SaveFile = [](const SaveFileQuestion&) { return QString("x"); }; },
            HasStartSeams },
        { "TimerRuns", BeginWait, WaitStartsItsTimer },
        { "ArrowHeld", PressArrow, [] { return !KeyboardFilter::ArrowKeyIsHeld(); } },
        { "Groups", SetGroup, HasNoGroup },
        { "FunctionOf", BindConnectCommand, ConnectCommandDoesNothing },
        { "Files", [] { RecentFileAdd(QStringLiteral("/a.png")); }, [] { return RecentFiles().isEmpty(); } },
        { "Session", BeginIniSession, SettingIsWrittenAtOnce },
        { "TheMessagePresenter", SetPresenter, HasNoPresenter },
        { "TheMessage", [] { TheMessage().YesAll = true; }, [] { return !TheMessage().YesAll; } },
        { "Progress", [] { Progress().Active = true; }, [] { return !Progress().Active; } },
        { "Stack", PushDialog, [] { return !DialogIsOpen(); } },
        { "TheCommonDialog", [] { TheCommonDialog().HelpCommand = 1; },
            [] { return TheCommonDialog().HelpCommand == 0; } },
        { "TheHelpFile", OpenBook, HasNoBook },
        { "TheViewer", OpenHelpViewer, [] { return HelpViewer() == nullptr; } },
        { "FileClasses", [] { ModFileInit(FileClassMemoryList); },
            [] { return FileClasses().CurrentFileClass == FileClassNone; } },
        { "CurrentPcFolder", [] { CurrentPcFolder() = QStringLiteral("/a"); },
            [] { return CurrentPcFolder().isEmpty(); } },
        { "Connection", [] { Connection().ConnectInProgress = true; }, [] { return !Connection().ConnectInProgress; } },
        { "Transfer", [] { Transfer().TransferCancel = true; }, [] { return !Transfer().TransferCancel; } },
        { "FileConvert", [] { FileConvert().Sources.append("a"); }, [] { return FileConvert().Sources.isEmpty(); } },
        { "WindowTable", [] { WindowAllocate(WindowType::Screen, WindowSubtype::Live); },
            [] { return WindowCount() == 0; } },
        { "TheColorDefaults", [] { TheColorDefaults().Marker = 1; },
            [] { return TheColorDefaults().Marker == 0xFFFFFF; } },
        { "ScreenTable", [] { ScreenTable()[1].Master = QImage(1, 1, QImage::Format_RGB32); },
            [] { return ScreenTable()[1].Master.isNull(); } },
        { "DatasetTable", MakeDiagram, [] { return DatasetTable()[1] == nullptr; } },
        { "TraceBlocks", TakeTraceBlock, HasNoTraceBlock },
        { "TheViews", [] { ViewLoad(1); }, [] { return ViewOf(1) == nullptr; } },
        { "TheDescriptionDefaults", [] { TheDescriptionDefaults().ViewDescr = 1; },
            [] { return TheDescriptionDefaults().ViewDescr == 0; } },
        { "TheScreenWindows", [] { TheScreenWindows().ClosingAll = true; },
            [] { return !TheScreenWindows().ClosingAll; } },
        { "Limits", ReadInstrumentLimits, [] { return Limits().FrequencyHz.Max == 0; } },
        { "Editor", [] { Editor().EditorDirty = true; }, [] { return !Editor().EditorDirty; } },
        { "Kfactors", [] { Kfactors().Count = 1; }, [] { return Kfactors().Count == 0; } },
        { "MemoryEntry", [] { MemoryEntry().Frequency = 1; }, [] { return MemoryEntry().Frequency == 0; } },
        { "ThePages", [] { ThePages().Present = 3; }, [] { return ThePages().Present == 0; } },
        { "ThePrinter", [] { ThePrinter().Copies = 2; }, [] { return ThePrinter().Copies == 1; } },
        { "TheJobWatch", [] { TheJobWatch().TimerRuns = true; }, [] { return !TheJobWatch().TimerRuns; } },
        { "ThePrintCommand", [] { ThePrintCommand().PdfFolder = QStringLiteral("x"); },
            [] { return ThePrintCommand().PdfFolder.isEmpty(); } },
        { "ThePrintSettings", [] { ThePrintSettings().Border = false; }, [] { return ThePrintSettings().Border; } },
    };
    return cases;
}

class AllState : public testing::TestWithParam<StateCase> {
protected:
    AllState()
    {
        ResetAllState();
        BindModules();
    }
    ~AllState() override
    {
        ResetAllState();
        ModulesReset();
    }
};

std::string NameOf(const testing::TestParamInfo<StateCase>& info)
{
    return info.param.Function;
}

/// Variables that are no state, with the reason.
const std::map<std::string, const char*>& Exceptions()
{
    static const std::map<std::string, const char*> exceptions{
        { "app/platform/closeSignal.cpp pipe", "the system's signals reach the program through it as long as it runs" },
        { "app/platform/processState.cpp registry", "the list of all states" },
        { "app/platform/port.h implementation", "holds no data, as its class is checked to" },
        { "link/files/fileList.cpp view", "the view of lists without a form; holds no data" },
        { "print/bindPrint.cpp printers", "the queues of the system and the file printer; holds no data" },
        { "print/printer/cupsQueues.cpp queues", "the queues of the system; holds no data" },
        { "print/printer/printers.cpp system", "the system without printers; holds no data" },
        { "app/frame/MfMain.cpp current", "set by the frame's constructor, cleared by its destructor" },
    };
    return exceptions;
}

bool IsRegistered(const StaticVariable& variable)
{
    return variable.Type.find("ProcessState<") != std::string::npos
        || variable.Type.find("PortOr<") != std::string::npos;
}

std::vector<std::filesystem::path> ProductSources()
{
    std::vector<std::filesystem::path> sources;
    const auto add = [&sources](const std::filesystem::path& path) {
        if (path.extension() == ".cpp" || path.extension() == ".h")
            sources.push_back(path);
    };
    const std::filesystem::path root(STATE_SOURCE_TREE);
    for (const char* floor : { "app", "link", "screen", "lists", "print" }) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root / floor))
            add(entry.path());
    }
    for (const auto& entry : std::filesystem::directory_iterator(root))
        add(entry.path());
    return sources;
}

/// By file and name. Reads the tree once.
std::map<std::string, StaticVariable> ReadStaticVariables()
{
    std::map<std::string, StaticVariable> found;
    for (const std::filesystem::path& source : ProductSources()) {
        std::ifstream in(source);
        const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        for (const StaticVariable& variable : StaticVariablesOf(text))
            found.emplace(
                source.lexically_relative(STATE_SOURCE_TREE).generic_string() + ' ' + variable.Name, variable);
    }
    return found;
}

const std::map<std::string, StaticVariable>& StaticVariables()
{
    static const std::map<std::string, StaticVariable> found = ReadStaticVariables();
    return found;
}

} // namespace

TEST_P(AllState, HasItsStartValueAfterAReset)
{
    const StateCase& state = GetParam();
    ASSERT_TRUE(state.IsAtStart());
    state.Change();
    ASSERT_FALSE(state.IsAtStart());
    ResetAllState();
    EXPECT_TRUE(state.IsAtStart());
}

INSTANTIATE_TEST_SUITE_P(Every, AllState, testing::ValuesIn(Cases()), NameOf);

TEST(StateOfTheSources, RegistersItself)
{
    const auto& found = StaticVariables();
    ASSERT_GT(found.size(), 20U);
    for (const auto& [place, variable] : found) {
        EXPECT_TRUE(IsRegistered(variable) || Exceptions().contains(place))
            << place << " in line " << variable.Line << " is neither a ProcessState or PortOr nor a named exception";
    }
    for (const auto& [place, reason] : Exceptions())
        EXPECT_TRUE(found.contains(place)) << place << " is no longer there";
}

/// Ports have no value; the tests of Port cover their reset.
TEST(StateOfTheSources, HasACaseEach)
{
    std::set<std::string> proved;
    for (const StateCase& state : Cases())
        proved.insert(state.Function);
    for (const auto& [place, variable] : StaticVariables()) {
        const bool isState = variable.Type.find("ProcessState<") != std::string::npos;
        if (isState) {
            EXPECT_TRUE(proved.contains(variable.Function)) << place << ": " << variable.Function << " has no case";
        }
    }
}

} // namespace tarvik
