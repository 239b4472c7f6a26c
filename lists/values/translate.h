// lists/values/translate.h: codes of receiver settings and their texts.
#pragma once

#include "app/text/textId.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace tarvik {

/// One setting. Codes start at 0; the texts have consecutive numbers in the order of the codes.
struct CodeTable {
    TextNumber<0> FirstText;
    int Count;
    TextNumber<0> UnknownText; ///< of a code out of range; none: empty text
    int NoMatch; ///< code of an unknown text
};

/// Short tables: an unknown code has no text, an unknown text has code -1.
inline constexpr CodeTable kMemoryStatusCodes{ TextId::MemoryStatusCodes, 2, {}, -1 };
inline constexpr CodeTable kSquelchStatusCodes{ TextId::SquelchStatusCodes, 2, {}, -1 };
inline constexpr CodeTable kAttenuatorStatusCodes{ TextId::AttenuatorStatusCodes, 2, {}, -1 };
inline constexpr CodeTable kAfcStatusCodes{ TextId::AfcStatusCodes, 2, {}, -1 };
inline constexpr CodeTable kUsedStatusCodes{ TextId::UsedStatusCodes, 2, {}, -1 };
inline constexpr CodeTable kDfSquelchStatusCodes{ TextId::DfSquelchStatusCodes, 3, {}, -1 };

/// Long tables: an unknown code has text 13500, an unknown text the code after the last.
inline constexpr CodeTable kDemodulationCodes{ TextId::DemodulationCodes, 8, TextId::UnknownCode, 8 };
inline constexpr CodeTable kBandwidthCodes{ TextId::BandwidthCodes, 16, TextId::UnknownCode, 16 };
inline constexpr CodeTable kFrequencySpanCodes{ TextId::FrequencySpanCodes, 13, TextId::UnknownCode, 13 };
inline constexpr CodeTable kDfStepCodes{ TextId::DfStepCodes, 34, TextId::UnknownCode, 34 };
inline constexpr CodeTable kDfBandwidthCodes{ TextId::DfBandwidthCodes, 33, TextId::UnknownCode, 33 };

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

/// The texts of a table in the encoding of files, fetched once per file.
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
    mutable size_t recent_ = 0; ///< last code found: adjacent rows are often alike
};

} // namespace tarvik
