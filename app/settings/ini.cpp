#include "app/settings/ini.h"

#include "app/platform/paths.h"
#include "app/platform/processState.h"
#include "app/platform/replaceFile.h"
#include "app/settings/iniFile.h"
#include "app/values/numberPicture.h"
#include "closed/files/files.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace tarvik {

namespace {

constexpr size_t kMaxFileBytes = 1 << 20;
constexpr quint32 kMaxColour = 0xFFFFFF;
constexpr int kSingleDigits = 7;

struct LoadedFile {
    QString Path;
    IniFile Content;
    bool IsReplaceable = true;
};

LoadedFile Load(const QString& path)
{
    LoadedFile loaded{ path, {}, true };
    tvfile::Bytes bytes;
    const int error = tvfile::ReadWholeFile(ModulePath(path).toStdString(), kMaxFileBytes, bytes);
    loaded.IsReplaceable = error == 0 || error == ENOENT;
    if (error == 0)
        loaded.Content = IniFile::Parse(
            QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())));
    return loaded;
}

bool Store(const LoadedFile& loaded)
{
    return loaded.IsReplaceable && ReplaceFile(loaded.Path, loaded.Content.Bytes());
}

std::optional<LoadedFile>& Session()
{
    static ProcessState<std::optional<LoadedFile>> session;
    return session.Get();
}

bool IsInSession(const QString& file)
{
    return Session() && Session()->Path == file;
}

QString TextOf(const QString& file, const QString& section, const QString& key, const QString& fallback)
{
    const std::optional<QString> value =
        IsInSession(file) ? Session()->Content.Value(section, key) : Load(file).Content.Value(section, key);
    return value ? value->left(kIniTextLimit) : fallback;
}

double NumberOf(const QString& file, const QString& section, const QString& key, double fallback)
{
    return IniNumber(TextOf(file, section, key, PlainNumberText(fallback)));
}

/// Without its fraction, and at most as large as a 64-bit integer takes.
qint64 Whole(double number)
{
    constexpr double kLimit = 9.2e18;
    return static_cast<qint64>(std::clamp(number, -kLimit, kLimit));
}

/// Length of the number at the start of `text`, which begins with no blank.
qsizetype NumberLength(const std::string& text)
{
    const auto skipDigits = [&text](size_t& at) {
        const size_t start = at;
        while (at < text.size() && text[at] >= '0' && text[at] <= '9')
            ++at;
        return at > start;
    };
    const auto skipSign = [&text](size_t& at) {
        if (at < text.size() && (text[at] == '+' || text[at] == '-'))
            ++at;
    };
    size_t at = 0;
    skipSign(at);
    bool hasDigits = skipDigits(at);
    if (at < text.size() && text[at] == '.') {
        ++at;
        hasDigits = skipDigits(at) || hasDigits;
    }
    if (!hasDigits)
        return 0;
    size_t exponent = at;
    if (exponent < text.size() && (text[exponent] == 'e' || text[exponent] == 'E')) {
        ++exponent;
        skipSign(exponent);
        if (skipDigits(exponent))
            at = exponent;
    }
    return static_cast<qsizetype>(at);
}

} // namespace

IniSession::IniSession(const QString& file)
{
    Session() = Load(file);
}

IniSession::~IniSession()
{
    Session().reset();
}

bool IniSession::Commit()
{
    return Session() && Store(*Session());
}

double IniNumber(QStringView text)
{
    std::string characters = text.trimmed().toLatin1().toStdString();
    characters.resize(static_cast<size_t>(NumberLength(characters)));
    const bool hasPlus = characters.starts_with('+');
    double number = 0;
    const char* first = characters.data() + (hasPlus ? 1 : 0);
    const auto result = std::from_chars(first, characters.data() + characters.size(), number);
    if (result.ec != std::errc::result_out_of_range)
        return number;
    const bool isTiny = characters.find("e-") != std::string::npos || characters.find("E-") != std::string::npos;
    const double largest = std::numeric_limits<double>::max();
    return isTiny ? 0 : characters.starts_with('-') ? -largest : largest;
}

