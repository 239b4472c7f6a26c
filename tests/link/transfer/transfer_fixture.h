// tests/link/transfer/transfer_fixture.h: both lists, an instrument and a trash for the jobs, and what a job shows
// written down.
#pragma once

#include "tests/support/fakeChannel.h"
#include "tests/support/fileClasses.h"
#include "tests/support/fixture.h"

#include "link/transfer/transfer.h"

namespace tarvik {

class TransferTest : public ProgramTest, private TransferProgress {
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

private:
    void SetLabel(const QString& text) override
    {
        Shown.append("label " + text);
    }
    void SetMaximum(int maximum) override
    {
        Shown.append(QStringLiteral("maximum %1").arg(maximum));
    }
    void SetValue(int value) override
    {
        Shown.append(QStringLiteral("value %1").arg(value));
    }
};

} // namespace tarvik
