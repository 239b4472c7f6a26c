// The version record of an executable, found in the file by whoever lists the installed files.
#include "closed/module.h"

TV_EXTERN_C TV_EXPORT const TvVersionRecord TvModuleVersion = TV_VERSION_RECORD(TV_PRODUCT_VERSION);
