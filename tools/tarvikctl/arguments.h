// tools/tarvikctl/arguments.h: parses the command line.
#pragma once

#include "link/classes/model.h"
#include "screen/document/screenTable.h"
#include "tools/tarvikctl/printArguments.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

namespace tarvik {

enum class CtlCommand {
    Help,
    Version,
    Text,
    Check,
    Show,
    Convert,
    Sort,
    Plot,
    Picture,
    Print,
    Idn,
    Ls,
    Get,
    Put,
    Rm,
    Capture
};

struct CtlArguments {
    CtlCommand Command = CtlCommand::Help;
    QStringList Operands; ///< files, names or text numbers as typed, without the word for a file class
    bool Json = false;
    bool All = false; ///< unused rows too
    bool Yes = false; ///< questions are answered Yes
    int SortKey = 0; ///< 0 to 6
    bool Merge = false; ///< sort and merge
    bool Values = false; ///< of a diagram instead of its picture
    bool PlotOmniphase = false; ///< this table of a correction set instead of the K-factors
    QSize PlotSize{ 792, 560 }; ///< pixels
    QString Address; ///< of the instrument
    int Port = 0;
    FileClass Class = FileClassNone; ///< FileClassNone if none is given
    QString ImageFormat; ///< extension of the pictures to write, without its point; empty for that of the operand
    QString Into; ///< folder to write them to; empty for that of each operand
    std::optional<PaletteNumber> Palette; ///< nullopt if not given
    std::optional<QString> Description;
    PrintArguments Print; ///< of the command print, which uses no other member
};

/// Parses the arguments after the program's name. Options may be anywhere after the command, an instrument's `--to`
/// also before it; "--" ends them. nullopt for wrong usage, with the reason in `error`.
std::optional<CtlArguments> CtlParse(const QStringList& arguments, QString& error);

/// The text of --help.
QString CtlHelpText();

} // namespace tarvik
