#include "screen/metafile/metafileSettings.h"

namespace tarvik {

namespace {

using tvpicture::MetafileParameters;

/// Records store y before x.
QPoint Pair(const MetafileParameters& p, int word = 0)
{
    return { p.Signed(word + 1), p.Signed(word) };
}

using Pairwise = void (MetafileMapping::*)(QPoint);

template <Pairwise Change>
bool ChangePair(MetafileContext& context, const MetafileParameters& p)
{
    (context.State.Mapping.*Change)(Pair(p));
    return true;
}

using Scaling = void (MetafileMapping::*)(QPoint, QPoint);

/// Divisor and factor, y first.
template <Scaling Change>
bool ChangeScale(MetafileContext& context, const MetafileParameters& p)
{
    (context.State.Mapping.*Change)(QPoint(p.Signed(3), p.Signed(1)), QPoint(p.Signed(2), p.Signed(0)));
    return true;
}

bool SetMapMode(MetafileContext& context, const MetafileParameters& p)
{
    context.State.Mapping.SetMode(p.Word(0));
    return true;
}

template <int MetafileState::*Member>
bool SetNumber(MetafileContext& context, const MetafileParameters& p)
{
    context.State.*Member = p.Signed(0);
    return true;
}

template <MetafileColour MetafileState::*Member>
bool SetColour(MetafileContext& context, const MetafileParameters& p)
{
    context.State.*Member = p.Long(0);
    return true;
}

bool SetBackMode(MetafileContext& context, const MetafileParameters& p)
{
    constexpr int kTransparent = 1;
    context.State.Opaque = p.Word(0) != kTransparent;
    return true;
}

bool SetFillRule(MetafileContext& context, const MetafileParameters& p)
{
    constexpr int kWinding = 2;
    context.State.FillRule = p.Word(0) == kWinding ? Qt::WindingFill : Qt::OddEvenFill;
    return true;
}

bool SetJustification(MetafileContext& context, const MetafileParameters& p)
{
    context.State.BreakCount = p.Word(0);
    context.State.BreakExtra = p.Signed(1);
    return true;
}

bool SaveState(MetafileContext& context, const MetafileParameters&)
{
    return context.Save();
}

bool RestoreState(MetafileContext& context, const MetafileParameters& p)
{
    context.Restore(p.Signed(0));
    return true;
}

constexpr MetafileHandler kHandlers[] = {
    { 0x001E, 0, SaveState },
    { 0x0127, 1, RestoreState },
    { 0x0102, 1, SetBackMode },
    { 0x0103, 1, SetMapMode },
    { 0x0104, 1, SetNumber<&MetafileState::Rop2> },
    { 0x0106, 1, SetFillRule },
    { 0x0107, 1, SetNumber<&MetafileState::StretchMode> },
    { 0x0108, 1, SetNumber<&MetafileState::CharacterExtra> },
    { 0x012E, 1, SetNumber<&MetafileState::TextAlign> },
    { 0x0201, 2, SetColour<&MetafileState::BackColour> },
    { 0x0209, 2, SetColour<&MetafileState::TextColour> },
    { 0x020A, 2, SetJustification },
    { 0x020B, 2, ChangePair<&MetafileMapping::SetWindowOrigin> },
    { 0x020C, 2, ChangePair<&MetafileMapping::SetWindowExtent> },
    { 0x020D, 2, ChangePair<&MetafileMapping::SetViewportOrigin> },
    { 0x020E, 2, ChangePair<&MetafileMapping::SetViewportExtent> },
    { 0x020F, 2, ChangePair<&MetafileMapping::MoveWindowOrigin> },
    { 0x0211, 2, ChangePair<&MetafileMapping::MoveViewportOrigin> },
    { 0x0410, 4, ChangeScale<&MetafileMapping::ScaleWindowExtent> },
    { 0x0412, 4, ChangeScale<&MetafileMapping::ScaleViewportExtent> },
};

} // namespace

std::span<const MetafileHandler> MetafileSettings()
{
    return kHandlers;
}

} // namespace tarvik
