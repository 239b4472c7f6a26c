// tools/tarvikctl/main.cpp: the rules of the lists on the command line, without a window.
#include "app/lang.h"
#include "app/project.h"
#include "closed/loader.h"
#include "tools/tarvikctl/arguments.h"
#include "tools/tarvikctl/terminal.h"

#include <QCoreApplication>
#include <QDir>

#include <array>

namespace {

enum ExitStatus { ExitDone = 0, ExitRefused = 1, ExitUsage = 2 };

/// The same text as the program's own report of a module without which it has no texts.
QString ModuleMissingText(Module module)
{
    return QStringLiteral("%1 library %2 can not be loaded. Run setup again. %1 aborted.")
        .arg(ProductTitle(), ModuleFileName(module).toUpper());
}

bool LoadModules(Terminal& terminal)
{
    Program().AppPath = QDir::toNativeSeparators(QCoreApplication::applicationDirPath()) + QDir::separator();
    for (const Module module : { Module::Language, Module::ListStore, Module::General }) {
        if (ModuleLoad(module, Program().AppPath))
            continue;
        terminal.Refuse(ModuleMissingText(module));
        return false;
    }
    return true;
}

/// One line for each number; line ends and tabs inside a text are written as \n and \t.
void PrintTexts(const QStringList& numbers)
{
    for (const QString& number : numbers) {
        QString text = LngStr(number.toInt());
        text.replace(u'\\', QStringLiteral("\\\\"));
        text.replace(QStringLiteral("\n"), QStringLiteral("\\n"));
        text.replace(QStringLiteral("\t"), QStringLiteral("\\t"));
        TerminalWrite(stdout, number + u'\t' + text + u'\n');
    }
}

void Run(const CtlArguments& arguments, Terminal& terminal)
{
    if (!LoadModules(terminal))
        return;
    if (arguments.Command == CtlCommand::Text)
        PrintTexts(arguments.Operands);
}

/// False when the reader of standard output has not got all of it.
bool OutputArrived()
{
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QString error;
    const auto arguments = CtlParse(QCoreApplication::arguments().mid(1), error);
    if (!arguments) {
        TerminalWrite(stderr, QStringLiteral("tarvikctl: %1\nTry 'tarvikctl --help'.\n").arg(error));
        return ExitUsage;
    }

    Terminal terminal(arguments->Yes);
    terminal.SetFile(QStringLiteral("tarvikctl"));
    MsgSetPresenter([&terminal](MessageRequest& request) { terminal.Present(request); });
    if (arguments->Command == CtlCommand::Help)
        TerminalWrite(stdout, CtlHelpText());
    else if (arguments->Command == CtlCommand::Version)
        TerminalWrite(stdout, QStringLiteral("tarvikctl %1\n").arg(ProductVersionText()));
    else
        Run(*arguments, terminal);
    const bool arrived = OutputArrived();
    return arrived && !terminal.HasShownMessage() ? ExitDone : ExitRefused;
}
