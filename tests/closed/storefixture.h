// tests/closed/storefixture.h: the list store through its table of operations, empty at the start of each test.
#pragma once

#include "closed/tvfio.h"
#include "closed/tvfio/status.h"
#include "tests/closed/folderfixture.h"

#include <string>
#include <type_traits>

// Safe here: test programs of the store contain no other types of these names.
using namespace tvfio;

/// Calls an operation that has a status word, and returns the status.
template <typename... Parameters>
FioStatus Call(void (*operation)(int16_t*, Parameters...), std::type_identity_t<Parameters>... arguments)
{
    int16_t status = -1;
    operation(&status, arguments...);
    return static_cast<FioStatus>(status);
}

/// The values that the getters store; any status but success fails the test.
inline double GetDouble(void (*operation)(int16_t*, int16_t, double*), int16_t index)
{
    double value = -1;
    EXPECT_EQ(Call(operation, index, &value), FioStatus::Ok);
    return value;
}

inline int16_t GetShort(void (*operation)(int16_t*, int16_t, int16_t*), int16_t index)
{
    int16_t value = -1;
    EXPECT_EQ(Call(operation, index, &value), FioStatus::Ok);
    return value;
}

inline std::string GetText(void (*operation)(int16_t*, char*, int32_t))
{
    char text[TVFIO_TEXT_SIZE] = "unset";
    EXPECT_EQ(Call(operation, text, TVFIO_TEXT_SIZE), FioStatus::Ok);
    return text;
}

inline std::string GetText(void (*operation)(int16_t*, int16_t, char*, int32_t), int16_t index)
{
    char text[TVFIO_TEXT_SIZE] = "unset";
    EXPECT_EQ(Call(operation, index, text, TVFIO_TEXT_SIZE), FioStatus::Ok);
    return text;
}

/// Clears every list of the store.
void ClearStore();

class StoreTest : public FolderTest {
protected:
    StoreTest();

    [[nodiscard]] std::string Path(const std::string& name = "list") const
    {
        return FolderTest::Path(name);
    }

    TvFioApi fio{};
};
