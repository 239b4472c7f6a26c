#include "print/preview/sheetPicture.h"

#include "print/page/pagePaint.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tarvik {

namespace {

constexpr QRgb kNoOutline = 0xFFC0C0C0;

QRect Scaled(const QRect& rectangle, double scale)
{
    const auto scaled = [scale](int length) { return static_cast<int>(std::lround(length * scale)); };
    return { scaled(rectangle.left()), scaled(rectangle.top()), scaled(rectangle.width()), scaled(rectangle.height()) };
}

/// One pixel inside the sheet where it would touch the right or lower edge.
QRect BoxOf(const QRect& place, QSize sheet)
{
    QRect box = place;
    box.setRight(std::min(box.right(), sheet.width() - 2));
    box.setBottom(std::min(box.bottom(), sheet.height() - 2));
    return box;
}

void PaintFrame(QPainter& painter, const QRect& box, int width, const QColor& colour)
{
    painter.fillRect(QRect(box.left(), box.top(), box.width(), width), colour);
    painter.fillRect(QRect(box.left(), box.bottom() - width + 1, box.width(), width), colour);
    painter.fillRect(QRect(box.left(), box.top(), width, box.height()), colour);
    painter.fillRect(QRect(box.right() - width + 1, box.top(), width, box.height()), colour);
}

} // namespace

void SheetPicture::Draw(QSize preview, double scale)
{
    const QSize size = Scaled(QRect(QPoint(), preview), scale).size();
    if (picture_.size() != size)
        picture_ = QImage(size, QImage::Format_RGB32);
    if (picture_.isNull())
        return;
    picture_.fill(Qt::white);
    QPainter painter(&picture_);
    PageRecord& page = PresentPage();
    const auto order = DrawingOrder(page);
    const int lineWidth = std::max(1, static_cast<int>(scale));
    for (int rank = 0; rank < page.Count; ++rank) {
        PageEntry& entry = page.Entries[static_cast<size_t>(order[static_cast<size_t>(rank)])];
        const QRect place = Scaled(entry.Pixels, scale);
        painter.drawImage(place.topLeft(), ThumbnailOf(entry, page.BlackAndWhite, place.size()));
        PaintFrame(painter, BoxOf(place, size), lineWidth, entry.Outline ? QColor(Qt::black) : QColor(kNoOutline));
    }
}

const QImage& SheetPicture::ThumbnailOf(PageEntry& entry, bool blackAndWhite, QSize devicePixels)
{
    const auto find = [this](WindowId window) {
        return std::find_if(
            thumbnails_.begin(), thumbnails_.end(), [window](const Thumbnail& at) { return at.Window == window; });
    };
    const auto isShown = [](const Thumbnail& at) {
        const auto entries = PresentPage().InUse();
        return std::any_of(
            entries.begin(), entries.end(), [&at](const PageEntry& shown) { return shown.Window == at.Window; });
    };
    auto kept = find(entry.Window);
    if (kept == thumbnails_.end())
        kept = std::find_if_not(thumbnails_.begin(), thumbnails_.end(), isShown);
    if (!entry.Repaint && kept->Window == entry.Window && kept->Image.size() == devicePixels)
        return kept->Image;
    kept->Window = entry.Window;
    kept->Image = QImage(devicePixels, QImage::Format_RGB32);
    entry.Repaint = false;
    ++composed_;
    if (kept->Image.isNull())
        return kept->Image;
    kept->Image.fill(Qt::white);
    QPainter painter(&kept->Image);
    const bool hasBox = false;
    const bool ownPixels = false;
    PaintEntry(painter, entry, QRect(QPoint(), devicePixels), { blackAndWhite, hasBox, ownPixels });
    return kept->Image;
}

} // namespace tarvik
