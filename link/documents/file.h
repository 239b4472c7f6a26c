// link/documents/file.h: what kind a file is, by its extension, and who opens it.
#pragma once

#include <QString>

#include <functional>

namespace tarvik {

/// Kinds of files, found by the extension, which is a language text and ignores case.
enum class FileKind { None, Bitmap, Png, Pcx, Metafile, ListText, OtherText, InstrumentList };

/// Kind of a file, and the file class (Antenna list to correction set) of an instrument list.
struct FileKindInfo {
    FileKind Kind = FileKind::None;
    int FileClass = 0;
};
FileKindInfo FileKindOf(const QString& path);

/// Number of a picture kind for the picture documents: 1 bitmap, 2 PCX, 3 PNG, 4 metafile; 0 for any other kind.
int ImageKindOf(FileKind kind);

/// True for a file that can be dropped on the frame: every kind but None.
bool FileCanBeDropped(const QString& path);

/// True for pictures and the two kinds of text; lists of classes 1 to 4 answer `listAnswer`, all others false.
bool FileKnownExtension(const QString& path, bool listAnswer);

/// Who opens the files of each kind; bound by the program's composition. Each returns true on success and reports its
/// own failures. One that is not bound opens nothing.
struct FileOpeners {
    std::function<bool(int fileClass, const QString& path)> OpenEditor;
    std::function<bool(const QString& path, bool show)> OpenListFile; ///< only classifies the file unless `show`
    std::function<bool(const QString& path, int imageKind)> OpenPicture;
};
FileOpeners& TheFileOpeners();

/// Opens a document or list by its extension; true on success. Message 12750 for a kind that can't be opened.
/// `resetFlag` forgets the answer that MsgAskOnce keeps; while that answer is No nothing is opened. `showFlag` false
/// only classifies a list text.
bool FileOpen(const QString& path, bool resetFlag, bool showFlag);

} // namespace tarvik
