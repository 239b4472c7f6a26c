#include "tools/tarvikctl/arguments.h"

#include "link/classes/model.h"
#include "link/connection/connect.h"

#include <QCommandLineParser>

#include <algorithm>
#include <array>
#include <climits>
#include <utility>

namespace tarvik {

namespace {

constexpr int kLastSortKey = 6;
const QString kToOption = QStringLiteral("--to");

struct CommandForm {
    const char* Name;
    CtlCommand Command;
    const char* Options; ///< accepted options, separated by blanks
    int MinOperands;
    int MaxOperands;
};

constexpr std::array<CommandForm, 15> kForms{ {
    { "--help", CtlCommand::Help, "", 0, 0 },
    { "--version", CtlCommand::Version, "", 0, 0 },
    { "text", CtlCommand::Text, "", 1, INT_MAX },
    { "check", CtlCommand::Check, "", 1, INT_MAX },
    { "show", CtlCommand::Show, "json all", 1, 1 },
    { "convert", CtlCommand::Convert, "yes", 2, 2 },
    { "sort", CtlCommand::Sort, "key merge yes", 2, 2 },
    { "plot", CtlCommand::Plot, "table size values yes", 1, 2 },
    { "picture", CtlCommand::Picture, "palette description yes to into", 1, INT_MAX },
    { "idn", CtlCommand::Idn, "to", 0, 0 },
    { "ls", CtlCommand::Ls, "to", 0, 1 },
    { "get", CtlCommand::Get, "to yes", 2, 3 },
    { "put", CtlCommand::Put, "to yes", 2, 2 },
    { "rm", CtlCommand::Rm, "to", 2, 2 },
    { "capture", CtlCommand::Capture, "to palette description yes into", 1, 1 },
} };

struct ClassWord {
    const char* Word;
    FileClass Class;
};

/// Extensions of the pictures that can be written.
constexpr std::array kImageFormats{ "png", "bmp", "pcx", "wmf" };

constexpr std::array<ClassWord, 6> kClassWords{ {
    { "antenna", FileClassAntennaList },
    { "kfactor", FileClassKfactorTable },
    { "memory", FileClassMemoryList },
    { "suppress", FileClassSuppressList },
    { "screen", FileClassScreenShot },
    { "correction", FileClassCorrectionSet },
} };

bool TakesClass(CtlCommand command)
{
    return command == CtlCommand::Ls || command == CtlCommand::Get || command == CtlCommand::Put
        || command == CtlCommand::Rm;
}

bool IsImageFormat(const QString& word)
{
    return std::any_of(kImageFormats.begin(), kImageFormats.end(),
        [&word](const char* format) { return word == QLatin1String(format); });
}

class Parser {
public:
    Parser(const CommandForm& form, QString& error)
        : form_(form)
        , options_(QString::fromLatin1(form.Options).split(u' ', Qt::SkipEmptyParts))
        , error_(error)
    {
        result_.Command = form.Command;
    }

    /// `words` begins with the command.
    std::optional<CtlArguments> Run(const QStringList& words)
    {
        if (!TakeOptions(words) || !CheckOperands() || !CheckKey() || !CheckTarget() || !TakeClassWord())
            return std::nullopt;
        return result_;
    }

private:
    struct ValueOption {
        const char* Name;
        bool (Parser::*Take)(const QString& value);
    };

    bool Fail(const QString& error)
    {
        error_ = error;
        return false;
    }

