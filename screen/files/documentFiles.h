// screen/files/documentFiles.h: binds the port `Documents`, for the composition. Works with and without forms.
#pragma once

namespace tarvik {

void BindDocumentFiles();

} // namespace tarvik
