#include "tools/instrument/arguments.h"

#include "app/text/ansi.h"

#include <QCommandLineParser>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr int kLastPort = 65535;

/// Parses a field of the identification, which must not contain its separator, the comma.
bool TakeName(const QString& value, std::string& name)
{
    const bool isPlain = std::all_of(value.begin(), value.end(),
        [](QChar character) { return character.isPrint() && character != u',' && IsAnsi(character); });
    name = ToAnsi(value).toStdString();
    return isPlain && !value.isEmpty();
}

bool TakeNumber(const QString& value, qint64 lowest, qint64 highest, qint64& number)
{
    bool isNumber = false;
    number = value.toLongLong(&isNumber);
    return isNumber && number >= lowest && number <= highest;
}

/// Parses `N` or `N-M`.
bool TakePorts(const QString& value, InstrumentArguments& result)
{
    const QStringList ends = value.split(u'-');
    qint64 first = 0;
    qint64 last = 0;
    if (ends.size() > 2 || !TakeNumber(ends.front(), 0, kLastPort, first)
        || !TakeNumber(ends.back(), first, kLastPort, last))
        return false;
    result.FirstPort = static_cast<int>(first);
    result.LastPort = static_cast<int>(last);
    return true;
}

bool TakeFault(const QString& value, LinkOptions& link)
{
    const auto fault = ReadFault(value.toStdString());
    if (fault)
        link.Faults.push_back(*fault);
    return fault.has_value();
}

bool TakeDelay(const QString& value, LinkOptions& link)
{
    qint64 milliseconds = 0;
    const bool taken = TakeNumber(value, 0, 600000, milliseconds);
    link.Delay = std::chrono::milliseconds(milliseconds);
    return taken;
}

bool TakeText(const QString& value, QString& text)
{
    text = value;
    return !value.isEmpty();
}

struct Option {
    const char* Name;
    bool (*Take)(const QString& value, InstrumentArguments& result);
};

constexpr qint64 kMaxBytes = qint64{ 1 } << 40;

constexpr std::array kOptions{
    Option{ "root", [](const QString& value, InstrumentArguments& result) { return TakeText(value, result.Root); } },
    Option{ "bind", [](const QString& value, InstrumentArguments& result) { return TakeText(value, result.Address); } },
    Option{ "port", TakePorts },
    Option{ "maker",
        [](const QString& value, InstrumentArguments& result) { return TakeName(value, result.Names.Maker); } },
    Option{ "model",
        [](const QString& value, InstrumentArguments& result) { return TakeName(value, result.Names.Model); } },
    Option{ "serial",
        [](const QString& value, InstrumentArguments& result) { return TakeName(value, result.Names.Serial); } },
    Option{ "firmware",
        [](const QString& value, InstrumentArguments& result) { return TakeName(value, result.Names.Firmware); } },
    Option{ "capacity",
        [](const QString& value, InstrumentArguments& result) {
            qint64 bytes = 0;
            const bool taken = TakeNumber(value, 0, kMaxBytes, bytes);
            result.CapacityBytes = bytes;
            return taken;
        } },
    Option{ "rate",
        [](const QString& value, InstrumentArguments& result) {
            qint64 bytes = 0;
            const bool taken = TakeNumber(value, 1, kMaxBytes, bytes);
            result.Link.BytesPerSecond = bytes;
            return taken;
        } },
    Option{ "delay", [](const QString& value, InstrumentArguments& result) { return TakeDelay(value, result.Link); } },
    Option{ "fault", [](const QString& value, InstrumentArguments& result) { return TakeFault(value, result.Link); } },
};

bool TakesValue(const QString& argument)
{
    return std::any_of(kOptions.begin(), kOptions.end(),
        [&argument](const Option& option) { return argument == QLatin1String("--") + QLatin1String(option.Name); });
}

/// What is wrong with arguments that `parser` does not take.
QString ErrorOf(const QCommandLineParser& parser, const QStringList& arguments)
{
    const QStringList unknown = parser.unknownOptionNames();
    if (!unknown.isEmpty()) {
        const QString dashes = unknown.front().size() == 1 ? QStringLiteral("-") : QStringLiteral("--");
        return QStringLiteral("unknown argument: %1%2").arg(dashes, unknown.front());
    }
    return TakesValue(arguments.last()) ? QStringLiteral("%1 needs a value").arg(arguments.last()) : parser.errorText();
}

/// Each value of each option, in turn.
bool TakeValues(const QCommandLineParser& parser, InstrumentArguments& result, QString& error)
{
    for (const Option& option : kOptions) {
        const QString name = QString::fromLatin1(option.Name);
        const QStringList values = parser.values(name);
        for (const QString& value : values) {
            if (!option.Take(value, result)) {
                error = QStringLiteral("invalid value of --%1: %2").arg(name, value);
                return false;
            }
        }
    }
    return true;
}

} // namespace

bool ReadArguments(const QStringList& arguments, InstrumentArguments& result, QString& error)
{
    QCommandLineParser parser;
    const QCommandLineOption help(QStringList{ QStringLiteral("h"), QStringLiteral("help") });
    const QCommandLineOption version(QStringLiteral("version"));
    const QCommandLineOption verbose(QStringLiteral("verbose"));
    parser.addOptions({ help, version, verbose });
    for (const Option& option : kOptions)
        parser.addOption({ QString::fromLatin1(option.Name), QString(), QStringLiteral("value") });
    if (!parser.parse(QStringList{ QStringLiteral("tarvik-instrument") } + arguments)) {
        error = ErrorOf(parser, arguments);
        return false;
    }
    if (const QStringList operands = parser.positionalArguments(); !operands.isEmpty()) {
        error = QStringLiteral("unknown argument: %1").arg(operands.front());
        return false;
    }
    result.Help = parser.isSet(help);
    result.Version = parser.isSet(version);
    result.Link.Verbose = parser.isSet(verbose);
    return TakeValues(parser, result, error);
}

QString InstrumentHelpText()
{
    return QStringLiteral(
        "Usage: tarvik-instrument [OPTION...]\n"
        "\n"
        "A simulated receiver for training, demonstrations and tests. Its files are in an ordinary\n"
        "folder, its display is drawn; it needs no screen. It prints \"port NNNN\" as its first line of\n"
        "output once it listens.\n"
        "\n"
        "  --root DIR        folder of its files; created if missing, filled with examples if empty\n"
        "  --port N[-M]      port, or the first free one of a range; 0 means any (5555)\n"
        "  --bind ADDRESS    address to listen on (127.0.0.1)\n"
        "  --maker NAME      identification: maker (TARVIK),\n"
        "  --model NAME      model (TR-200DF),\n"
        "  --serial TEXT     serial number (100042)\n"
        "  --firmware TEXT   and firmware (4.30)\n"
        "  --capacity BYTES  size of its disk (1073741824)\n"
        "  --rate BYTES      bytes per second in each direction\n"
        "  --delay MS        milliseconds from the arrival of a message to its execution\n"
        "  --fault KIND[=N]  fault at command N, or at the first: drop, stall, garbage, cut or\n"
        "                    refuse; can be repeated\n"
        "  --verbose         logs each command to standard error\n"
        "  --version         prints the version\n"
        "  --help            prints this text\n");
}

} // namespace tarvik