    bool TakeOptions(const QStringList& words)
    {
        static constexpr std::array<ValueOption, 7> kValueOptions{ { { "key", &Parser::TakeKey },
            { "to", &Parser::TakeTarget }, { "palette", &Parser::TakePalette },
            { "description", &Parser::TakeDescription }, { "into", &Parser::TakeFolder },
            { "table", &Parser::TakeTable }, { "size", &Parser::TakeSize } } };
        QCommandLineParser parser;
        for (const ValueOption& option : kValueOptions)
            AddOption(parser, option.Name, QStringLiteral("value"));
        for (const char* flag : { "json", "all", "yes", "merge", "values" })
            AddOption(parser, flag, {});
        if (!parser.parse(words))
            return Fail(ErrorOf(parser));
        const QStringList given = parser.optionNames();
        result_.Json = given.contains(QStringLiteral("json"));
        result_.All = given.contains(QStringLiteral("all"));
        result_.Yes = given.contains(QStringLiteral("yes"));
        result_.Merge = given.contains(QStringLiteral("merge"));
        result_.Values = given.contains(QStringLiteral("values"));
        result_.Operands = parser.positionalArguments();
        return std::all_of(kValueOptions.begin(), kValueOptions.end(), [&](const ValueOption& option) {
            const QString name = QString::fromLatin1(option.Name);
            const QStringList values = given.contains(name) ? parser.values(name) : QStringList();
            return std::all_of(
                values.begin(), values.end(), [&](const QString& value) { return (this->*option.Take)(value); });
        });
    }

    /// Adds the option if this command accepts it.
    void AddOption(QCommandLineParser& parser, const char* name, const QString& value) const
    {
        if (options_.contains(QLatin1String(name)))
            parser.addOption({ QString::fromLatin1(name), QString(), value });
    }

    static QString ErrorOf(const QCommandLineParser& parser)
    {
        const QStringList unknown = parser.unknownOptionNames();
        if (unknown.isEmpty())
            return parser.errorText();
        const QString dashes = unknown.front().size() == 1 ? QStringLiteral("-") : QStringLiteral("--");
        return QStringLiteral("%1%2: no such option here").arg(dashes, unknown.front());
    }

    bool TakeKey(const QString& value)
    {
        bool isNumber = false;
        result_.SortKey = value.toInt(&isNumber);
        keyGiven_ = isNumber && result_.SortKey >= 0 && result_.SortKey <= kLastSortKey;
        return keyGiven_ || Fail(QStringLiteral("--key takes a number from 0 to %1").arg(kLastSortKey));
    }

    /// The instrument or the picture format. A capture takes both: no format looks like an address.
    bool TakeTarget(const QString& value)
    {
        const bool isFormat =
            form_.Command == CtlCommand::Picture || (form_.Command == CtlCommand::Capture && IsImageFormat(value));
        return isFormat ? TakeFormat(value) : TakeInstrument(value);
    }

    bool TakeFormat(const QString& value)
    {
        if (!IsImageFormat(value))
            return Fail(QStringLiteral("--to takes png, bmp, pcx or wmf"));
        result_.ImageFormat = value;
        return true;
    }

    bool TakePalette(const QString& value)
    {
        if (value != QLatin1String("0") && value != QLatin1String("1"))
            return Fail(QStringLiteral("--palette takes 0 for colour or 1 for black and white"));
        result_.Palette = static_cast<PaletteNumber>(value.toInt());
        return true;
    }

    bool TakeDescription(const QString& value)
    {
        result_.Description = value;
        return true;
    }

    bool TakeTable(const QString& value)
    {
        result_.PlotOmniphase = value == QLatin1String("omniphase");
        return result_.PlotOmniphase || value == QLatin1String("kfactor")
            || Fail(QStringLiteral("--table takes kfactor or omniphase"));
    }

    /// As WxH.
    bool TakeSize(const QString& value)
    {
        constexpr int kLeastPx = 64;
        constexpr int kMostPx = 8192;
        bool isWidth = false;
        bool isHeight = false;
        result_.PlotSize = { value.section(u'x', 0, 0).toInt(&isWidth), value.section(u'x', 1).toInt(&isHeight) };
        const auto isSide = [](int px) { return px >= kLeastPx && px <= kMostPx; };
        return (isWidth && isHeight && isSide(result_.PlotSize.width()) && isSide(result_.PlotSize.height()))
            || Fail(QStringLiteral("--size takes WIDTHxHEIGHT, each from %1 to %2").arg(kLeastPx).arg(kMostPx));
    }

