// closed/tvscpi/entry.cpp: the exports of the module; everything else is in the library that tests link.
#include "closed/tvscpi.h"

TV_MODULE(TvScpiApi, TvScpiBind, TV_PRODUCT_VERSION)
