// lists/values/translate.h: the codes of receiver settings and their texts.
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace tarvik {

/// One setting: its codes count from 0, its texts stand in the order of the codes.
struct CodeTable {
    int FirstText;
    int Count;
    int UnknownText; ///< text of a code out of range; 0 for an empty one
    int NoMatch; ///< code of a text that is none of the table's
};

inline constexpr int kTextUnknownCode = 13500;

/// Settings with few values: an unknown code is empty, an unknown text -1.
inline constexpr CodeTable kMemoryStatusCodes{ 10826, 2, 0, -1 };
inline constexpr CodeTable kSquelchStatusCodes{ 10852, 2, 0, -1 };
inline constexpr CodeTable kAttenuatorStatusCodes{ 10854, 2, 0, -1 };
inline constexpr CodeTable kAfcStatusCodes{ 10856, 2, 0, -1 };
inline constexpr CodeTable kUsedStatusCodes{ 10858, 2, 0, -1 };
inline constexpr CodeTable kDfSquelchStatusCodes{ 10862, 3, 0, -1 };

/// Settings with many values: an unknown code is text 13500, an unknown text one past the last code.
inline constexpr CodeTable kDemodulationCodes{ 10844, 8, kTextUnknownCode, 8 };
inline constexpr CodeTable kBandwidthCodes{ 10828, 16, kTextUnknownCode, 16 };
inline constexpr CodeTable kFrequencySpanCodes{ 10865, 13, kTextUnknownCode, 13 };
inline constexpr CodeTable kDfStepCodes{ 10878, 34, kTextUnknownCode, 34 };
inline constexpr CodeTable kDfBandwidthCodes{ 10934, 33, kTextUnknownCode, 33 };

QString CodeToStr(const CodeTable& table, int code);
int StrToCode(const CodeTable& table, const QString& text);

/// The conversions under their given names.
QString MemoryStatusToStr(int code);
QString SquelchStatusToStr(int code);
QString AttenuatorStatusToStr(int code);
QString AFCStatusToStr(int code);
QString UsedStatusToStr(bool used);
QString DFSquelchStatusToStr(int code);
int StrToMemoryStatus(const QString& text);
int StrToSquelchStatus(const QString& text);
int StrToAttenuatorStatus(const QString& text);
int StrToAFCStatus(const QString& text);
int StrToUsedStatus(const QString& text); ///< 0 free, 1 used

/// The texts of a table as a file holds them, fetched once: for readers and writers of whole lists.
class CodeTexts {
public:
    explicit CodeTexts(const CodeTable& table);

    QByteArrayView TextOf(int code) const;
    int CodeOf(QByteArrayView text) const;

    bool HasCode(int code) const
    {
        return code >= 0 && code < table_.Count;
    }

private:
    CodeTable table_;
    std::vector<QByteArray> texts_;
    QByteArray unknown_;
    mutable size_t recent_ = 0; ///< where the last search ended: neighbouring rows are alike
};

} // namespace tarvik
