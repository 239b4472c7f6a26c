#include "lists/values/translate.h"

#include "app/text/ansi.h"
#include "app/text/lang.h"

#include <algorithm>

namespace tarvik {

QString CodeToStr(const CodeTable& table, int code)
{
    if (code >= 0 && code < table.Count)
        return LngStr(table.FirstText + code);
    return table.UnknownText.IsNone() ? QString() : LngStr(table.UnknownText);
}

int StrToCode(const CodeTable& table, const QString& text)
{
    for (int code = 0; code < table.Count; ++code) {
        if (LngStr(table.FirstText + code) == text)
            return code;
    }
    return table.NoMatch;
}

QString MemoryStatusToStr(int code)
{
    return CodeToStr(kMemoryStatusCodes, code);
}

QString SquelchStatusToStr(int code)
{
    return CodeToStr(kSquelchStatusCodes, code);
}

QString AttenuatorStatusToStr(int code)
{
    return CodeToStr(kAttenuatorStatusCodes, code);
}

QString AFCStatusToStr(int code)
{
    return CodeToStr(kAfcStatusCodes, code);
}

QString UsedStatusToStr(bool used)
{
    return CodeToStr(kUsedStatusCodes, used ? 1 : 0);
}

QString DFSquelchStatusToStr(int code)
{
    return CodeToStr(kDfSquelchStatusCodes, code);
}

int StrToMemoryStatus(const QString& text)
{
    return StrToCode(kMemoryStatusCodes, text);
}

int StrToSquelchStatus(const QString& text)
{
    return StrToCode(kSquelchStatusCodes, text);
}

int StrToAttenuatorStatus(const QString& text)
{
    return StrToCode(kAttenuatorStatusCodes, text);
}

int StrToAFCStatus(const QString& text)
{
    return StrToCode(kAfcStatusCodes, text);
}

int StrToUsedStatus(const QString& text)
{
    return StrToCode(kUsedStatusCodes, text);
}

CodeTexts::CodeTexts(const CodeTable& table)
    : table_(table)
    , unknown_(table.UnknownText.IsNone() ? QByteArray() : ToAnsi(LngStr(table.UnknownText)))
{
    texts_.reserve(static_cast<size_t>(table.Count));
    for (int code = 0; code < table.Count; ++code)
        texts_.push_back(ToAnsi(LngStr(table.FirstText + code)));
}

QByteArrayView CodeTexts::TextOf(int code) const
{
    return HasCode(code) ? texts_[static_cast<size_t>(code)] : unknown_;
}

int CodeTexts::CodeOf(QByteArrayView text) const
{
    if (text == QByteArrayView(texts_[recent_]))
        return static_cast<int>(recent_);
    const auto found = std::find_if(
        texts_.begin(), texts_.end(), [text](const QByteArray& known) { return QByteArrayView(known) == text; });
    if (found == texts_.end())
        return table_.NoMatch;
    recent_ = static_cast<size_t>(found - texts_.begin());
    return static_cast<int>(recent_);
}

} // namespace tarvik
