#include "print/page/pageLayout.h"

#include <QtMath>

#include <algorithm>

namespace tarvik {

namespace {

constexpr float kMarginStep = 0.1F;
constexpr float kFullPageShare = 0.1F;

/// Height of a line in the screen's system font, which is 16 pixels high everywhere, and the space around it.
constexpr float kTitleHeight = 16 + 2;

/// One axis of RepairedMargins.
void RepairAxis(float& first, float& second, float paper, float offset)
{
    first = std::max(first, offset);
    second = std::max(second, offset);
    while (paper - first - second < kLeastPrintableInches && (first > offset || second > offset)) {
        first = std::max(first - kMarginStep, offset);
        second = std::max(second - kMarginStep, offset);
    }
}

} // namespace

PageMargins RepairedMargins(const PageMargins& margins, const Sheet& sheet)
{
    PageMargins repaired = margins;
    RepairAxis(repaired.Left, repaired.Right, sheet.Paper.X, sheet.Offset.X);
    RepairAxis(repaired.Top, repaired.Bottom, sheet.Paper.Y, sheet.Offset.Y);
    return repaired;
}

SheetRect PrintableArea(const Sheet& sheet, const PageMargins& margins)
{
    return { margins.Left, margins.Top, sheet.Paper.X - margins.Left - margins.Right,
        sheet.Paper.Y - margins.Top - margins.Bottom };
}

EntryShares SharesOf(const WindowExtent& window, bool title)
{
    const float lineHeight = window.Type == WindowType::Screen ? kTitleHeight / 2 : kTitleHeight;
    const float titleHeight = title ? lineHeight : 0;
    const auto pictureHeight = static_cast<float>(window.Graph.height());
    const auto descriptionHeight = static_cast<float>(window.DescriptionHeight);
    const float sum = pictureHeight + titleHeight + descriptionHeight;
    if (sum <= 0)
        return {};
    return { titleHeight / sum, pictureHeight / sum, descriptionHeight / sum, 0 };
}

float AspectOf(const WindowExtent& window, const EntryShares& shares)
{
    if (window.Graph.isEmpty() || shares.Picture <= 0)
        return 1;
    return static_cast<float>(window.Graph.width()) / (static_cast<float>(window.Graph.height()) / shares.Picture);
}

/// The offset of the x axis counts for both sides.
float FullPageMargin(const Sheet& sheet)
{
    return std::min(std::max(kFullPageShare * sheet.Paper.X, sheet.Offset.X),
        std::max(kFullPageShare * sheet.Paper.Y, sheet.Offset.X));
}

SheetRect DefaultRectangle(const Sheet& sheet, float aspect)
{
    const float margin = FullPageMargin(sheet);
    const float heightLimit = sheet.Paper.Y - 2 * margin;
    SheetRect rectangle{ margin, margin, sheet.Paper.X - 2 * margin, 0 };
    rectangle.Height = rectangle.Width / aspect;
    if (rectangle.Height > heightLimit) {
        rectangle.Height = heightLimit;
        rectangle.Width = heightLimit * aspect;
    }
    return rectangle;
}

SheetRect Fitted(SheetRect rectangle, float aspect, bool keepsAspect, const SheetRect& area)
{
    if (keepsAspect)
        rectangle.Height = rectangle.Width / aspect;
    if (rectangle.Width > area.Width) {
        if (keepsAspect)
            rectangle.Height *= area.Width / rectangle.Width;
        rectangle.Width = area.Width;
    }
    if (rectangle.Height > area.Height) {
        if (keepsAspect)
            rectangle.Width *= area.Height / rectangle.Height;
        rectangle.Height = area.Height;
    }
    rectangle.Left = std::max(rectangle.Left, area.Left);
    rectangle.Top = std::max(rectangle.Top, area.Top);
    rectangle.Left -= std::max(rectangle.Right() - area.Right(), 0.0F);
    rectangle.Top -= std::max(rectangle.Bottom() - area.Bottom(), 0.0F);
    return rectangle;
}

QRect DeviceRectangle(const SheetRect& rectangle, const Sheet& sheet)
{
    return { qRound((rectangle.Left - sheet.Offset.X) * sheet.DotsPerInch.X),
        qRound((rectangle.Top - sheet.Offset.Y) * sheet.DotsPerInch.Y),
        qRound(rectangle.Width * sheet.DotsPerInch.X) - kDeviceInset,
        qRound(rectangle.Height * sheet.DotsPerInch.Y) - kDeviceInset };
}

} // namespace tarvik
