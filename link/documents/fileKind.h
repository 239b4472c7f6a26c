// link/documents/fileKind.h: what kind a file is, by its extension.
#pragma once

#include "link/classes/model.h"

#include <QString>

namespace tarvik {

/// Kinds of files, found by the extension, which is a language text and ignores case.
enum class FileKind { None, Bitmap, Png, Pcx, Metafile, ListText, OtherText, InstrumentList };

/// Kinds of pictures, by their numbers.
enum class ImageKind { None = 0, Bitmap = 1, Pcx = 2, Png = 3, Metafile = 4 };

/// What kind a file is, decided once an action and handed on.
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

/// True for pictures and the two kinds of text; lists of classes 1 to 4 answer `listAnswer`, all others false.
bool FileKnownExtension(const QString& path, bool listAnswer);

} // namespace tarvik
