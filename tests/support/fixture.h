// tests/support/fixture.h: every test starts from the program's start values, with the modules bound in-process.
#pragma once

#include "tests/support/messages.h"
#include "tests/support/textNumbers.h"

#include <QLocale>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// So that a failed comparison prints texts and not bytes.
void PrintTo(const QString& text, std::ostream* out);

namespace tarvik {

/// Binds the operations of all modules from the libraries that the test links.
void BindModules();

class ProgramTest : public testing::Test {
protected:
    ProgramTest();

    void TearDown() override;

    MessageScript& Answers()
    {
        return answers_;
    }

    /// A folder of this test's own, ending in the separator.
    QString Folder() const;
    QString FilePath(const QString& name) const
    {
        return Folder() + name;
    }

    /// The region that the program sees; English (United States) at the start of each test.
    static void SetRegion(const QLocale& region);

    static QByteArray Contents(const QString& path);
    static void Store(const QString& path, const QByteArray& bytes);

private:
    /// All state is at its start values before anything else of a test is made, and again after all of it has ended.
    struct StartValues {
        StartValues();
        ~StartValues();
    };
    StartValues startValues_;
    MessageScript answers_;
    QTemporaryDir folder_;
};

} // namespace tarvik
