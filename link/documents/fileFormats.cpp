#include "link/documents/fileFormats.h"

#include "app/text/lang.h"
#include "app/text/textId.h"

#include <QVector>

#include <algorithm>

namespace tarvik {

namespace {

/// The order of the open dialog's filters.
constexpr std::array kOpenOrder{ FileKind::Bitmap, FileKind::Png, FileKind::Pcx, FileKind::Metafile };

QString Pattern(const FileFormat& format)
{
    return u'*' + LngStr(format.Extension);
}

QString Filter(TextNumber<0> name, const QString& patterns)
{
    return LngStr(name) + u'|' + patterns;
}

} // namespace

const std::array<FileFormat, kFileFormats>& FileFormats()
{
    static constexpr std::array<FileFormat, kFileFormats> formats{ {
        { TextId::ListTextExtension, TextId::ListTextSaveType, {}, {}, FileKind::ListText },
        { TextId::PlainTextExtension, TextId::PlainTextSaveType, {}, {}, FileKind::OtherText },
        { TextId::BmpExtension, TextId::BmpSaveType, TextId::BmpOpenType, TextId::BmpNotWritten, FileKind::Bitmap },
        { TextId::PcxExtension, TextId::PcxSaveType, TextId::PcxOpenType, TextId::PcxNotWritten, FileKind::Pcx },
        { TextId::PngExtension, TextId::PngSaveType, TextId::PngOpenType, TextId::PngNotWritten, FileKind::Png },
        { TextId::WmfExtension, TextId::WmfSaveType, TextId::WmfOpenType, TextId::WmfNotWritten, FileKind::Metafile },
    } };
    return formats;
}

const FileFormat* FileFormatOf(FileKind kind)
{
    const auto& formats = FileFormats();
    const auto found =
        std::find_if(formats.begin(), formats.end(), [kind](const FileFormat& at) { return at.Kind == kind; });
    return found == formats.end() ? nullptr : &*found;
}

QString FileExtensionOf(const FileFormat& format)
{
    return LngStr(format.Extension).mid(1).toLower();
}

QStringList FileOpenFilters()
{
    QStringList patterns;
    QStringList filters;
    for (const FileKind kind : kOpenOrder) {
        const FileFormat& format = *FileFormatOf(kind);
        patterns.append(Pattern(format));
        filters.append(Filter(format.OpenName, Pattern(format)));
    }
    filters.prepend(Filter(TextId::AllPictures, patterns.join(u';')));
    return filters;
}

QVector<FileFormat> FileSaveFormats(bool isDataSet)
{
    QVector<FileFormat> formats;
    for (const FileFormat& format : FileFormats()) {
        if (isDataSet || format.IsImage())
            formats.append(format);
    }
    return formats;
}

QStringList FileSaveFilters(const QVector<FileFormat>& formats)
{
    QStringList filters;
    for (const FileFormat& format : formats)
        filters.append(Filter(format.Name, Pattern(format)));
    return filters;
}

int FileSaveFilterIndex(const QVector<FileFormat>& formats, const QString& lastExtension)
{
    const auto isLast = [&lastExtension](const FileFormat& format) {
        return format.IsImage() && FileExtensionOf(format) == lastExtension.toLower();
    };
    const auto found = std::find_if(formats.begin(), formats.end(), isLast);
    return found == formats.end() ? 1 : static_cast<int>(found - formats.begin()) + 1;
}

} // namespace tarvik
