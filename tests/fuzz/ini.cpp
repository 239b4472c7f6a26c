// Any bytes as a settings file: they come back as they were, and what is set is found again.
#include "app/settings/ini.h"
#include "app/settings/iniFile.h"

#include <cstdlib>

namespace tarvik {

namespace {

void Demand(bool condition)
{
    if (!condition)
        std::abort();
}

/// What a value is after the writer has made one line of it.
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
    Demand(file.Value(section, key) == expected);
    Demand(IniFile::Parse(file.Bytes()).Value(section, key) == expected);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    IniFile file = IniFile::Parse(bytes);
    Demand(file.Bytes() == bytes);

    const QString section = QStringLiteral("File");
    const QString value = file.Value(section, QStringLiteral("PcPathMl")).value_or(QString());
    IniNumber(value);

    // The middle of the input as a value: as long as the input is UTF-8, nothing of it may be lost.
    const QString wild = QString::fromUtf8(bytes.sliced(bytes.size() / 4, bytes.size() / 2)).toUtf8();
    SetAndFind(file, section, QStringLiteral("PcPathMl"), wild);
    SetAndFind(file, section, QStringLiteral("New"), QStringLiteral("\"quoted\""));
    SetAndFind(file, QStringLiteral("Other"), QStringLiteral("Key"), value);
    return 0;
}

} // namespace tarvik
