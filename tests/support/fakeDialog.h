// tests/support/fakeDialog.h: a dialog without a window, to test what the stack does with forms.
#pragma once

#include "app/forms/dialog.h"

#include <functional>

namespace tarvik {

class FakeDialog final : public DialogForm {
public:
    std::function<void()> WhileOpen; ///< runs in place of the form's message loop
    bool Active = false;
    bool RefusesToClose = false;
    bool RemovesClose = false;
    bool ClosesUnasked = false; ///< when the program is to end
    bool ShowsDocument = false;

    bool WasBlocking = false;
    bool WasUnloaded = false;
    bool Busy = false;
    int Prepared = 0; ///< 1 with the close entry removed, 2 with it kept

    void RunDialog(bool blocking) override
    {
        WasBlocking = blocking;
        DialogPush(*this, RemovesClose);
        if (WhileOpen)
            WhileOpen();
        if (!WasUnloaded)
            Unload();
    }

    bool HasActivation() const override
    {
        return Active;
    }

    void Unload() override
    {
        if (RefusesToClose)
            return;
        WasUnloaded = true;
        DialogPop();
    }

    bool CanCloseUnasked() const override
    {
        return ClosesUnasked;
    }

    bool IsDocument() const override
    {
        return ShowsDocument;
    }

    void PrepareWindow(bool removeClose) override
    {
        Prepared = removeClose ? 1 : 2;
    }

    void ShowBusyPointer(bool busy) override
    {
        Busy = busy;
    }
};

} // namespace tarvik
