// app/settings/ini.h: the settings file, value by value; includes the formats of the system's region.
//
// Errors are not reported: an unreadable file gives the defaults, an unwritable one stays unchanged. A file of more
// than 1 MiB, and what is no regular file, is neither read nor replaced.
#pragma once

#include "app/values/region.h"

#include <QString>

namespace tarvik {

/// Loads `file`: its readers and writers use the copy in memory until the session ends. `Commit` replaces the file
/// whole. Without a session each reader reads the file, and each writer replaces it. Sessions don't nest; the newest
/// one counts.
class IniSession {
public:
    explicit IniSession(const QString& file);
    ~IniSession();
    IniSession(const IniSession&) = delete;
    IniSession& operator=(const IniSession&) = delete;

    /// False if the file could not be replaced; it is unchanged.
    [[nodiscard]] bool Commit();
};

/// Longest text, in characters, that a reader returns; longer values are truncated.
inline constexpr int kIniTextLimit = 255;

/// Parses blanks, a sign, digits, one point and an exponent, up to the first other character. 0 without a number.
/// Independent of the region.
double IniNumber(QStringView text);

/// Four lengths; -1 each when nothing is stored.
struct IniRect {
    float Left = -1;
    float Top = -1;
    float Width = -1;
    float Height = -1;
};

/// Readers. A key that is missing gives the default; a key without a value gives 0 or an empty text. Whole
/// numbers lose their fraction, and numbers too large for their type keep the low bits.
bool IniReadBool(const QString& file, const QString& section, const QString& key, bool fallback); ///< true only for 1
quint8 IniReadByte(const QString& file, const QString& section, const QString& key, quint8 fallback);
quint32 IniReadColour(const QString& file, const QString& section, const QString& key,
    quint32 fallback); ///< 0x00BBGGRR; the default for any number outside 0 to 0xFFFFFF
qint16 IniReadInt(const QString& file, const QString& section, const QString& key, qint16 fallback);
qint32 IniReadLong(const QString& file, const QString& section, const QString& key, qint32 fallback);
float IniReadSingle(const QString& file, const QString& section, const QString& key, float fallback);

/// Returns the length of `out`.
int IniReadString(
    const QString& file, const QString& section, const QString& key, const QString& fallback, QString& out);

/// The keys `prefix` + Left, Top, Width, Height. A left edge below -1 is taken as -1.
IniRect IniReadRect(const QString& file, const QString& section, const QString& prefix);

/// Remembered folders of a file class (1 to 6); any other class gives an empty text. The PC's folder is the program's
/// own folder when the stored one doesn't exist; an empty instrument folder is "\Public".
QString IniReadModelPcPath(const QString& file, int fileClass);
QString IniReadModelInstrPath(const QString& file, int fileClass);

/// Writers. Numbers have a point in every region; a single has at most 7 digits.
void IniWriteBool(const QString& file, const QString& section, const QString& key, bool value);
void IniWriteByte(const QString& file, const QString& section, const QString& key, quint8 value);
void IniWriteColour(const QString& file, const QString& section, const QString& key, quint32 value);
void IniWriteInt(const QString& file, const QString& section, const QString& key, qint16 value);
void IniWriteLong(const QString& file, const QString& section, const QString& key, qint32 value);
void IniWriteSingle(const QString& file, const QString& section, const QString& key, float value);
void IniWriteString(const QString& file, const QString& section, const QString& key, const QString& value);
void IniWriteRect(const QString& file, const QString& section, const QString& prefix, const IniRect& value);
void IniWriteModelPcPath(const QString& file, int fileClass, const QString& path);
void IniWriteModelInstrPath(const QString& file, int fileClass, const QString& path);

} // namespace tarvik
