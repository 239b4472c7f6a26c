// closed/tvgen/helpers.h: the operations in the table of tvgen.h, which documents them.
#pragma once

#include <cstdint>

int16_t SplitPath(const char* path, char* drive, char* folder, char* baseName, char* extension, int32_t outSize);
int16_t FileDateAndTime(
    const char* path, int16_t* year, int16_t* month, int16_t* day, int16_t* hour, int16_t* minute, int16_t* second);
int16_t TextToDate(const char* text, double* date);
