// tools/instrument/exampleFiles.h: the initial contents of a receiver's disk.
#pragma once

#include "tools/instrument/storage.h"

namespace tarvik {

/// Creates the receiver's working folders if they are missing.
InstrumentError MakeReceiverFolders(Storage& storage);

/// Stores an example of each kind of file: lists, tables, a correction set, pictures of the display in two folders, and
/// active settings.
InstrumentError StoreExamples(Storage& storage, const std::string& model);

} // namespace tarvik
