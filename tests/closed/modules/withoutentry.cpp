// A library that is no module: it has a version, and no entry.
#include "closed/module.h"

TV_EXTERN_C TV_EXPORT const TvVersionRecord TvModuleVersion = { TV_VERSION_MAGIC, { 0, 0, 0, 0 }, { 0, 0, 0, 0 } };
