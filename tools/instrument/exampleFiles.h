// tools/instrument/exampleFiles.h: what a receiver has on its disk when it is new.
#pragma once

#include "tools/instrument/storage.h"

namespace tarvik {

/// Makes the folders that a receiver works with, as far as they are not there.
InstrumentError MakeReceiverFolders(Storage& storage);

/// Stores an example of each kind of file: lists, tables, a correction set, pictures of the display in two folders, and
/// active settings.
InstrumentError StoreExamples(Storage& storage, const std::string& model);

} // namespace tarvik
