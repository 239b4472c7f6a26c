// closed/tvimg/entry.cpp: the exports of the module; everything else is in the library that tests link.
#include "closed/tvimg.h"

TV_MODULE(TvImgApi, TvImgBind, TV_PRODUCT_VERSION)
