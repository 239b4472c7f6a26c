// The version record of an executable, which the list of installed files reads from the file.
#include "closed/module.h"

TV_EXTERN_C TV_EXPORT const TvVersionRecord TvModuleVersion = TV_VERSION_RECORD(TV_PRODUCT_VERSION);
