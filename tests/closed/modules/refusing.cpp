// A module of another version: refuses every table.
#include "closed/module.h"

static int16_t Refuse(void*)
{
    return 1;
}

TV_MODULE(void, Refuse, 1, 20, 300, 4000)