    bool TakeFolder(const QString& value)
    {
        result_.Into = value;
        return !value.isEmpty() || Fail(QStringLiteral("--into takes a folder"));
    }

    bool TakeInstrument(const QString& value)
    {
        constexpr int kLastPort = 65535;
        const bool hasPort = value.contains(u':');
        const QString port = hasPort ? value.section(u':', 1) : conFieldsOf(conDefaultEntry()).Port;
        bool isNumber = false;
        result_.Address = value.section(u':', 0, 0);
        result_.Port = port.toInt(&isNumber);
        const bool isAddress = conEntryValid(conEntryOf({ QString(), result_.Address, QStringLiteral("1") }));
        const bool isPort = isNumber && result_.Port > 0 && result_.Port <= kLastPort;
        return (isAddress && isPort)
            || Fail(QStringLiteral("--to takes four numbers from 0 to 255 with points between, and ':' and a port from "
                                   "1 to %1")
                        .arg(kLastPort));
    }

    bool CheckTarget()
    {
        const bool isNeeded = options_.contains(QLatin1String("to"));
        const QString& given = form_.Command == CtlCommand::Picture ? result_.ImageFormat : result_.Address;
        return !isNeeded || !given.isEmpty()
            || Fail(QStringLiteral("%1: --to is missing").arg(QLatin1String(form_.Name)));
    }

    /// Removes the word for a file class from the operands.
    bool TakeClassWord()
    {
        if (!TakesClass(form_.Command) || result_.Operands.isEmpty())
            return true;
        const QString word = result_.Operands.takeFirst();
        const auto* const found = std::find_if(kClassWords.begin(), kClassWords.end(),
            [&word](const ClassWord& each) { return word == QLatin1String(each.Word); });
        if (found == kClassWords.end())
            return Fail(QStringLiteral("%1: no such kind of file").arg(word));
        result_.Class = found->Class;
        return true;
    }

    bool CheckOperands()
    {
        if (result_.Operands.size() < form_.MinOperands)
            return Fail(QStringLiteral("%1: too few arguments").arg(QString::fromLatin1(form_.Name)));
        if (result_.Operands.size() > form_.MaxOperands)
            return Fail(QStringLiteral("%1: too many arguments").arg(QString::fromLatin1(form_.Name)));
        return form_.Command != CtlCommand::Text || CheckTextNumbers();
    }

    bool CheckTextNumbers()
    {
        for (const QString& operand : std::as_const(result_.Operands)) {
            bool isNumber = false;
            operand.toInt(&isNumber);
            if (!isNumber)
                return Fail(QStringLiteral("%1: not a number").arg(operand));
        }
        return true;
    }

    bool CheckKey()
    {
        return form_.Command != CtlCommand::Sort || keyGiven_ != result_.Merge
            || Fail(result_.Merge ? QStringLiteral("sort: --key and --merge exclude each other")
                                  : QStringLiteral("sort: --key or --merge is missing"));
    }

