// tests/link/files/fakeDrives.h: the drives of an imaginary PC.
#pragma once

#include "link/files/drives.h"

#include <functional>
#include <utility>

namespace tarvik {

class FakeDrives final : public DriveSource {
public:
    explicit FakeDrives(std::vector<Drive> drives = { { "/", {}, DriveKind::Fixed } })
        : All(std::move(drives))
    {
        TheDriveSource().Set(*this);
    }
    FakeDrives(const FakeDrives&) = delete;
    FakeDrives& operator=(const FakeDrives&) = delete;

    std::vector<Drive> Drives() override
    {
        ++Reads;
        OnRead();
        return All;
    }

    std::vector<Drive> All;
    int Reads = 0;
    std::function<void()> OnRead = [] {};
};

} // namespace tarvik
