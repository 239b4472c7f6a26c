// tests/support/fileClasses.h: file classes to walk over and to print.
#pragma once

#include "link/classes/model.h"

#include <array>
#include <ostream>

namespace tarvik {

/// In the order of their numbers, from 1.
inline constexpr std::array kFileClasses{ FileClassAntennaList, FileClassKfactorTable, FileClassMemoryList,
    FileClassSuppressList, FileClassScreenShot, FileClassCorrectionSet };

/// The same, and the one that is no class.
inline constexpr std::array kClassesOfAllKinds{ FileClassAntennaList, FileClassKfactorTable, FileClassMemoryList,
    FileClassSuppressList, FileClassScreenShot, FileClassCorrectionSet, FileClassUnknown };

inline std::ostream& operator<<(std::ostream& out, FileClass fileClass)
{
    return out << FileClassNumber(fileClass);
}

} // namespace tarvik
