// closed/tvfio/entry.cpp: the exports of the module; everything else is in the library that tests link.
#include "closed/tvfio.h"

TV_MODULE(TvFioApi, TvFioBind, TV_PRODUCT_VERSION)
