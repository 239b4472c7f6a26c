// tests/link/transfer/transfer_fixture.h: both lists, an instrument and a trash for transfer jobs, and a log of the
// progress shown.
#pragma once

#include "tests/support/fakeChannel.h"
#include "tests/support/fileClasses.h"
#include "tests/support/fixture.h"

#include "link/transfer/transfer.h"

namespace tarvik {

class TransferTest : public ProgramTest, private TransferProgress {
protected:
    TransferTest();

    /// Adds a selected row without a file on the disk.
    static FileListRow& AddFile(FileList& list, const QString& name);
    static FileListRow& AddFolder(FileList& list, const QString& name);

    /// Stores a PC file with its own name as contents.
    void StoreLocal(const QString& name) const;

    /// Stores the file on the instrument too, in the folder of any class.
    void StoreOnBothSides(const QString& name);

    QString Local(const QString& name) const
    {
        return PcFilePath(name);
    }

    bool Exists(const QString& name) const;

    /// Names moved to the trash, without their path.
    QStringList Trash;
    bool TrashIsFull = false; ///< moving to the trash fails

    /// "label ...", "maximum n", "value n", "pump"
    QStringList Shown;

    /// The entries of `Shown` that start with `kind`.
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
