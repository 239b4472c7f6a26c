#include "link/documents/fileFormats.h"

#include "app/text/lang.h"

#include <QVector>

#include <algorithm>

namespace tarvik {

namespace {

constexpr int kTextAllPictures = 11502;

/// The order of the entries of the open dialog.
constexpr std::array kOpenOrder{ FileKind::Bitmap, FileKind::Png, FileKind::Pcx, FileKind::Metafile };

QString Pattern(const FileFormat& format)
{
    return u'*' + LngStr(format.Extension);
}

QString Filter(int name, const QString& patterns)
{
    return LngStr(name) + u'|' + patterns;
}

const FileFormat& FormatOfKind(FileKind kind)
{
    const auto& formats = FileFormats();
    return *std::find_if(formats.begin(), formats.end(), [kind](const FileFormat& at) { return at.Kind == kind; });
}

} // namespace

const std::array<FileFormat, kFileFormats>& FileFormats()
{
    static constexpr std::array<FileFormat, kFileFormats> formats{ {
        { 11505, 11603, 0, 0, FileKind::ListText },
        { 11513, 11607, 0, 0, FileKind::OtherText },
        { 11504, 11602, 11503, 12755, FileKind::Bitmap },
        { 11512, 11606, 11511, 12757, FileKind::Pcx },
        { 11510, 11605, 11509, 12761, FileKind::Png },
        { 11508, 11604, 11507, 12759, FileKind::Metafile },
    } };
    return formats;
}

const FileFormat* FileFormatOf(const QString& path)
{
    const FileKind kind = FileKindOf(path).Kind;
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
        const FileFormat& format = FormatOfKind(kind);
        patterns.append(Pattern(format));
        filters.append(Filter(format.OpenName, Pattern(format)));
    }
    filters.prepend(Filter(kTextAllPictures, patterns.join(u';')));
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
