// The program on a link: arguments, clients, faults, and termination.
#include "tests/support/instrumentProcess.h"
#include "tests/tools/instrument/wireClient.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace tarvik {

namespace {

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
}

constexpr int kShortTimeMs = 200;

std::ptrdiff_t OpenFiles(qint64 processId)
{
    const std::filesystem::directory_iterator files("/proc/" + std::to_string(processId) + "/fd");
    return std::distance(begin(files), end(files));
}

/// The timer of the instrument's end of a connection, by the system's list of sockets: 2 while it watches for a lost
/// client, 1 while it waits for a confirmation.
unsigned TimerOfConnection(int port)
{
    constexpr unsigned kEstablished = 1;
    std::ifstream sockets("/proc/net/tcp");
    std::string line;
    while (std::getline(sockets, line)) {
        unsigned localPort = 0;
        unsigned state = 0;
        unsigned timer = 0;
        if (std::sscanf(line.c_str(), " %*d: %*8x:%4x %*8x:%*4x %2x %*8x:%*8x %2x", &localPort, &state, &timer) == 3
            && localPort == static_cast<unsigned>(port) && state == kEstablished)
            return timer;
    }
    return 0;
}

/// True if the main thread of the process is blocked.
bool IsWaiting(qint64 processId)
{
    std::ifstream file("/proc/" + std::to_string(processId) + "/stat");
    std::string line;
    std::getline(file, line);
    return line.find(") S ") != std::string::npos;
}

} // namespace

TEST(InstrumentProgram, AnswersOnPrintedPort)
{
    const InstrumentProcess instrument(
        { "--maker", "Tarvik Instruments", "--model=TR-300", "--serial", "77", "--firmware", "1.25" });
    WireClient client(instrument.Port());
    EXPECT_EQ(client.Ask("*IDN?"), "Tarvik Instruments,TR-300,77,1.25");
}

TEST(InstrumentProgram, WatchesForLostClient)
{
    const InstrumentProcess instrument;
    WireClient client(instrument.Port());
    ASSERT_TRUE(client.IsServed());
    while (TimerOfConnection(instrument.Port()) == 1)
        std::this_thread::yield();
    EXPECT_EQ(TimerOfConnection(instrument.Port()), 2U);
}

TEST(InstrumentProgram, UsesFirstFreePortOfRange)
{
    const InstrumentProcess first({ "--port", "6000-9999" });
    const InstrumentProcess second({ "--port", "6000-9999" });
    EXPECT_GE(first.Port(), 6000);
    EXPECT_LE(second.Port(), 9999);
    EXPECT_NE(first.Port(), second.Port());
}

TEST(InstrumentProgram, RefusesPortInUse)
{
    const InstrumentProcess first;
    QTemporaryDir folder;
    QProcess second;
    second.start(TARVIK_INSTRUMENT, { "--root", folder.path(), "--port", QString::number(first.Port()) });
    ASSERT_TRUE(second.waitForFinished());
    EXPECT_EQ(second.exitCode(), 1);
    EXPECT_TRUE(second.readAllStandardError().contains("Address already in use"));
}

TEST(InstrumentProgram, FillsEmptyFolderOnce)
{
    QTemporaryDir folder;
    const QString root = folder.filePath("new/disk");
    const QStringList atRoot{ "--root", root };
    {
        InstrumentProcess instrument(atRoot);
        EXPECT_TRUE(QFile::exists(instrument.Path("Public/Memory List/Marine-VHF.tvm")));
        EXPECT_EQ(QDir(instrument.Path("Public/Screen Shots")).entryList({ "*.png" }).size(), 2);
        EXPECT_TRUE(QFile::remove(instrument.Path("Public/Memory List/Marine-VHF.tvm")));
        EXPECT_EQ(instrument.Stop(), 0);
    }
    const InstrumentProcess again(atRoot);
    EXPECT_FALSE(QFile::exists(again.Path("Public/Memory List/Marine-VHF.tvm")));
}

TEST(InstrumentProgram, StopsOnSignalWithClientConnected)
{
    InstrumentProcess instrument;
    WireClient client(instrument.Port());
    EXPECT_EQ(client.Ask("*OPC?"), "1");
    EXPECT_EQ(instrument.Stop(), 0);
    EXPECT_TRUE(client.IsClosed());
}

TEST(InstrumentProgram, StopsOnSignalDeliveredToAnyThread)
{
    InstrumentProcess instrument;
    const qint64 process = instrument.ProcessId();
    qint64 thread = process;
    for (const auto& task : std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task"))
        thread = std::max<qint64>(thread, std::stoll(task.path().filename().string()));
    while (!IsWaiting(process))
        std::this_thread::yield(); // wait until it is about to block for its first client
    ASSERT_EQ(::syscall(SYS_tgkill, process, thread, SIGTERM), 0);
    EXPECT_EQ(instrument.WaitForEnd(), 0);
}

TEST(InstrumentProgram, LogsCommandsIfVerbose)
{
    InstrumentProcess instrument({ "--verbose" });
    WireClient client(instrument.Port());
    EXPECT_EQ(client.Ask("MMEM:CDIR \"x\";CDIR?"), "\"\\\"");
    EXPECT_EQ(instrument.Stop(), 0);
    EXPECT_TRUE(instrument.StandardError().contains("MMEM:CDIR x: -256,\"File name not found\"\n"))
        << instrument.StandardError().toStdString();
}

TEST(InstrumentProgram, UsageErrorsAreReportedWithExitCode)
{
    QProcess process;
    process.start(TARVIK_INSTRUMENT, { "--port=many" });
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 2);
    EXPECT_TRUE(process.readAllStandardError().contains("invalid value of --port: many"));
    process.start(TARVIK_INSTRUMENT, { "--version" });
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0);
    EXPECT_TRUE(process.readAllStandardOutput().startsWith("tarvik-instrument "));
}

