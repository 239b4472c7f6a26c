#include "app/lang.h"

#include "app/ansi.h"
#include "closed/loader.h"

#include <array>

namespace {

/// A control's geometry is filed under its text number plus this.
constexpr int kGeometryOffset = 10000;

using TextBuffer = std::array<char, TVLNG_MAX_TEXT>;

QString Taken(const TextBuffer& buffer, int32_t length)
{
    return LngExpandMacros(FromAnsi(QByteArrayView(buffer.data(), length)));
}

/// Text number that stands for the macro character, or 0.
int MacroText(QChar character)
{
    switch (character.unicode()) {
    case u'1':
    case u'2':
        return 11806;
    case u'3':
        return TheLangHooks().InstrumentAccepted && TheLangHooks().InstrumentAccepted() ? 11804 : 11805;
    case u'4':
        return 11802;
    case u'5':
        return 11803;
    default:
        return 0;
    }
}

} // namespace

QString LngStr(int id)
{
    if (!ModuleIsBound(Module::Language))
        return {};
    TextBuffer buffer;
    return Taken(buffer, TvLng().LngGetStr(id, "", buffer.data(), TVLNG_MAX_TEXT));
}

QString LngStr1(int id, const QString& arg)
{
    if (!ModuleIsBound(Module::Language))
        return {};
    TextBuffer buffer;
    return Taken(buffer, TvLng().LngGetStr1Arg(id, "", ToAnsi(arg).constData(), buffer.data(), TVLNG_MAX_TEXT));
}

QString LngStr2(int id, const QString& arg1, const QString& arg2)
{
    if (!ModuleIsBound(Module::Language))
        return {};
    TextBuffer buffer;
    return Taken(buffer,
        TvLng().LngGetStr2Arg(
            id, "", ToAnsi(arg1).constData(), ToAnsi(arg2).constData(), buffer.data(), TVLNG_MAX_TEXT));
}

QString LngExpandMacros(const QString& text)
{
    QString result;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool mayBeMacro = text[at] == u'@' && at + 1 < text.size();
        const int macro = mayBeMacro ? MacroText(text[at + 1]) : 0;
        if (macro == 0) {
            result.append(text[at]);
            continue;
        }
        result.append(LngStr(macro));
        ++at;
    }
    return result;
}

QString LngUnescapeMenu(const QString& text)
{
    QString result = text;
    const qsizetype pair = result.indexOf(QStringLiteral("&&"));
    return pair < 0 ? result : result.remove(pair, 2);
}

GeometryAdjustment LngCtrlSize(int id)
{
    GeometryAdjustment adjustment;
    if (!ModuleIsBound(Module::Language))
        return adjustment;
    int32_t left = 0;
    int32_t top = 0;
    int32_t width = 0;
    int32_t height = 0;
    adjustment.Count = TvLng().LngGetCtrlSize(id + kGeometryOffset, &left, &top, &width, &height);
    adjustment.Left = left;
    adjustment.Top = top;
    adjustment.Width = width;
    adjustment.Height = height;
    return adjustment;
}

LangHooks& TheLangHooks()
{
    static LangHooks hooks;
    return hooks;
}
