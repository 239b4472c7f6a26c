// link/documents/fileDialogs.h: the commands Open and Convert Files.
#pragma once

#include "link/documents/fileConvert.h"

#include <functional>

namespace tarvik {

/// Asks for files and opens each, up to the first failure.
void FileOpenDlg();

/// Asks for files, calls `askForTarget` for folder and type, and `convert` if that returns true. `askForTarget` finds
/// the files in FileConvert() and stores the target there; `convert` runs the batch. After a batch of several files a
/// message shows the result (11422), unless the program is to close.
void FileConvertDlg(const std::function<bool()>& askForTarget, const std::function<BatchResult()>& convert);

} // namespace tarvik