    const CommandForm& form_;
    QStringList options_;
    QString& error_;
    CtlArguments result_;
    bool keyGiven_ = false;
};

/// Moves a leading `--to` option after the command.
QStringList CommandFirst(const QStringList& arguments)
{
    if (arguments.isEmpty())
        return {};
    const qsizetype words = arguments.front() == kToOption ? 2 : arguments.front().startsWith(kToOption + u'=') ? 1 : 0;
    return arguments.mid(words, 1) + arguments.mid(0, words) + arguments.mid(words + 1);
}

std::optional<CtlArguments> ParsePrint(const QStringList& words, QString& error)
{
    const auto print = PrintParse(words, error);
    if (!print)
        return std::nullopt;
    CtlArguments arguments;
    arguments.Command = CtlCommand::Print;
    arguments.Print = *print;
    return arguments;
}

} // namespace

std::optional<CtlArguments> CtlParse(const QStringList& arguments, QString& error)
{
    const QStringList words = CommandFirst(arguments);
    if (words.isEmpty() || words.front().startsWith(kToOption)) {
        error = QStringLiteral("no command");
        return std::nullopt;
    }
    if (words.front() == QLatin1String("print"))
        return ParsePrint(words, error);
    const auto* const form = std::find_if(kForms.begin(), kForms.end(),
        [&words](const CommandForm& each) { return words.front() == QLatin1String(each.Name); });
    if (form == kForms.end()) {
        error = QStringLiteral("%1: no such command").arg(words.front());
        return std::nullopt;
    }
    return Parser(*form, error).Run(words);
}

QString CtlHelpText()
{
    return QStringLiteral(
        "Usage: tarvikctl check FILE...                 read each file and report\n"
        "       tarvikctl show [--json] [--all] FILE    print the list; --all: unused rows too\n"
        "       tarvikctl convert [--yes] IN OUT        write IN in the form of OUT's extension\n"
        "       tarvikctl sort (--key N | --merge) [--yes] IN OUT   sort a list; --merge: a suppress list\n"
        "       tarvikctl plot [OPTION...] FILE [OUT.png]   draw a K-factor table or correction set\n"
        "       tarvikctl text N...                     print the texts of these numbers\n"
        "       tarvikctl picture [OPTION...] --to FORMAT FILE...   write pictures as FORMAT\n"
        "       tarvikctl print [OPTION...] FILE...     print pictures and diagrams\n"
        "       tarvikctl --to INSTRUMENT idn           print the instrument's identification\n"
        "       tarvikctl --to INSTRUMENT ls [CLASS]    list its files\n"
        "       tarvikctl --to INSTRUMENT get [--yes] CLASS NAME [OUT]   fetch a file\n"
        "       tarvikctl --to INSTRUMENT put [--yes] CLASS FILE         send a file\n"
        "       tarvikctl --to INSTRUMENT rm CLASS NAME                  remove a file\n"
        "       tarvikctl --to INSTRUMENT capture [OPTION...] OUT        write its display as a picture\n"
        "       tarvikctl --version\n"
        "       tarvikctl --help\n"
        "\n"
        "Lists are memory, antenna, kfactor, suppress and correction, as binary file, CSV (but not\n"
        "correction) or JSON, by extension. Sort keys of a memory list: 0 status then number; 1, 2 number\n"
        "up, down; 3, 4 frequency up, down; 5, 6 description up, down. Other lists have key 0, an antenna\n"
        "list has none.\n"
        "\n"
        "Options of plot: --table kfactor (default) or omniphase, --size WIDTHxHEIGHT (792x560), --values\n"
        "prints the numbers as JSON instead, --yes.\n"
        "\n"
        "Options of print: --to OUT.pdf, or --printer QUEUE, or neither for the default printer; --paper A3,\n"
        "A4, A5, Letter or Legal, --landscape, --margins LEFT,TOP,RIGHT,BOTTOM in inches; of a PDF --offset\n"
        "X,Y (0.25,0.25) in inches and --dpi N (300); --settings INI, a settings file with a layout,\n"
        "--per-page N windows arranged on each page, --arrange, --title, --no-title, --outline, --no-outline,\n"
        "--bw, --description TEXT; --layout prints the page table as JSON instead.\n"
        "\n"
        "INSTRUMENT is ADDRESS[:PORT], an IPv4 address. CLASS is antenna, kfactor, memory,\n"
        "suppress, screen or correction.\n"
        "\n"
        "FORMAT is png, bmp, pcx or wmf. Options of picture and capture: --palette 0 colour or 1 black\n"
        "and white, --description TEXT below the picture, --into DIR, the folder to write to (by default\n"
        "that of FILE or OUT), --yes. A capture is written in the format of OUT's extension, or in\n"
        "FORMAT with --to FORMAT.\n"
        "\n"
        "Messages go to standard error as FILE: NUMBER: TEXT. Questions are answered No,\n"
        "with --yes Yes. Exit status: 0 success, 1 a file was refused or a message shown,\n"
        "2 wrong usage.\n");
}

} // namespace tarvik
