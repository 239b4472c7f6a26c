#include "link/documents/fileKind.h"

#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

struct KindText {
    TextNumber<0> Extension;
    FileKindInfo Info;
};

/// Compared in this order.
constexpr std::array kKinds{
    KindText{ TextId::BmpExtension, { FileKind::Bitmap, FileClassNone, ImageKind::Bitmap } },
    KindText{ TextId::PngExtension, { FileKind::Png, FileClassNone, ImageKind::Png } },
    KindText{ TextId::PcxExtension, { FileKind::Pcx, FileClassNone, ImageKind::Pcx } },
    KindText{ TextId::WmfExtension, { FileKind::Metafile, FileClassNone, ImageKind::Metafile } },
    KindText{ TextId::ListTextExtension, { FileKind::ListText } },
    KindText{ TextId::PlainTextExtension, { FileKind::OtherText } },
    KindText{ TextId::AntennaListExtension, { FileKind::InstrumentList, FileClassAntennaList } },
    KindText{ TextId::KfactorTableExtension, { FileKind::InstrumentList, FileClassKfactorTable } },
    KindText{ TextId::MemoryListExtension, { FileKind::InstrumentList, FileClassMemoryList } },
    KindText{ TextId::SuppressListExtension, { FileKind::InstrumentList, FileClassSuppressList } },
    KindText{ TextId::CorrectionSetExtension, { FileKind::InstrumentList, FileClassCorrectionSet } },
};

} // namespace

FileKindInfo FileKindOf(const QString& path)
{
    const QString extension = u'.' + QFileInfo(path).suffix().toLower();
    const auto found = std::find_if(kKinds.begin(), kKinds.end(),
        [&extension](const KindText& kind) { return extension == LngStr(kind.Extension).toLower(); });
    return found == kKinds.end() ? FileKindInfo{} : found->Info;
}

bool FileCanBeDropped(const QString& path)
{
    return FileKindOf(path).Kind != FileKind::None;
}

bool FileKnownExtension(const QString& path, bool listAnswer)
{
    const FileKindInfo info = FileKindOf(path);
    if (info.Kind == FileKind::InstrumentList)
        return listAnswer && info.Class != FileClassCorrectionSet;
    return info.Kind != FileKind::None;
}

} // namespace tarvik
