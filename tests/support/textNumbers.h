// tests/support/textNumbers.h: texts by bare numbers. Tests name no text, so that a wrong name can't hide;
// the program knows texts by their names alone.
#pragma once

#include "app/text/lang.h"

#include <ostream>

namespace tarvik {

template <int Least, int Most>
constexpr bool operator==(TextNumber<Least, Most> text, int number)
{
    return text.Number == number;
}

constexpr bool operator==(TopicNumber topic, int number)
{
    return topic.Number == number;
}

template <int Least, int Most>
void PrintTo(TextNumber<Least, Most> text, std::ostream* out)
{
    *out << text.Number;
}

inline QString LngStr(int id)
{
    return LngStr(TextNumber<0>(id));
}
inline QString LngStr1(int id, const QString& arg)
{
    return LngStr1(TextNumber<1>(id), arg);
}
inline QString LngStr2(int id, const QString& arg1, const QString& arg2)
{
    return LngStr2(TextNumber<2>(id), arg1, arg2);
}

} // namespace tarvik
