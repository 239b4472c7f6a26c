// link/documents/fileKind.h: the kind of a file, by its extension.
#pragma once

#include "link/classes/model.h"

#include <QString>

namespace tarvik {

/// Kinds of files. The extensions are language texts and compared without case.
enum class FileKind { None, Bitmap, Png, Pcx, Metafile, ListText, OtherText, InstrumentList };

/// Kinds of pictures; the numbers are fixed.
enum class ImageKind { None = 0, Bitmap = 1, Pcx = 2, Png = 3, Metafile = 4 };

/// The kind of a file, determined once per action and passed on.
struct FileKindInfo {
    FileKind Kind = FileKind::None;
    FileClass Class = FileClassNone; ///< of an instrument list
    ImageKind Image = ImageKind::None; ///< of a picture

    bool IsPicture() const
    {
        return Image != ImageKind::None;
    }
};
FileKindInfo FileKindOf(const QString& path);

/// True for a file that can be dropped on the frame: every kind but None.
bool FileCanBeDropped(const QString& path);

/// True for pictures and the two kinds of text, `listAnswer` for lists of classes 1 to 4, false for any other file.
bool FileKnownExtension(const QString& path, bool listAnswer);

} // namespace tarvik
