#include "app/text/lang.h"

#include "app/platform/instrumentLink.h"
#include "app/text/ansi.h"
#include "app/text/textId.h"
#include "closed/loader.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <vector>

namespace tarvik {

namespace {

/// A control's geometry is stored under its text number plus this.
constexpr int kGeometryOffset = 10'000;

using TextBuffer = std::array<char, TVLNG_MAX_TEXT>;

/// A module may return a wrong length; nothing outside the buffer is read.
QString RawText(const TextBuffer& buffer, int32_t length)
{
    return FromAnsi(QByteArrayView(buffer.data(), std::clamp<int32_t>(length, 0, TVLNG_MAX_TEXT - 1)));
}

QString Expanded(const TextBuffer& buffer, int32_t length)
{
    return LngExpandMacros(RawText(buffer, length));
}

/// Passes arguments through the module, which takes 8-bit text. One that this would change, such as a file name in
/// another script or with a macro's sign, is passed as a control character and substituted at the end.
class Arguments {
public:
    QByteArray Pass(const QString& argument)
    {
        if (std::ranges::all_of(argument, Survives))
            return ToAnsi(argument);
        held_.append(argument);
        return { 1, static_cast<char>(held_.size()) };
    }

    QString Substitute(const QString& text) const
    {
        QString result;
        for (const QChar character : text) {
            const int mark = character.unicode();
            if (mark >= 1 && mark <= held_.size())
                result.append(held_[mark - 1]);
            else
                result.append(character);
        }
        return result;
    }

private:
    static bool Survives(QChar character)
    {
        return IsAnsi(character) && character >= u' ' && character != u'@';
    }

    QStringList held_; ///< by their control character, from 1
};

/// The text of the macro character.
TextNumber<0> MacroText(QChar character)
{
    switch (character.unicode()) {
    case u'1':
    case u'2':
        return TextId::ProductName;
    case u'3':
        return TheInstrumentLink()->IsAccepted() ? TextId::FamilyInstrument : TextId::OtherInstrument;
    case u'4':
        return TextId::FamilyName;
    case u'5':
        return TextId::MakerName;
    default:
        return {};
    }
}

/// Replaces the macros of one text and those in their replacements. A macro inside its own replacement stays, and so do
/// all macros beyond a limit that no sensible text reaches: texts are external data.
class MacroExpansion {
public:
    QString Expand(const QString& text)
    {
        QString result;
        for (qsizetype at = 0; at < text.size(); ++at) {
            const bool mayBeMacro = text[at] == u'@' && at + 1 < text.size();
            const TextNumber<0> macro = mayBeMacro ? MacroText(text[at + 1]) : TextNumber<0>();
            if (macro.IsNone() || left_ == 0 || std::ranges::find(open_, macro) != open_.end()) {
                result.append(text[at]);
                continue;
            }
            result.append(Replacement(macro));
            ++at;
        }
        return result;
    }

private:
    QString Replacement(TextNumber<0> macro)
    {
        if (!ModuleIsBound(Module::Language))
            return {};
        --left_;
        TextBuffer buffer{};
        const int32_t length = TvLng().LngGetStr(macro.Number, "", buffer.data(), TVLNG_MAX_TEXT);
        open_.push_back(macro);
        QString replacement = Expand(RawText(buffer, length));
        open_.pop_back();
        return replacement;
    }

    int left_ = 64;
    std::vector<TextNumber<0>> open_; ///< texts that are being expanded
};

} // namespace

QString LngStr(TextNumber<0> id)
{
    if (!ModuleIsBound(Module::Language))
        return {};
    TextBuffer buffer{};
    return Expanded(buffer, TvLng().LngGetStr(id.Number, "", buffer.data(), TVLNG_MAX_TEXT));
}

QString LngStr1(TextNumber<1> id, const QString& arg)
{
    if (!ModuleIsBound(Module::Language))
        return {};
    TextBuffer buffer{};
    Arguments arguments;
    const QByteArray passed = arguments.Pass(arg);
    const int32_t length = TvLng().LngGetStr1Arg(id.Number, "", passed.constData(), buffer.data(), TVLNG_MAX_TEXT);
    return arguments.Substitute(Expanded(buffer, length));
}

QString LngStr2(TextNumber<2> id, const QString& arg1, const QString& arg2)
{
    if (!ModuleIsBound(Module::Language))
        return {};
    TextBuffer buffer{};
    Arguments arguments;
    const QByteArray first = arguments.Pass(arg1);
    const QByteArray second = arguments.Pass(arg2);
    const int32_t length =
        TvLng().LngGetStr2Arg(id.Number, "", first.constData(), second.constData(), buffer.data(), TVLNG_MAX_TEXT);
    return arguments.Substitute(Expanded(buffer, length));
}

QString LngExpandMacros(const QString& text)
{
    return MacroExpansion().Expand(text);
}

QString LngUnescapeMenu(const QString& text)
{
    QString result = text;
    const qsizetype pair = result.indexOf(QStringLiteral("&&"));
    return pair < 0 ? result : result.remove(pair, 2);
}

GeometryAdjustment LngCtrlSize(TextNumber<0> id)
{
    GeometryAdjustment adjustment;
    if (!ModuleIsBound(Module::Language))
        return adjustment;
    int32_t left = 0;
    int32_t top = 0;
    int32_t width = 0;
    int32_t height = 0;
    adjustment.Count = TvLng().LngGetCtrlSize(id.Number + kGeometryOffset, &left, &top, &width, &height);
    adjustment.Left = left;
    adjustment.Top = top;
    adjustment.Width = width;
    adjustment.Height = height;
    return adjustment;
}

} // namespace tarvik
