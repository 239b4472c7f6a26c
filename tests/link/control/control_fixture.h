// tests/link/control/control_fixture.h: the file control window without its form: an instrument of made-up files, a
// folder of the PC, and what the window is asked to do written down.
#pragma once

#include "link/classes/model.h"
#include "link/control/controlCommands.h"
#include "link/documents/file.h"
#include "link/transfer/transfer.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fixture.h"

namespace tarvik {

class ControlTest : public ProgramTest {
protected:
    ControlTest();

    /// Loads and activates the window for a class, and forgets what was asked until then.
    void Open(int fileClass);

    /// Stores empty files into the PC folder of every class.
    void OnPc(const QStringList& names);

    /// The instrument has these files, or folders where the name begins with "+".
    void OnInstr(const QStringList& names);

    void Select(ControlSide side, const QStringList& names);
    QStringList Names(ControlSide side);

    FakeChannel Instrument;
    FakeFrame Frame;
    FileControl Control;
    QStringList Asked; ///< of the window: "busy 1", "transfers 0 1", "job 7", "close"
    std::function<void()> DuringJob = [] {};
};

} // namespace tarvik
