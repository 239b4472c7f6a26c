// closed/tvfio/container.h: the container format of list files: header with checksum, then sections, then records.
#pragma once

#include "closed/tvfio/bytes.h"
#include "closed/tvfio/status.h"

#include <array>
#include <optional>

namespace tvfio {

/// Content of a file; the number is part of the file format.
enum class Family : uint16_t { Antenna = 1, Kfactor = 2, Memory = 3, Suppress = 4, Correction = 6 };

/// The noun of `family` as the exception texts use it, for example "memory list".
const char* FamilyName(Family family);

/// Sections of a file; the number is part of the file format. Unknown numbers are skipped.
enum class SectionId : uint16_t {
    Info = 1, ///< name and description of the list
    Records = 2, ///< the entries of a list
    Identity = 3, ///< a correction set: its identity
    Header = 4, ///< a correction set: its header
    Kfactor = 5, ///< a correction set: its tables
    Omniphase = 6,
    Azimuth = 7,
};
inline constexpr size_t kSectionIds = 8;

/// The sections found, by number.
using Sections = std::array<std::optional<ByteView>, kSectionIds>;

inline constexpr size_t kHeaderBytes = 20;
inline constexpr uint16_t kFormatVersion = 1;

/// Larger than the largest valid file, a correction set with all angles.
inline constexpr size_t kMaxFileBytes = size_t{ 32 } << 20;

/// Builds the bytes of one file.
class ListFileWriter {
public:
    explicit ListFileWriter(Family family);

    /// Starts a section, to which everything belongs that is written before the next call.
    ByteWriter& Section(SectionId id);

    /// Finishes the file and returns its bytes.
    Bytes Finish();

private:
    void EndSection();

    ByteWriter writer_;
    size_t openSection_ = 0;
};

/// Checks the header and splits `file` into its sections, which are views into it.
[[nodiscard]] FioStatus ReadListFile(ByteView file, Family family, Sections& sections);

/// The section `id`; its absence is an error.
[[nodiscard]] FioStatus RequireSection(const Sections& sections, SectionId id, ByteView& section);

} // namespace tvfio
