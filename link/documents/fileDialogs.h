// link/documents/fileDialogs.h: the commands Open and Convert Files.
#pragma once

#include <functional>

namespace tarvik {

/// Asks for files and opens each, up to the first failure.
void FileOpenDlg();

/// Asks for files, calls `askForTarget` for folder and type, and converts the files if that returns true.
/// `askForTarget` finds the files in FileConvert() and stores the target there.
void FileConvertDlg(const std::function<bool()>& askForTarget);

} // namespace tarvik
