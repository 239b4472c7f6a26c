// tests/closed/scpifixture.h: the channel through its table of operations, unconnected at the start of each test.
#pragma once

#include "closed/tvscpi.h"
#include "closed/tvscpi/channel.h"
#include "tests/closed/scriptedwire.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>
#include <vector>

// The channel's status words as the operations return them.
inline constexpr int16_t kOk = TvScpiOk;
inline constexpr int16_t kLinkFailed = TvScpiLinkFailed;
inline constexpr int16_t kRefused = TvScpiRefused;
inline constexpr int16_t kLocalFile = TvScpiLocalFile;

inline constexpr const char* kNoError = "0,\"No error\"\n";
inline constexpr const char* kIdentification = "TARVIK,TR-100,123456,4.3";

/// Calls an operation whose first argument is the status word, and returns the status.
template <typename Result, typename... Parameters>
int16_t Call(Result (*operation)(int16_t*, Parameters...), std::type_identity_t<Parameters>... arguments)
{
    int16_t status = -1;
    operation(&status, arguments...);
    return status;
}

/// A block as it appears in a stream, without a line end.
std::string Block(const std::string& bytes);

/// The request of an exchange.
inline std::string Exchange(const std::string& command)
{
    return "*CLS\n" + command + "\nSYST:ERR?\n";
}

/// A file operation and its command on the wire.
template <typename Operation>
struct Worded {
    Operation Call;
    std::string Word;
};

class ScpiTest : public testing::Test {
protected:
    ScpiTest();
    ~ScpiTest() override;

    /// The full UTF-8 path of `name` in a temporary folder.
    [[nodiscard]] std::string Path(const std::string& name = "target") const;
    static std::string Contents(const std::string& path);
    static void Store(const std::string& path, const std::string& bytes);
    [[nodiscard]] std::vector<std::string> FolderNames() const;

    TvScpiApi scpi{};

private:
    QTemporaryDir folder_;
};

/// Connected to an instrument with scripted answers.
class ScriptedScpiTest : public ScpiTest {
protected:
    ScriptedScpiTest();

    /// Reconnects with an empty script.
    void Connect();

    /// Queues the answer to the next exchange.
    void Answer(const std::string& bytes)
    {
        script.Answers.push_back(bytes);
    }

    /// What has been sent since the last call.
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
