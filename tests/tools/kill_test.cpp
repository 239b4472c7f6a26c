// A conversion killed at any moment leaves the old or the new file.
#include "tests/tools/ctl.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>

#include <array>

namespace tarvik {

namespace {

constexpr int kKills = 300;

class KilledConversion : public CtlTest {
protected:
    void SetUp() override
    {
        QList<CsvRow> rows;
        for (int row = 0; row < 1000; ++row)
            rows.append({ row, 100000000 + row * 12500, "first" });
        Store("a.csv", MemoryCsv("A", rows));
        for (CsvRow& row : rows)
            row.Description = "second";
        Store("b.csv", MemoryCsv("B", rows));
        ASSERT_TRUE(QDir(Path({})).mkdir("out"));
    }

    /// Kills conversions to one target, alternating between two lists, at random moments of a run.
    void KillRepeatedly(const QString& target)
    {
        const std::array<QByteArray, 2> whole{ Converted("a.csv", target), Converted("b.csv", target) };
        const double runNs = RunNanoseconds(target) * 1.2;
        int replaced = 0;
        int kept = 0;
        QByteArray before = Bytes(target);
        for (int kill = 0; kill < kKills; ++kill) {
            const auto turn = static_cast<size_t>(kill % 2);
            StartAndKill(
                turn == 0 ? "a.csv" : "b.csv", target, static_cast<qint64>(QRandomGenerator::global()->bounded(runNs)));
            const QByteArray after = Bytes(target);
            ASSERT_TRUE(after == before || after == whole[turn]) << "kill " << kill << ": " << after.size() << " bytes";
            (after == whole[turn] ? replaced : kept) += 1;
            before = after;
        }
        EXPECT_GT(replaced, 0);
        EXPECT_GT(kept, 0);
    }

    /// Names left in the target's folder after one more conversion.
    QStringList EntriesAfterLastSave(const QString& target)
    {
        Converted("a.csv", target);
        return QDir(Path("out"))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }

private:
    QByteArray Converted(const QString& from, const QString& target)
    {
        EXPECT_EQ(Ctl({ "convert", "--yes", from, target }).ExitCode, 0);
        return Bytes(target);
    }

    double RunNanoseconds(const QString& target)
    {
        QElapsedTimer timer;
        timer.start();
        Converted("a.csv", target);
        return static_cast<double>(timer.nsecsElapsed());
    }

    void StartAndKill(const QString& from, const QString& target, qint64 afterNs)
    {
        QProcess process;
        process.setWorkingDirectory(Path({}));
        process.start(QStringLiteral(TARVIKCTL), { "convert", "--yes", from, target });
        QElapsedTimer timer;
        timer.start();
        ASSERT_TRUE(process.waitForStarted());
        while (timer.nsecsElapsed() < afterNs && process.state() == QProcess::Running)
            process.waitForFinished(0);
        process.kill();
        process.waitForFinished();
    }
};

} // namespace

TEST_F(KilledConversion, LeavesOldOrNewBinaryFile)
{
    KillRepeatedly("out/target.tvm");
    EXPECT_EQ(EntriesAfterLastSave("out/target.tvm"), QStringList{ "target.tvm" });
}

TEST_F(KilledConversion, LeavesOldOrNewCsvFile)
{
    KillRepeatedly("out/target.csv");
    EXPECT_EQ(EntriesAfterLastSave("out/target.csv"), QStringList{ "target.csv" });
}

} // namespace tarvik
