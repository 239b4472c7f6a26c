// tests/link/files/file_list_fixture.h: a list of the test's own folder with a view that logs its calls.
#pragma once

#include "link/channel/channel.h"
#include "link/classes/model.h"
#include "link/files/fileList.h"
#include "tests/support/fileClasses.h"
#include "tests/support/fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tarvik {

class FileListTest : public ProgramTest, private FileListView {
protected:
    FileListTest()
    {
        CurrentPcFolder() = QDir::toNativeSeparators(Folder().chopped(1));
        ModFileInit(FileClassMemoryList);
        list_.View = this;
    }

    static int Mask()
    {
        return FileClasses().FileClassMask;
    }

    bool Exists(const QString& name) const
    {
        return QFileInfo::exists(FilePath(name));
    }

    void MakeFolder(const QString& name) const
    {
        ASSERT_TRUE(QDir().mkdir(FilePath(name)));
    }

    void StoreAt(const QString& name, const QDateTime& changed) const
    {
        Store(FilePath(name), "x");
        QFile file(FilePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(changed, QFileDevice::FileModificationTime));
    }

    /// Adds a row without a file on the disk.
    void AddFile(const QString& name, const QDate& day = QDate(2025, 1, 1), const QTime& time = QTime(12, 0))
    {
        TransferAddRow(list_, name, ChannelRowType::File, QDateTime(day, time));
    }

    void AddFolder(const QString& name)
    {
        TransferAddRow(list_, name, ChannelRowType::Folder, {});
    }

    QStringList Names() const
    {
        QStringList names;
        for (const FileListRow& row : list_.Rows)
            names.append(row.Text);
        return names;
    }

    QStringList Dates() const
    {
        QStringList dates;
        for (const FileListRow& row : list_.Rows)
            dates.append(row.SubItems[0]);
        return dates;
    }

    FileListRow& Row(size_t row)
    {
        return list_.Rows.at(row);
    }

    /// Text and key of the first row.
    void ExpectRow(const QString& text, const QString& key)
    {
        EXPECT_EQ(Row(0).Text, text);
        EXPECT_EQ(Row(0).Key, key);
    }

    FileList list_;
    QStringList Changes; ///< "begin" and "end"
    QStringList Log; ///< focus and label edit

private:
    void BeginChange() override
    {
        Changes.append("begin");
    }
    void EndChange() override
    {
        Changes.append("end");
    }
    void GiveFocus() override
    {
        Log.append("focus");
    }
    void StartLabelEdit(int row) override
    {
        Log.append(QStringLiteral("edit %1").arg(row));
    }
};

} // namespace tarvik
