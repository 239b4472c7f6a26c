// lists/values/translate.h: the codes of receiver settings and their texts.
#pragma once

#include "app/text/textId.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace tarvik {

/// One setting: its codes count from 0, its texts stand in the order of the codes.
struct CodeTable {
    TextNumber<0> FirstText;
    int Count;
    TextNumber<0> UnknownText; ///< of a code out of range; none for an empty one
    int NoMatch; ///< code of a text that is none of the table's
};

/// Settings with few values: an unknown code is empty, an unknown text -1.
inline constexpr CodeTable kMemoryStatusCodes{ TextId::MemoryStatusCodes, 2, {}, -1 };
inline constexpr CodeTable kSquelchStatusCodes{ TextId::SquelchStatusCodes, 2, {}, -1 };
inline constexpr CodeTable kAttenuatorStatusCodes{ TextId::AttenuatorStatusCodes, 2, {}, -1 };
inline constexpr CodeTable kAfcStatusCodes{ TextId::AfcStatusCodes, 2, {}, -1 };
inline constexpr CodeTable kUsedStatusCodes{ TextId::UsedStatusCodes, 2, {}, -1 };
inline constexpr CodeTable kDfSquelchStatusCodes{ TextId::DfSquelchStatusCodes, 3, {}, -1 };

/// Settings with many values: an unknown code is text 13500, an unknown text one past the last code.
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
