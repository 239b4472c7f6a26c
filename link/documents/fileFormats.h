// link/documents/fileFormats.h: the six document formats, and the file dialog filters for them.
#pragma once

#include "app/text/textNumber.h"
#include "link/documents/fileKind.h"

#include <QString>
#include <QStringList>

#include <array>

namespace tarvik {

struct FileFormat {
    TextNumber<0> Extension; ///< with its point
    TextNumber<0> Name; ///< in the filter of the save dialog and in `CbType`
    TextNumber<0> OpenName; ///< in the filter of the open dialog; none for texts, which it does not offer
    TextNumber<1> WriteFailed; ///< message for a file that can't be written; none for texts
    FileKind Kind;

    bool IsImage() const
    {
        return !OpenName.IsNone();
    }
};

inline constexpr int kFileFormats = 6;

/// In the order that a conversion offers: the two kinds of text first.
const std::array<FileFormat, kFileFormats>& FileFormats();

/// The format of a kind; nullptr if the kind is no document format.
const FileFormat* FileFormatOf(FileKind kind);

/// The extension of a format in lower case, without its point.
QString FileExtensionOf(const FileFormat& format);

/// Filters of the open dialog, "description|pattern;pattern": all pictures, then each kind.
QStringList FileOpenFilters();

/// Formats of the save dialog; the kinds of text for data set windows only.
QVector<FileFormat> FileSaveFormats(bool isDataSet);

/// Filters of the save dialog, one for each format.
QStringList FileSaveFilters(const QVector<FileFormat>& formats);

/// Number, from 1, of the filter for the extension used last; 1 without one. Kinds of text don't count.
int FileSaveFilterIndex(const QVector<FileFormat>& formats, const QString& lastExtension);

} // namespace tarvik
