// A library that is not a module: it has a version record but no entry point.
#include "closed/module.h"

TV_EXTERN_C TV_EXPORT const TvVersionRecord TvModuleVersion = { TV_VERSION_MAGIC, { 0, 0, 0, 0 }, { 0, 0, 0, 0 } };
