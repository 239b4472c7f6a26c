// tools/tarvikctl/main.cpp: the rules of the lists on the command line, without a window.
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
#include "tools/tarvikctl/terminal.h"

#include <QDir>
#include <QGuiApplication>

#include <memory>
#include <optional>
#include <vector>

namespace tarvik {

namespace {

enum ExitStatus { ExitDone = 0, ExitRefused = 1, ExitUsage = 2 };

bool LoadModules(CtlCommand command, Terminal& terminal)
{
    std::vector<Module> modules{ Module::Language, Module::ListStore, Module::General };
    if (CtlIsLinkCommand(command))
        modules.push_back(Module::Channel);
    if (CtlDrawsPictures(command))
        modules.push_back(Module::Pictures);
    Program().AppPath = QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) + QDir::separator();
    for (const Module module : modules) {
        if (ModuleLoad(module, Program().AppPath))
            continue;
        terminal.Refuse(ModuleMissingText(module).replace(u'\r', u' '));
        return false;
    }
    return true;
}

/// One line for each number; line ends and tabs inside a text are written as \n and \t.
void PrintTexts(const QStringList& numbers)
{
    for (const QString& number : numbers) {
        QString text = LngStr(TextNumber<0>(number.toInt()));
        text.replace(u'\\', QStringLiteral("\\\\"));
        text.replace(QStringLiteral("\n"), QStringLiteral("\\n"));
        text.replace(QStringLiteral("\t"), QStringLiteral("\\t"));
        TerminalWrite(stdout, number + u'\t' + text + u'\n');
    }
}

/// What the name of a memory list must end in is known once the texts are there.
bool OutputNameFits(const CtlArguments& arguments)
{
    const bool writes = arguments.Command == CtlCommand::Convert || arguments.Command == CtlCommand::Sort;
    return !writes || CtlCanBeWritten(arguments.Operands[1]);
}

/// The same of a file that is to be sent.
bool InputNameFits(const CtlArguments& arguments)
{
    return arguments.Command != CtlCommand::Put || FileExtMatches(arguments.Operands[0], FileClassBit(arguments.Class));
}

ExitStatus UsageError(const QString& error)
{
    TerminalWrite(stderr, QStringLiteral("tarvikctl: %1\nTry 'tarvikctl --help'.\n").arg(error));
    return ExitUsage;
}

ExitStatus Run(const CtlArguments& arguments)
{
    Terminal terminal(arguments.Yes);
    terminal.SetFile(QStringLiteral("tarvikctl"));
    if (!LoadModules(arguments.Command, terminal))
        return ExitRefused;
    if (!OutputNameFits(arguments))
        return UsageError(
            QStringLiteral("%1: the name of a memory list ends in %2 or %3")
                .arg(arguments.Operands[1], ModGetExtension(FileClassMemoryList), LngStr(TextId::CsvExtension)));
    if (arguments.Command == CtlCommand::Capture && !CtlIsPictureName(CtlCaptureTarget(arguments)))
        return UsageError(
            QStringLiteral("%1: the name of a picture ends in .png, .bmp, .pcx or .wmf").arg(arguments.Operands[0]));
    if (!InputNameFits(arguments))
        return UsageError(QStringLiteral("%1: by its extension it is no file of this kind").arg(arguments.Operands[0]));
    const PortScope<MessagePresenter> messages(TheMessagePresenter(), terminal);
    if (arguments.Command == CtlCommand::Text)
        PrintTexts(arguments.Operands);
    else if (arguments.Command == CtlCommand::Picture)
        CtlRunPictures(arguments, terminal);
    else if (CtlIsLinkCommand(arguments.Command))
        CtlRunLink(arguments, terminal);
    else
        CtlRunLists(arguments, terminal);
    return terminal.HasFailed() ? ExitRefused : ExitDone;
}

ExitStatus RunCommand(const CtlArguments& arguments)
{
    if (arguments.Command != CtlCommand::Help && arguments.Command != CtlCommand::Version)
        return Run(arguments);
    const bool help = arguments.Command == CtlCommand::Help;
    TerminalWrite(stdout, help ? CtlHelpText() : QStringLiteral("tarvikctl %1\n").arg(ProductVersionText()));
    return ExitDone;
}

/// False when the reader of standard output has not got all of it.
bool OutputArrived()
{
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

/// What the platform has to say of its own is not for the reader of this program's messages.
void KeepPlatformQuiet(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        TerminalWrite(stderr, text + u'\n');
}

/// What stands behind the program's name.
QStringList Words(int argc, char** argv)
{
    const QCoreApplication application(argc, argv); // knows how this platform codes them
    return QCoreApplication::arguments().mid(1);
}

/// Fonts need more than the rest does, and no display even so. The platform sees no words: it has options of its own,
/// and would take them for itself.
std::unique_ptr<QCoreApplication> NewApplication(bool draws, char** argv)
{
    static int onlyTheName = 1;
    if (!draws)
        return std::make_unique<QCoreApplication>(onlyTheName, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(onlyTheName, argv);
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    qInstallMessageHandler(KeepPlatformQuiet);
    QString error;
    const auto arguments = CtlParse(Words(argc, argv), error);
    const std::unique_ptr<QCoreApplication> application =
        NewApplication(arguments && CtlDrawsPictures(arguments->Command), argv);
    const ExitStatus status = arguments ? RunCommand(*arguments) : UsageError(error);
    return OutputArrived() ? status : ExitRefused;
}
