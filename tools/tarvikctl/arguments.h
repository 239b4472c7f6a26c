// tools/tarvikctl/arguments.h: what the command line asks for.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

enum class CtlCommand { Help, Version, Text, Check, Show, Convert, Sort };

struct CtlArguments {
    CtlCommand Command = CtlCommand::Help;
    QStringList Operands; ///< files or text numbers, as typed
    bool Json = false;
    bool All = false; ///< unused rows too
    bool Yes = false; ///< questions are answered Yes
    int SortKey = 0; ///< 0 to 6
};

/// Reads the arguments behind the program's name. Options may stand anywhere behind the command; "--" ends them.
/// Empty for wrong usage, and `error` then says what is wrong.
std::optional<CtlArguments> CtlParse(const QStringList& arguments, QString& error);

/// The text of --help.
QString CtlHelpText();
