// link/documents/fileDialogs.h: the commands that ask for files: open, and convert.
#pragma once

#include <functional>

namespace tarvik {

/// Shows `FmFileConvert` over the sources of FileConvert(); true when the user has accepted. Bound with the form.
struct FileDialogHooks {
    std::function<bool()> ShowConvertForm = [] { return false; };
};
FileDialogHooks& TheFileDialogHooks();

/// Asks for files and opens each, up to the first one that fails; with `convert` asks for folder and type and converts
/// them.
void FileOpenDlg(bool convert);

} // namespace tarvik