bool IniReadBool(const QString& file, const QString& section, const QString& key, bool fallback)
{
    return Whole(NumberOf(file, section, key, fallback ? 1 : 0)) == 1;
}

quint8 IniReadByte(const QString& file, const QString& section, const QString& key, quint8 fallback)
{
    return static_cast<quint8>(Whole(NumberOf(file, section, key, fallback)));
}

quint32 IniReadColour(const QString& file, const QString& section, const QString& key, quint32 fallback)
{
    const qint64 colour = Whole(NumberOf(file, section, key, fallback));
    return colour < 0 || colour > kMaxColour ? fallback : static_cast<quint32>(colour);
}

qint16 IniReadInt(const QString& file, const QString& section, const QString& key, qint16 fallback)
{
    return static_cast<qint16>(Whole(NumberOf(file, section, key, fallback)));
}

qint32 IniReadLong(const QString& file, const QString& section, const QString& key, qint32 fallback)
{
    return static_cast<qint32>(Whole(NumberOf(file, section, key, fallback)));
}

float IniReadSingle(const QString& file, const QString& section, const QString& key, float fallback)
{
    constexpr double kLargest = std::numeric_limits<float>::max();
    const double number = NumberOf(file, section, key, static_cast<double>(fallback));
    return static_cast<float>(std::clamp(number, -kLargest, kLargest));
}

int IniReadString(
    const QString& file, const QString& section, const QString& key, const QString& fallback, QString& out)
{
    out = TextOf(file, section, key, fallback);
    return static_cast<int>(out.size());
}

IniRect IniReadRect(const QString& file, const QString& section, const QString& prefix)
{
    const auto read = [&](const char* edge) { return IniReadSingle(file, section, prefix + QLatin1String(edge), -1); };
    return { std::max(read("Left"), -1.0F), read("Top"), read("Width"), read("Height") };
}

void IniWriteBool(const QString& file, const QString& section, const QString& key, bool value)
{
    IniWriteString(file, section, key, value ? QStringLiteral("1") : QStringLiteral("0"));
}

void IniWriteByte(const QString& file, const QString& section, const QString& key, quint8 value)
{
    IniWriteString(file, section, key, QString::number(value));
}

void IniWriteColour(const QString& file, const QString& section, const QString& key, quint32 value)
{
    IniWriteString(file, section, key, QString::number(value));
}

void IniWriteInt(const QString& file, const QString& section, const QString& key, qint16 value)
{
    IniWriteString(file, section, key, QString::number(value));
}

void IniWriteLong(const QString& file, const QString& section, const QString& key, qint32 value)
{
    IniWriteString(file, section, key, QString::number(value));
}

void IniWriteSingle(const QString& file, const QString& section, const QString& key, float value)
{
    IniWriteString(file, section, key, PlainNumberText(static_cast<double>(value), kSingleDigits));
}

void IniWriteString(const QString& file, const QString& section, const QString& key, const QString& value)
{
    if (IsInSession(file)) {
        Session()->Content.SetValue(section, key, value.trimmed());
        return;
    }
    LoadedFile loaded = Load(file);
    loaded.Content.SetValue(section, key, value.trimmed());
    static_cast<void>(Store(loaded)); // a setting that can't be stored is not reported
}

void IniWriteRect(const QString& file, const QString& section, const QString& prefix, const IniRect& value)
{
    IniWriteSingle(file, section, prefix + QStringLiteral("Left"), value.Left);
    IniWriteSingle(file, section, prefix + QStringLiteral("Top"), value.Top);
    IniWriteSingle(file, section, prefix + QStringLiteral("Width"), value.Width);
    IniWriteSingle(file, section, prefix + QStringLiteral("Height"), value.Height);
}

} // namespace tarvik
