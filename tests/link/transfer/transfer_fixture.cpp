#include "tests/link/transfer/transfer_fixture.h"

#include "app/platform/seams.h"
#include "link/classes/model.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace tarvik {

TransferTest::TransferTest()
{
    CurrentPcFolder() = QDir::toNativeSeparators(Folder().chopped(1));
    ModFileInit(FileClassScreenShot);
    TransferState& state = Transfer();
    state.LvPc = &pc_;
    state.LvInstr = &instr_;
    TheTransferProgress().Set(*this);
    TheSeams().PumpEvents = [this] { Shown.append("pump"); };
    TheSeams().MoveToTrash = [this](const QString& path) {
        if (TrashIsFull)
            return false;
        const QFileInfo info(path);
        if (!info.exists())
            return false;
        Trash.append(info.fileName());
        return info.isDir() ? QDir(path).removeRecursively() : QFile::remove(path);
    };
}

FileListRow& TransferTest::AddFile(FileList& list, const QString& name)
{
    TransferAddRow(list, name, ChannelRowType::File, QDateTime(QDate(2025, 4, 5), QTime(6, 7, 8)));
    list.Rows.back().Selected = true;
    return list.Rows.back();
}

FileListRow& TransferTest::AddFolder(FileList& list, const QString& name)
{
    TransferAddRow(list, name, ChannelRowType::Folder, {});
    list.Rows.back().Selected = true;
    return list.Rows.back();
}

void TransferTest::StoreLocal(const QString& name) const
{
    Store(FilePath(name), name.toUtf8());
}

void TransferTest::StoreOnBothSides(const QString& name)
{
    StoreLocal(name);
    fake_.Exists[name] = { ChannelPresence::Exists, ChannelRowType::File };
}

bool TransferTest::Exists(const QString& name) const
{
    return QFileInfo::exists(FilePath(name));
}

QStringList TransferTest::ShownOf(const QString& kind) const
{
    return Shown.filter(QRegularExpression('^' + kind));
}

} // namespace tarvik
