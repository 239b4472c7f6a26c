// tools/tarvikctl/pictures.h: the commands on pictures: the program's conversion of a batch, without a window.
#pragma once

#include "screen/window.h"
#include "tools/tarvikctl/arguments.h"
#include "tools/tarvikctl/terminal.h"

/// True for the commands that draw, which need a QGuiApplication.
bool CtlDrawsPictures(const QString& word);

/// Gives a document the palette and the description that the command line asks for.
void CtlPrepareDocument(const CtlArguments& arguments, WindowId id, Terminal& terminal);

/// Runs `picture`. What goes wrong has been shown on `terminal`.
void CtlRunPictures(const CtlArguments& arguments, Terminal& terminal);
