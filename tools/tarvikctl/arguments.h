// tools/tarvikctl/arguments.h: what the command line asks for.
#pragma once

#include "link/classes/model.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace tarvik {

enum class CtlCommand { Help, Version, Text, Check, Show, Convert, Sort, Picture, Idn, Ls, Get, Put, Rm, Capture };

struct CtlArguments {
    CtlCommand Command = CtlCommand::Help;
    QStringList Operands; ///< files, names or text numbers, as typed, without the word for a file class
    bool Json = false;
    bool All = false; ///< unused rows too
    bool Yes = false; ///< questions are answered Yes
    int SortKey = 0; ///< 0 to 6
    QString Address; ///< of the instrument
    int Port = 0;
    FileClass Class = FileClassNone; ///< None where none was named
    QString ImageFormat; ///< extension of the pictures to be written, without its point; empty for that of the operand
    QString Into; ///< folder that takes them; empty for that of each operand
    std::optional<qint16> Palette; ///< 0 colour, 1 black and white; empty to leave it as it is
    std::optional<QString> Description;
};

/// Reads the arguments behind the program's name. Options may stand anywhere behind the command, an instrument's `--to`
/// before it too; "--" ends them.
/// Empty for wrong usage, and `error` then says what is wrong.
std::optional<CtlArguments> CtlParse(const QStringList& arguments, QString& error);

/// The text of --help.
QString CtlHelpText();

} // namespace tarvik
