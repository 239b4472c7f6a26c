// tools/tarvikctl/pictures.h: the commands on pictures: the program's conversion of a batch, without a window.
#pragma once

#include "tools/tarvikctl/arguments.h"
#include "tools/tarvikctl/terminal.h"

/// True for the commands that draw, which need a QGuiApplication.
bool CtlDrawsPictures(const QString& word);

/// True for the name of a picture that can be written.
bool CtlIsPictureName(const QString& path);

/// Runs `picture`. What goes wrong has been shown on `terminal`.
void CtlRunPictures(const CtlArguments& arguments, Terminal& terminal);

/// Fetches the display of the instrument that is connected and writes it as a picture, in the format of the name's
/// extension. What goes wrong has been shown on `terminal`.
void CtlCapture(const CtlArguments& arguments, Terminal& terminal);
