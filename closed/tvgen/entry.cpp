// closed/tvgen/entry.cpp: the exports of the module; everything else is in the library that tests link.
#include "closed/tvgen.h"

TV_MODULE(TvGenApi, TvGenBind, TV_PRODUCT_VERSION)
