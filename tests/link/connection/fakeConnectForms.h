// tests/link/connection/fakeConnectForms.h: the forms of the connection without a window.
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
        WhileDialog();
    }
    void ShowConnecting() override
    {
        WhileConnecting();
    }

    std::function<void()> WhileDialog = [] {};
    std::function<void()> WhileConnecting = [] {};
};

} // namespace tarvik
