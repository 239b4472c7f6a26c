// link/documents/fileFormats.h: the six formats of documents, and the filters of the file dialogs made of them.
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
    TextNumber<0> OpenName; ///< in the filter of the open dialog; none for a kind of text, which it does not offer
    TextNumber<1> WriteFailed; ///< message for a file that can't be written; none for a kind of text
    FileKind Kind;

    bool IsImage() const
    {
        return !OpenName.IsNone();
    }
};

inline constexpr int kFileFormats = 6;

/// In the order in which a conversion offers them: the two kinds of text first.
const std::array<FileFormat, kFileFormats>& FileFormats();

/// The format of a kind; null for a kind that is none.
const FileFormat* FileFormatOf(FileKind kind);

/// The extension of a format in lower case, without its point.
QString FileExtensionOf(const FileFormat& format);

/// Filters of the open dialog: all pictures together, then each kind. "description|pattern;pattern".
QStringList FileOpenFilters();

/// Formats that the save dialog offers: the kinds of text for a data set window only.
QVector<FileFormat> FileSaveFormats(bool isDataSet);

/// Filters of the save dialog, one for each of these formats.
QStringList FileSaveFilters(const QVector<FileFormat>& formats);

/// Number of the filter, from 1, whose extension was used last; 1 when there is none. The kinds of text count as none.
int FileSaveFilterIndex(const QVector<FileFormat>& formats, const QString& lastExtension);

} // namespace tarvik
