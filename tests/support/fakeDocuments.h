// tests/support/fakeDocuments.h: document windows and list editors for the tests of opening, saving and converting.
#pragma once

#include "link/documents/documents.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <functional>

namespace tarvik {

/// Document windows that only exist as a log: "open path", "own 1", "save 1 path", "close 1". Each document that is
/// opened gets the next number; one with "bad" in its path fails.
class FakeDocuments final : public Documents {
public:
    FakeDocuments()
    {
        TheDocuments().Set(*this);
    }
    ~FakeDocuments()
    {
        TheDocuments().Reset();
    }
    FakeDocuments(const FakeDocuments&) = delete;
    FakeDocuments& operator=(const FakeDocuments&) = delete;

    int Open(const QString& path, ImageKind kind) override
    {
        Log.append(QStringLiteral("open ") + path);
        Kinds.append(kind);
        return path.contains(QLatin1String("bad")) ? 0 : OnOpen();
    }
    PictureSaved Save(const QString& path, ImageKind kind, int window) override
    {
        Log.append(QStringLiteral("save %1 %2").arg(window).arg(path));
        Kinds.append(kind);
        return Outcome;
    }
    void UseOwnSize(int window) override
    {
        OwnSize.append(QStringLiteral("own %1 after %2").arg(window).arg(Log.value(Log.size() - 1)));
    }
    void Close(int window) override
    {
        Log.append(QStringLiteral("close %1").arg(window));
    }
    bool IsBlackAndWhite() const override
    {
        return BlackAndWhite;
    }
    void BeginBatch(std::optional<bool> blackAndWhite) override
    {
        EXPECT_FALSE(InBatch);
        InBatch = true;
        BatchPalette = blackAndWhite;
    }
    void EndBatch() override
    {
        EXPECT_TRUE(InBatch);
        InBatch = false;
    }
    bool IsDataSet(int /*window*/) const override
    {
        return DataSet;
    }

    int Opened = 0;
    bool DataSet = false;
    bool BlackAndWhite = false;
    bool InBatch = false;
    std::optional<bool> BatchPalette; ///< of the last batch
    PictureSaved Outcome = PictureSaved::Written;
    QStringList Log;
    QStringList OwnSize; ///< windows brought to their own size, and the line of the log before
    QList<ImageKind> Kinds; ///< with which a file was opened or saved
    std::function<int()> OnOpen = [this] { return ++Opened; };
};

/// List editors that a test sets.
class FakeListFiles final : public ListFiles {
public:
    FakeListFiles()
    {
        TheListFiles().Set(*this);
    }
    ~FakeListFiles()
    {
        TheListFiles().Reset();
    }
    FakeListFiles(const FakeListFiles&) = delete;
    FakeListFiles& operator=(const FakeListFiles&) = delete;

    bool Open(const QString& path, FileClass fileClass) override
    {
        return OnOpen(path, fileClass);
    }
    bool OpenText(const QString& path, bool show) override
    {
        return OnOpenText(path, show);
    }

    std::function<bool(const QString& path, FileClass fileClass)> OnOpen = [](const QString&, FileClass) {
        return true;
    };
    std::function<bool(const QString& path, bool show)> OnOpenText = [](const QString&, bool) { return true; };
};

} // namespace tarvik