TEST(InstrumentProgram, EscapesControlCharactersInLog)
{
    InstrumentProcess instrument({ "--verbose" });
    WireClient client(instrument.Port());
    EXPECT_EQ(client.Ask("MMEM:CDIR \"a\x1B]0;b\x07\x9D\";CDIR?"), "\"\\\"");
    EXPECT_EQ(instrument.Stop(), 0);
    EXPECT_TRUE(instrument.StandardError().contains("MMEM:CDIR a?]0;b??: -257,"))
        << instrument.StandardError().toStdString();
}

TEST(InstrumentProgram, RefusesRootThatIsNotAFolder)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    QProcess process;
    process.start(TARVIK_INSTRUMENT, { "--root", file.fileName(), "--port", "0" });
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("Not a directory"));
    EXPECT_EQ(process.readAllStandardOutput(), QByteArray());
}

TEST(InstrumentProgram, SendsPictureOfItsDisplay)
{
    const InstrumentProcess instrument;
    WireClient client(instrument.Port());
    client.Send("DISP:WIND:FETC?\n");
    const std::string first = client.Block();
    EXPECT_TRUE(first.starts_with("\x89PNG"));
    client.Send("DISP:WIND:FETC?\n");
    EXPECT_NE(client.Block(), first);
}

TEST(InstrumentLink, SecondClientIsTurnedAwayAndFirstContinues)
{
    const InstrumentProcess instrument;
    WireClient first(instrument.Port());
    EXPECT_EQ(first.Ask("*OPC?"), "1");
    WireClient second(instrument.Port());
    EXPECT_TRUE(second.IsClosed());
    EXPECT_EQ(first.Ask("*OPC?"), "1");
}

TEST(InstrumentLink, NextClientStartsFresh)
{
    const InstrumentProcess instrument;
    WireClient first(instrument.Port());
    EXPECT_EQ(first.Ask("NONSENSE;MMEM:CDIR \"\\Public\";CDIR?"), "\"\\Public\"");
    first.Close();
    WireClient second = NextClient(instrument.Port());
    EXPECT_EQ(second.Ask("SYST:ERR?"), "0,\"No error\"");
    EXPECT_EQ(second.Ask("MMEM:CDIR?"), "\"\\\"");
}

TEST(InstrumentLink, ClientLostDuringBlockKeepsFile)
{
    const InstrumentProcess instrument;
    const QString path = instrument.Path("Public/Memory List/Marine-VHF.tvm");
    const QByteArray before = Content(path);
    WireClient client(instrument.Port());
    EXPECT_EQ(client.Ask("*OPC?"), "1");
    client.Send("MMEM:DATA MEM,\"Marine-VHF.tvm\",#6100000abc");
    client.Close();
    WireClient next = NextClient(instrument.Port());
    EXPECT_EQ(next.Ask("MMEM:EXIS? MEM,\"Marine-VHF.tvm\""), "1,FILE");
    EXPECT_EQ(Content(path), before);
    EXPECT_FALSE(QFile::exists(instrument.Path(".instrument/incoming")));
}

TEST(InstrumentLink, ClientLostDuringAnswerFreesInstrument)
{
    const InstrumentProcess instrument;
    const std::string large(4000000, 'x');
    WireClient client(instrument.Port());
    EXPECT_EQ(client.Ask("MMEM:DATA ALL,\"f\",#74000000" + large + ";*OPC?"), "1");
    client.Send("MMEM:DATA? ALL,\"f\"\n");
    client.Close();
    WireClient next = NextClient(instrument.Port());
    EXPECT_EQ(next.Ask("*OPC?"), "1");
}

TEST(InstrumentLink, HalfClosedClientGetsItsAnswers)
{
    const InstrumentProcess instrument({ "--delay", "50" });
    WireClient client(instrument.Port());
    client.Send("*OPC?\n*IDN?\n");
    client.EndSending();
    EXPECT_EQ(client.Line(), "1");
    EXPECT_EQ(client.Line(), "TARVIK,TR-200DF,100042,4.30");
    EXPECT_TRUE(client.IsClosed());
}

