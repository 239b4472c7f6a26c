// closed/tvswp/entry.cpp: the exports of the module; everything else is in the library that tests link.
#include "closed/tvswp.h"

TV_MODULE(TvSwpApi, TvSwpBind, TV_PRODUCT_VERSION)
