#include "tools/instrument/arguments.h"

#include "app/text/ansi.h"

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

const Option* FindOption(const QString& name)
{
    const auto found = std::find_if(
        kOptions.begin(), kOptions.end(), [&name](const Option& option) { return name == QLatin1String(option.Name); });
    return found == kOptions.end() ? nullptr : &*found;
}

/// Parses an option without a value.
bool TakeSwitch(const QString& argument, InstrumentArguments& result)
{
    bool* flag = argument == QLatin1String("--help") || argument == QLatin1String("-h") ? &result.Help
        : argument == QLatin1String("--version")                                        ? &result.Version
        : argument == QLatin1String("--verbose")                                        ? &result.Link.Verbose
                                                                                        : nullptr;
    if (flag != nullptr)
        *flag = true;
    return flag != nullptr;
}

} // namespace

bool ReadArguments(const QStringList& arguments, InstrumentArguments& result, QString& error)
{
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (TakeSwitch(argument, result))
            continue;
        const QString name = argument.section(u'=', 0, 0);
        const Option* option = name.startsWith(QLatin1String("--")) ? FindOption(name.mid(2)) : nullptr;
        if (option == nullptr) {
            error = QStringLiteral("unknown argument: %1").arg(argument);
            return false;
        }
        const bool hasValue = argument.contains(u'=');
        if (!hasValue && i + 1 == arguments.size()) {
            error = QStringLiteral("%1 needs a value").arg(name);
            return false;
        }
        const QString value = hasValue ? argument.section(u'=', 1) : arguments[++i];
        if (!option->Take(value, result)) {
            error = QStringLiteral("invalid value of %1: %2").arg(name, value);
            return false;
        }
    }
    return true;
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
