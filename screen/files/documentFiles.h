// screen/files/documentFiles.h: for the composition: binds opening, saving and converting of files to the screen
// documents. Works with and without windows on the screen.
#pragma once

namespace tarvik {

void BindDocumentFiles();

} // namespace tarvik
