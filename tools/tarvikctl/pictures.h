// tools/tarvikctl/pictures.h: the commands on pictures: the program's conversion of a batch, without a window.
#pragma once

#include "tools/tarvikctl/arguments.h"
#include "tools/tarvikctl/terminal.h"

namespace tarvik {

/// True for the commands that draw, which need a QGuiApplication.
bool CtlDrawsPictures(CtlCommand command);

/// True for the name of a picture that can be written.
bool CtlIsPictureName(const QString& path);

/// Runs `picture`. What goes wrong has been shown on `terminal`. A signal that asks the program to end lets it finish
/// the file that is under way; a second one ends it at once.
void CtlRunPictures(const CtlArguments& arguments, Terminal& terminal);

/// Path of the picture that a capture becomes: the operand, with the extension of the format that was asked for, in the
/// folder that was asked for.
QString CtlCaptureTarget(const CtlArguments& arguments);

/// Fetches the display of the instrument that is connected and writes it there, in the format of the extension. What
/// goes wrong has been shown on `terminal`. A signal lets the fetch end, and nothing is written; a second one ends it
/// at once.
void CtlCapture(const CtlArguments& arguments, Terminal& terminal);

} // namespace tarvik
