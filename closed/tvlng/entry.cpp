// closed/tvlng/entry.cpp: the exports of the module; everything else is in the library that tests link.
#include "closed/tvlng.h"

TV_MODULE(TvLngApi, TvLngBind, TV_PRODUCT_VERSION)
