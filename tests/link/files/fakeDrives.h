// tests/link/files/fakeDrives.h: drives of a PC that is not there.
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
        ++Asked;
        WhileAsked();
        return All;
    }

    std::vector<Drive> All;
    int Asked = 0;
    std::function<void()> WhileAsked = [] {};
};

} // namespace tarvik
