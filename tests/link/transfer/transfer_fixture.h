// tests/link/transfer/transfer_fixture.h: both lists, an instrument and a trash for the jobs, and what a job shows
// written down.
#pragma once

#include "tests/support/fakeChannel.h"
#include "tests/support/fixture.h"

#include "link/transfer/transfer.h"

namespace tarvik {

class TransferTest : public ProgramTest {
protected:
    TransferTest();

    /// Adds a row to a list, selected; what stands on the disk is not touched.
    static FileListRow& AddFile(FileList& list, const QString& name);
    static FileListRow& AddFolder(FileList& list, const QString& name);

    /// Stores a file of the PC that bears its own name as contents.
    void StoreLocal(const QString& name) const;

    /// The instrument knows the file too, in the folder of any class.
    void StoreOnBothSides(const QString& name);

    QString Local(const QString& name) const
    {
        return PcFilePath(name);
    }

    bool Exists(const QString& name) const;

    /// What the trash has taken, without the path.
    QStringList Trash;
    bool TrashIsFull = false; ///< takes nothing

    /// "label ...", "maximum n", "value n", "pump"
    QStringList Shown;

    /// Of `Shown` what begins with `kind`.
    QStringList ShownOf(const QString& kind) const;

    FakeChannel fake_;
    FileList pc_;
    FileList instr_;
};

/// 1 to 6, and one that is no class.
inline constexpr int kClassesOfAllKinds[] = { 1, 2, 3, 4, 5, 6, 7 };

} // namespace tarvik
