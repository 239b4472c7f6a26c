// tools/tarvikctl/main.cpp: lists, pictures and the instrument on the command line, without a window.
#include "app/frame/startup.h"
#include "app/state/project.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "closed/loader.h"
#include "link/classes/model.h"
#include "lists/editor/editorGeneral.h"
#include "tools/tarvikctl/arguments.h"
#include "tools/tarvikctl/link.h"
#include "tools/tarvikctl/lists.h"
#include "tools/tarvikctl/pictures.h"
#include "tools/tarvikctl/plot.h"
#include "tools/tarvikctl/print.h"
#include "tools/tarvikctl/terminal.h"

#include <QDir>
#include <QGuiApplication>

#include <memory>
#include <optional>
#include <vector>

namespace tarvik {

namespace {

enum class ExitStatus { Done = 0, Refused = 1, Usage = 2 };

bool LoadModules(CtlCommand command, Terminal& terminal)
{
    std::vector<Module> modules{ Module::Language, Module::ListStore, Module::General };
    if (CtlIsLinkCommand(command))
        modules.push_back(Module::Channel);
    if (CtlDrawsPictures(command))
        modules.push_back(Module::Pictures);
    if (command == CtlCommand::Plot || command == CtlCommand::Print)
        modules.push_back(Module::Traces);
    Program().AppPath = QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) + QDir::separator();
    for (const Module module : modules) {
        const ModuleLoadResult result = ModuleLoad(module, Program().AppPath);
        if (result)
            continue;
        terminal.Refuse(ModuleMissingText(module).replace(u'\r', u' ') + u' ' + result.Reason);
        return false;
    }
    return true;
}

/// One line for each number, with the text's own places %1 and %2; line ends and tabs inside a text are written as \n
/// and \t.
void PrintTexts(const QStringList& numbers)
{
    for (const QString& number : numbers) {
        QString text = LngStr2(TextNumber<2>(number.toInt()), QStringLiteral("%1"), QStringLiteral("%2"));
        text.replace(u'\\', QStringLiteral("\\\\"));
        text.replace(QStringLiteral("\n"), QStringLiteral("\\n"));
        text.replace(QStringLiteral("\t"), QStringLiteral("\\t"));
        TerminalWrite(stdout, number + u'\t' + text + u'\n');
    }
}

/// The extensions of lists are language texts, so this is checked after loading the modules.
bool IsOutputNameValid(const CtlArguments& arguments)
{
    const bool writes = arguments.Command == CtlCommand::Convert || arguments.Command == CtlCommand::Sort;
    return !writes || CtlCanBeWritten(arguments.Operands[1]);
}

/// As above for a file to send.
bool IsInputNameValid(const CtlArguments& arguments)
{
    return arguments.Command != CtlCommand::Put || FileExtMatches(arguments.Operands[0], FileClassBit(arguments.Class));
}

ExitStatus UsageError(const QString& error)
{
    TerminalWrite(stderr, QStringLiteral("tarvikctl: %1\nTry 'tarvikctl --help'.\n").arg(error));
    return ExitStatus::Usage;
}

ExitStatus Run(const CtlArguments& arguments)
{
    Terminal terminal(arguments.Yes);
    terminal.SetFile(QStringLiteral("tarvikctl"));
    if (!LoadModules(arguments.Command, terminal))
        return ExitStatus::Refused;
    if (!IsOutputNameValid(arguments))
        return UsageError(QStringLiteral("%1: the name of a list ends in .tva, .tvk, .tvm, .tvs, .tvc, .csv or .json")
                              .arg(arguments.Operands[1]));
    if (arguments.Command == CtlCommand::Capture && !CtlIsPictureName(CtlCaptureTarget(arguments)))
        return UsageError(
            QStringLiteral("%1: the name of a picture ends in .png, .bmp, .pcx or .wmf").arg(arguments.Operands[0]));
    if (!IsInputNameValid(arguments))
        return UsageError(QStringLiteral("%1: by its extension it is no file of this kind").arg(arguments.Operands[0]));
    const PortScope<MessagePresenter> messages(TheMessagePresenter(), terminal);
    if (arguments.Command == CtlCommand::Text)
        PrintTexts(arguments.Operands);
    else if (arguments.Command == CtlCommand::Picture)
        CtlRunPictures(arguments, terminal);
    else if (arguments.Command == CtlCommand::Print)
        CtlRunPrint(arguments.Print, terminal);
    else if (arguments.Command == CtlCommand::Plot)
        CtlRunPlot(arguments, terminal);
    else if (CtlIsLinkCommand(arguments.Command))
        CtlRunLink(arguments, terminal);
    else
        CtlRunLists(arguments, terminal);
    return terminal.HasFailed() ? ExitStatus::Refused : ExitStatus::Done;
}

ExitStatus RunCommand(const CtlArguments& arguments)
{
    if (arguments.Command != CtlCommand::Help && arguments.Command != CtlCommand::Version)
        return Run(arguments);
    const bool help = arguments.Command == CtlCommand::Help;
    TerminalWrite(stdout, help ? CtlHelpText() : QStringLiteral("tarvikctl %1\n").arg(ProductVersionText()));
    return ExitStatus::Done;
}

/// False if standard output could not be written completely.
bool OutputWasWritten()
{
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

/// Suppresses Qt's own messages except errors.
void SuppressQtMessages(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        TerminalWrite(stderr, text + u'\n');
}

bool DrawsText(CtlCommand command)
{
    return command == CtlCommand::Plot || CtlDrawsPictures(command);
}

/// The arguments after the program's name.
QStringList Arguments(int argc, char** argv)
{
    const QCoreApplication application(argc, argv); // decodes them as this platform does
    return QCoreApplication::arguments().mid(1);
}

/// Drawing text needs a QGuiApplication, though no display. The application sees the program's name only, since Qt
/// would consume its own options.
std::unique_ptr<QCoreApplication> NewApplication(bool draws, char** argv)
{
    static int nameCount = 1;
    if (!draws)
        return std::make_unique<QCoreApplication>(nameCount, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(nameCount, argv);
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    qInstallMessageHandler(SuppressQtMessages);
    QString error;
    const auto arguments = CtlParse(Arguments(argc, argv), error);
    const std::unique_ptr<QCoreApplication> application =
        NewApplication(arguments && DrawsText(arguments->Command), argv);
    const ExitStatus status = arguments ? RunCommand(*arguments) : UsageError(error);
    return static_cast<int>(OutputWasWritten() ? status : ExitStatus::Refused);
}