TEST(InstrumentLink, ClientThatNeverReadsIsThrottled)
{
    const InstrumentProcess instrument;
    WireClient client(instrument.Port());
    const std::string large(1000000, 'x');
    EXPECT_EQ(client.Ask("MMEM:DATA ALL,\"f\",#71000000" + large + ";*OPC?"), "1");
    std::string questions;
    for (int i = 0; i < 500; ++i)
        questions += "MMEM:DATA? ALL,\"f\"\n";
    client.Send(questions + "*OPC?\n");
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(client.Block() == large);
    // Each pending file answer keeps its file open.
    EXPECT_LT(OpenFiles(instrument.ProcessId()), 60);
    client.Close();
    EXPECT_EQ(NextClient(instrument.Port()).Ask("*IDN?"), "TARVIK,TR-200DF,100042,4.30");
}

TEST(InstrumentLink, SurvivesGarbage)
{
    const InstrumentProcess instrument;
    WireClient client(instrument.Port());
    client.Send(std::string(300000, 'A') + "\n" + std::string(3000, '\0') + "\n#\n#0\n\"\n;;;\nMMEM:DATA ALL,#9\n");
    EXPECT_EQ(client.Ask("*CLS;*OPC?"), "1");
    client.Send("MMEM:DA");
    client.Close();
    WireClient next = NextClient(instrument.Port());
    EXPECT_EQ(next.Ask("*OPC?"), "1");
}

TEST(InstrumentLink, DelayHoldsBackEachAnswer)
{
    const InstrumentProcess instrument({ "--delay", "120" });
    WireClient client(instrument.Port());
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(client.Ask("*CLS;MMEM:CDIR \"\\\";SYST:ERR?"), "0,\"No error\"");
    EXPECT_GE(timer.elapsed(), 120);
    EXPECT_EQ(client.Ask("*OPC?"), "1");
    EXPECT_GE(timer.elapsed(), 240);
}

TEST(InstrumentLink, RateAppliesInBothDirections)
{
    const InstrumentProcess instrument({ "--rate", "200000" });
    const std::string bytes(60000, 'x');
    WireClient client(instrument.Port());
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(client.Ask("MMEM:DATA ALL,\"f\",#560000" + bytes + ";*OPC?"), "1");
    const qint64 upMs = timer.restart();
    client.Send("MMEM:DATA? ALL,\"f\"\n");
    EXPECT_EQ(client.Block(), bytes);
    // 60000 bytes take 300 ms, of which 50 may have accumulated before.
    EXPECT_GE(upMs, 240);
    EXPECT_GE(timer.elapsed(), 240);
}

TEST(InstrumentFaults, DropClosesConnectionAtItsCommandOnce)
{
    const InstrumentProcess instrument({ "--fault", "drop=3" });
    WireClient client(instrument.Port());
    client.Send("*OPC?;*OPC?;*OPC?\n");
    EXPECT_EQ(client.Line(), "1");
    EXPECT_EQ(client.Line(), "1");
    EXPECT_TRUE(client.IsClosed());
    WireClient next = NextClient(instrument.Port());
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(next.Ask("*OPC?"), "1");
}

TEST(InstrumentFaults, DropBeforeBlockKeepsFile)
{
    const InstrumentProcess instrument({ "--fault", "drop=1" });
    const QString path = instrument.Path("Public/Memory List/Marine-VHF.tvm");
    const QByteArray before = Content(path);
    WireClient client(instrument.Port());
    (void)client.TrySend("MMEM:DATA MEM,\"Marine-VHF.tvm\",#13abc\n");
    EXPECT_TRUE(client.IsClosed());
    EXPECT_EQ(Content(path), before);
}

TEST(InstrumentFaults, StallStopsAnswersUntilClientDisconnects)
{
    const InstrumentProcess instrument({ "--fault", "stall=2" });
    WireClient client(instrument.Port());
    EXPECT_EQ(client.Ask("*OPC?"), "1");
    client.Send("*OPC?\n*OPC?\n");
    EXPECT_TRUE(client.IsSilent(kShortTimeMs));
    client.Close();
    WireClient next = NextClient(instrument.Port());
    EXPECT_EQ(next.Ask("*OPC?"), "1");
}

TEST(InstrumentFaults, GarbageReplacesAnswer)
{
    const InstrumentProcess instrument({ "--fault", "garbage=2" });
    WireClient client(instrument.Port());
    EXPECT_EQ(client.Ask("*OPC?"), "1");
    EXPECT_NE(client.Ask("*OPC?"), "1");
}

TEST(InstrumentFaults, CutTruncatesBlock)
{
    const InstrumentProcess instrument({ "--fault", "cut" });
    WireClient client(instrument.Port());
    client.Send("MMEM:ACT:DATA #14abcd;DATA?;DATA?\n");
    EXPECT_EQ(client.Line(), "#14ab");
    EXPECT_EQ(client.Line(), "#14abcd");
}

TEST(InstrumentFaults, RefuseQueuesError)
{
    const InstrumentProcess instrument({ "--fault", "refuse=2" });
    WireClient client(instrument.Port());
    EXPECT_EQ(client.Ask("*CLS;MMEM:MDIR \"x\";SYST:ERR?"), "-250,\"Mass storage error\"");
    EXPECT_EQ(client.Ask("*CLS;MMEM:MDIR \"x\";SYST:ERR?"), "0,\"No error\"");
}

} // namespace tarvik
