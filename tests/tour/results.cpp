#include "tests/tour/results.h"

#include "lists/memory/memoryList.h"
#include "tests/tour/instrument.h"
#include "tests/tour/steps.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>

namespace tarvik {

namespace {

bool Require(bool condition, const char* what)
{
    if (!condition)
        std::fprintf(stderr, "the tour went wrong: %s\n", what);
    return condition;
}

bool IsSorted(const MemoryTable& table)
{
    for (int row = 1; row < kMemoryRows && table.Row(row).Used; ++row) {
        if (table.Row(row).Frequency < table.Row(row - 1).Frequency)
            return false;
    }
    return true;
}

bool AreEqual(const MemoryTable& left, const MemoryTable& right)
{
    for (int row = 0; row < kMemoryRows; ++row) {
        const MemoryRecord& a = left.Row(row);
        const MemoryRecord& b = right.Row(row);
        if (a.Used != b.Used
            || (a.Used
                && (a.Frequency != b.Frequency || a.Number != b.Number || a.Description != b.Description
                    || a.Demodulation != b.Demodulation)))
            return false;
    }
    return left.MemoryListName == right.MemoryListName;
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool CheckLists(const QString& folder, const TourInstrument& instrument)
{
    const QString base = folder + QString::fromLatin1(kTourListName);
    const QString memory = QStringLiteral("Public/Memory List/");
    const QByteArray sent =
        Content(instrument.Path(memory + QString::fromLatin1(kTourListName) + QStringLiteral(".tvm")));
    MemoryTable binary;
    MemoryTable csv;
    return Require(OpenMemoryList(base + QStringLiteral(".tvm"), binary), "the list file cannot be read")
        && Require(OpenMemoryList(base + QStringLiteral(".csv"), csv), "the CSV file cannot be read")
        && Require(binary.Row(0).Used && binary.Row(0).Frequency == kTourFrequencyHz, "the typed frequency is lost")
        && Require(IsSorted(binary), "the list is not sorted")
        && Require(AreEqual(binary, csv), "the two forms hold different lists")
        && Require(
            !sent.isEmpty() && sent == Content(base + QStringLiteral(".tvm")), "the instrument holds another list")
        && Require(!QFile::exists(instrument.Path(memory + QString::fromLatin1(kTourFirstList))),
            "the instrument holds two memory lists");
}

/// One picture was removed, one remains, and the new folder is gone.
bool ShotsAreLeft(const QStringList& found, const char* where)
{
    return Require(found == QStringList{ QStringLiteral("Navigation safety.png") }, where);
}

} // namespace

bool CheckTourResults(const QString& listFolder, const QString& shotFolder, const TourInstrument& instrument)
{
    const QStringList pictures{ QStringLiteral("*.png") };
    const QDir instrumentShots(instrument.Path(QStringLiteral("Public/Screen Shots")));
    return CheckLists(listFolder, instrument)
        && ShotsAreLeft(QDir(shotFolder).entryList(pictures, QDir::Files), "other screen shots on the PC")
        && ShotsAreLeft(instrumentShots.entryList(pictures, QDir::Files), "other screen shots on the instrument")
        && Require(!QFileInfo::exists(shotFolder + QStringLiteral("Tour shots")), "a folder is left on the PC")
        && Require(instrumentShots.entryList(QDir::Dirs | QDir::NoDotAndDotDot)
                == QStringList{ QStringLiteral("Harbour survey") },
            "a folder is left on the instrument");
}

} // namespace tarvik
