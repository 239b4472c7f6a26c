// tests/link/connection/fakeConnectForms.h: the connection forms without windows.
#pragma once

#include "link/connection/connect.h"

#include <functional>

namespace tarvik {

class FakeConnectForms final : public ConnectForms {
public:
    FakeConnectForms()
    {
        TheConnectForms().Set(*this);
    }
    FakeConnectForms(const FakeConnectForms&) = delete;
    FakeConnectForms& operator=(const FakeConnectForms&) = delete;

    void ShowDialog() override
    {
        OnDialog();
    }
    void ShowConnecting() override
    {
        OnConnecting();
    }

    std::function<void()> OnDialog = [] {};
    std::function<void()> OnConnecting = [] {};
};

} // namespace tarvik
