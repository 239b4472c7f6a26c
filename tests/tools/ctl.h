// tests/tools/ctl.h: runs tarvikctl as a user does, in the test's own folder.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarvik {

struct CtlResult {
    int ExitCode = -1; ///< -1 if it crashed
    QString Out;
    QString Err;
};

class CtlTest : public testing::Test {
protected:
    /// Environment of the programs that the test runs.
    void SetEnvironment(const QString& name, const QString& value)
    {
        environment_.insert(name, value);
    }
    const QProcessEnvironment& Environment() const
    {
        return environment_;
    }

    /// Runs with the test's folder as working directory.
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
    QProcessEnvironment environment_ = QProcessEnvironment::systemEnvironment();
};

/// One used row of a memory list; all other settings are fixed.
struct CsvRow {
    int Number = 0;
    qint64 FrequencyHz = 100000000;
    QByteArray Description;
    QByteArray Status = "Active";
};

/// A memory list as CSV: `rows`, then unused rows up to 1024.
QByteArray MemoryCsv(const QByteArray& name, const QList<CsvRow>& rows);

} // namespace tarvik
