#include "link/classes/textRules.h"

#include "app/message/message.h"
#include "app/text/lang.h"
#include "app/text/textId.h"
#include "app/values/strings.h"
#include "link/classes/model.h"

#include <algorithm>

namespace tarvik {

namespace {

bool IsNameCharacter(QChar character)
{
    const ushort code = character.unicode();
    const bool isLetter = (code >= u'A' && code <= u'Z') || (code >= u'a' && code <= u'z');
    const bool isDigit = code >= u'0' && code <= u'9';
    return isLetter || isDigit || QStringView(u" -+_=&~()[]").contains(character);
}

/// Quotes and separators of a CSV file, and what the list store refuses: control characters but the tab, and the five
/// that Windows-1252 leaves unassigned.
bool IsForbidden(ushort code)
{
    switch (code) {
    case u'"':
    case u';':
    case u'\'':
    case u',':
    case 0x7F:
    case 0x81:
    case 0x8D:
    case 0x8F:
    case 0x90:
    case 0x9D:
        return true;
    default:
        return code < 0x20 && code != u'\t';
    }
}

QString Noun()
{
    return LngStr(ModCaption(CaptionSlot::Noun));
}

} // namespace

bool ValidNameChars(const QString& name)
{
    return !name.isEmpty() && name.size() <= kTextLength && std::all_of(name.begin(), name.end(), IsNameCharacter);
}

bool ValidListName(const QString& name)
{
    if (!ValidNameChars(name)) {
        MsgOk1(TextId::BadListName, Noun());
        return false;
    }
    if (StrEqualNoCase(name, QStringLiteral("none"))) {
        MsgOk1(TextId::ReservedName, Noun());
        return false;
    }
    return true;
}

bool ValidText(const QString& text)
{
    return std::none_of(text.begin(), text.end(), [](QChar character) { return IsForbidden(character.unicode()); });
}

bool ValidText(QByteArrayView text)
{
    return std::none_of(
        text.begin(), text.end(), [](char character) { return IsForbidden(static_cast<unsigned char>(character)); });
}

} // namespace tarvik
