// tests/closed/folderfixture.h: a temporary folder for each test.
#pragma once

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

using FileBytes = std::vector<uint8_t>;

class FolderTest : public testing::Test {
protected:
    /// The full UTF-8 path of `name` in the folder.
    [[nodiscard]] std::string Path(const std::string& name) const;

    static FileBytes Contents(const std::string& path);
    static void Store(const std::string& path, const FileBytes& bytes);

    /// The names in the folder, hidden ones included, sorted.
    [[nodiscard]] std::vector<std::string> FolderNames() const;

private:
    QTemporaryDir folder_;
};
