// tests/tools/ctl.h: runs tarvikctl as a user does, in a folder of the test's own.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarvik {

struct CtlResult {
    int ExitCode = -1; ///< -1 when it did not end by itself
    QString Out;
    QString Err;
};

class CtlTest : public testing::Test {
protected:
    /// Runs with the test's folder as the present one.
    CtlResult Ctl(const QStringList& arguments) const;

    /// The object that `show --json` prints.
    QJsonObject Json(const QString& file, bool all = false) const;

    QString Path(const QString& name) const
    {
        return folder_.filePath(name);
    }
    QStringList FolderEntries() const;
    QByteArray Bytes(const QString& name) const;
    void Store(const QString& name, const QByteArray& bytes) const;

private:
    QTemporaryDir folder_;
};

/// One used row of a memory list; the settings that a test does not name are the same everywhere.
struct CsvRow {
    int Number = 0;
    qint64 FrequencyHz = 100000000;
    QByteArray Description;
    QByteArray Status = "Active";
};

/// A memory list as a CSV file: `rows`, then unused rows up to 1024.
QByteArray MemoryCsv(const QByteArray& name, const QList<CsvRow>& rows);

} // namespace tarvik
