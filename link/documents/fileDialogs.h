// link/documents/fileDialogs.h: the commands that ask for files: open, and convert.
#pragma once

#include <functional>

namespace tarvik {

/// Asks for files and opens each, up to the first one that fails.
void FileOpenDlg();

/// Asks for files, lets `askForTarget` ask for folder and type, and converts the files when that returns true. It finds
/// the files in FileConvert() and leaves the target there, as the form FmFileConvert does.
void FileConvertDlg(const std::function<bool()>& askForTarget);

} // namespace tarvik
