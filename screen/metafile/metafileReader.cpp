#include "screen/metafile/metafileReader.h"

#include "screen/bitmap/pictureLimits.h"
#include "screen/metafile/metafileBitmaps.h"
#include "screen/metafile/metafileContext.h"
#include "screen/metafile/metafileFlood.h"
#include "screen/metafile/metafileObjects.h"
#include "screen/metafile/metafileRegions.h"
#include "screen/metafile/metafileSettings.h"
#include "screen/metafile/metafileShapes.h"
#include "screen/metafile/metafileText.h"

#include <QHash>

namespace tarvik {

namespace {

using tvpicture::MetafileRecord;
using tvpicture::MetafileRecords;

QHash<quint16, MetafileHandler> AllHandlers()
{
    QHash<quint16, MetafileHandler> handlers;
    for (const auto table : { MetafileSettings(), MetafileObjectRecords(), MetafileShapes(), MetafileTexts(),
             MetafileBitmaps(), MetafileRegions(), MetafileFloods() }) {
        for (const MetafileHandler& handler : table)
            handlers.insert(handler.Function, handler);
    }
    return handlers;
}

/// Unknown functions (escapes, layout hints) have no visible effect.
bool Play(MetafileContext& context, const MetafileRecord& record)
{
    static const QHash<quint16, MetafileHandler> handlers = AllHandlers();
    const auto handler = handlers.constFind(record.Function);
    if (handler == handlers.constEnd())
        return true;
    return record.Parameters.Words() >= handler->Words && context.Spend(0) && handler->Play(context, record.Parameters);
}

} // namespace

std::optional<QImage> ReadMetafile(const QByteArray& bytes, const QColor& background)
{
    const tvpicture::ByteView view(
        reinterpret_cast<const uint8_t*>(bytes.constData()), static_cast<size_t>(bytes.size()));
    const std::optional<tvpicture::MetafileFrame> frame = tvpicture::ReadMetafileFrame(view);
    if (!frame || !IsAllowedPicture(frame->Width, frame->Height))
        return std::nullopt;
    QImage picture(frame->Width, frame->Height, QImage::Format_RGB32);
    if (picture.isNull())
        return std::nullopt;
    picture.fill(background);

    MetafileContext context(*frame, picture);
    MetafileRecords records(view, frame->Records);
    MetafileRecord record;
    auto step = records.Next(record);
    for (; step == MetafileRecords::Step::Record; step = records.Next(record)) {
        if (!Play(context, record))
            return std::nullopt;
    }
    if (step == MetafileRecords::Step::Broken)
        return std::nullopt;
    context.End();
    return picture;
}

} // namespace tarvik
