// Arbitrary bytes as a settings file: they round-trip, and values that are set are found again.
#include "app/settings/ini.h"
#include "app/settings/iniFile.h"

#include <cstdlib>

namespace tarvik {

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// A value as the writer stores it in one line.
QString OneLine(QString value)
{
    for (QChar& character : value) {
        if (character == u'\n' || character == u'\r' || character.isNull())
            character = u' ';
    }
    return value.trimmed();
}

void SetAndFind(IniFile& file, const QString& section, const QString& key, const QString& value)
{
    file.SetValue(section, key, value);
    const QString expected = OneLine(value);
    Require(file.Value(section, key) == expected);
    Require(IniFile::Parse(file.Bytes()).Value(section, key) == expected);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    IniFile file = IniFile::Parse(bytes);
    Require(file.Bytes() == bytes);

    const QString section = QStringLiteral("File");
    const QString value = file.Value(section, QStringLiteral("PcPathMl")).value_or(QString());
    IniNumber(value);

    // A value from the middle of the input: valid UTF-8 must round-trip.
    const QString wild = QString::fromUtf8(bytes.sliced(bytes.size() / 4, bytes.size() / 2)).toUtf8();
    SetAndFind(file, section, QStringLiteral("PcPathMl"), wild);
    SetAndFind(file, section, QStringLiteral("New"), QStringLiteral("\"quoted\""));
    SetAndFind(file, QStringLiteral("Other"), QStringLiteral("Key"), value);
    return 0;
}

} // namespace tarvik
