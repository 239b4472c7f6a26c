// tests/link/control/control_fixture.h: the file control window without its form: an instrument with invented files, a
// PC folder, and a log of what the window is asked to do.
#pragma once

#include "link/classes/model.h"
#include "link/control/controlCommands.h"
#include "link/documents/file.h"
#include "link/transfer/transfer.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fileClasses.h"
#include "tests/support/fixture.h"

namespace tarvik {

/// A list view that logs its calls.
class FakeListView final : public FileListView {
public:
    FakeListView(QString side, QStringList& asked)
        : side_(std::move(side))
        , asked_(asked)
    {
    }

    void BeginChange() override { }
    void EndChange() override { }
    void GiveFocus() override
    {
        asked_.append(QStringLiteral("focus ") + side_);
    }
    void StartLabelEdit(int row) override
    {
        asked_.append(QStringLiteral("edit %1 %2").arg(side_).arg(row));
    }

private:
    QString side_;
    QStringList& asked_;
};

class ControlTest : public ProgramTest, private ControlView {
protected:
    ControlTest();

    /// Loads and activates the window for a class, then clears the logs.
    void Open(FileClass fileClass);

    /// Stores empty files into the PC folder of every class.
    void OnPc(const QStringList& names);

    /// Puts files on the instrument, or folders if the name starts with "+".
    void OnInstr(const QStringList& names);

    void Select(ControlSide side, const QStringList& names);
    QStringList Names(ControlSide side);

    FakeChannel Instrument;
    FakeFrame Frame;
    FileControl Control{ *this };
    QStringList Asked; ///< of the window: "busy 1", "transfers 0 1", "job 7", "close"
    std::function<void()> DuringJob = [] {};

private:
    void EnableBusySet(bool on) override;
    void EnableTransfers(bool upload, bool download) override;
    void ShowBusyPointer(bool busy) override;
    void ShowCombo(ControlSide side) override;
    void RunTransfer() override;
    void Close() override;

    FakeListView pcView_{ QStringLiteral("pc"), Asked };
    FakeListView instrView_{ QStringLiteral("instr"), Asked };
};

} // namespace tarvik
