// tests/closed/scpifixture.h: the channel through its table of operations, unconnected at the start of each test.
#pragma once

#include "closed/tvscpi.h"
#include "closed/tvscpi/channel.h"
#include "tests/closed/scriptedwire.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>
#include <vector>

// The channel's status words as the operations give them.
inline constexpr int16_t kOk = TvScpiOk;
inline constexpr int16_t kLinkFailed = TvScpiLinkFailed;
inline constexpr int16_t kRefused = TvScpiRefused;
inline constexpr int16_t kLocalFile = TvScpiLocalFile;

inline constexpr const char* kNoError = "0,\"No error\"\n";
inline constexpr const char* kIdentification = "TARVIK,TR-100,123456,4.3";

/// Calls an operation whose first argument is the status word, and gives that.
template <typename Result, typename... Parameters>
int16_t Call(Result (*operation)(int16_t*, Parameters...), std::type_identity_t<Parameters>... arguments)
{
    int16_t status = -1;
    operation(&status, arguments...);
    return status;
}

/// A block as it stands in a stream, without a line end.
std::string Block(const std::string& bytes);

/// The request of an exchange.
inline std::string Exchange(const std::string& command)
{
    return "*CLS\n" + command + "\nSYST:ERR?\n";
}

/// An operation on files with its word on the wire.
template <typename Operation>
struct Worded {
    Operation Call;
    std::string Word;
};

class ScpiTest : public testing::Test {
protected:
    ScpiTest();
    ~ScpiTest() override;

    /// The full UTF-8 path of `name` in a folder of this test's own.
    [[nodiscard]] std::string Path(const std::string& name = "target") const;
    static std::string Contents(const std::string& path);
    static void Store(const std::string& path, const std::string& bytes);
    [[nodiscard]] std::vector<std::string> FolderNames() const;

    TvScpiApi scpi{};

private:
    QTemporaryDir folder_;
};

/// Connected to an instrument whose answers the test has written down.
class ScriptedScpiTest : public ScpiTest {
protected:
    ScriptedScpiTest();

    /// Connects anew, with an empty script.
    void Connect();

    /// Prepares the answer of the next exchange.
    void Answer(const std::string& bytes)
    {
        script.Answers.push_back(bytes);
    }

    /// What was sent since the last call.
    std::string TakeSent()
    {
        return std::exchange(script.Sent, {});
    }

    [[nodiscard]] bool IsUp() const
    {
        return scpi.scpiGetConnected() == 0;
    }

    tvscpi::WireScript script;
};
