// tools/tarvikctl/pictures.h: the commands for pictures: batch conversion and captures, without a window.
#pragma once

#include "screen/document/window.h"
#include "tools/tarvikctl/arguments.h"
#include "tools/tarvikctl/terminal.h"

namespace tarvik {

/// True for the commands that draw, which need a QGuiApplication.
bool CtlDrawsPictures(CtlCommand command);

/// True for the name of a picture that can be written.
bool CtlIsPictureName(const QString& path);

/// Opens a picture in a window, with a description if given. 0 after a message.
WindowId CtlOpenPicture(const QString& path, const std::optional<QString>& description, Terminal& terminal);

/// Runs `picture`. Reports errors on `terminal`. A termination signal stops the batch after the current file; a second
/// one ends the program at once.
void CtlRunPictures(const CtlArguments& arguments, Terminal& terminal);

/// Path of a captured picture: the operand, with the extension of the requested format, in the requested folder.
QString CtlCaptureTarget(const CtlArguments& arguments);

/// Fetches the display of the connected instrument and writes it to CtlCaptureTarget in the format of its extension.
/// Reports errors on `terminal`. After a termination signal the fetch completes and nothing is written; a second one
/// ends the program at once.
void CtlCapture(const CtlArguments& arguments, Terminal& terminal);

} // namespace tarvik
