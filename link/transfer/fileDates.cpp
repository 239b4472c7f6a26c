#include "link/transfer/fileDates.h"

#include "app/platform/paths.h"
#include "link/channel/channel.h"
#include "link/classes/model.h"

#include <QFile>

namespace tarvik {

namespace {

QString StampCommand(const char* what, const QString& name, std::initializer_list<int> numbers)
{
    QString command = QStringLiteral("MMEM:FILE:") + QLatin1String(what) + u' ' + ChannelQuoted(name);
    for (const int number : numbers)
        command += QStringLiteral(", ") + QString::number(number);
    return command;
}

/// The moment that clocks here show as `date`. In an hour that daylight saving skips, a clock that was not put forward
/// shows it.
QDateTime LocalMoment(const QDateTime& date)
{
    const QDateTime local(date.date(), date.time());
    if (local.isValid())
        return local;
    const QDateTime dayBefore(date.date().addDays(-1), date.time());
    return { date.date(), date.time(), Qt::OffsetFromUTC, dayBefore.offsetFromUtc() };
}

} // namespace

bool TransferKeepsDate(FileClass fileClass)
{
    return !ModHasOneList(fileClass);
}

void TransferSetLock(const QString& name, bool lock)
{
    ChannelSendCommand(
        (lock ? QStringLiteral("SYST:SET:LOCK ") : QStringLiteral("SYST:SET:UNLOCK ")) + ChannelQuoted(name));
}

void FileSetPcDate(const QString& path, const QDateTime& date, bool readOnly)
{
    QFile file(path);
    if (date.isValid() && file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
        file.setFileTime(LocalMoment(date), QFileDevice::FileModificationTime);
        file.close();
    }
    if (readOnly)
        SetReadOnlyAttribute(path);
}

void FileSetInstrDate(const QString& name, const QDateTime& date, bool lock)
{
    if (date.isValid()) {
        const QDate day = date.date();
        const QTime time = date.time();
        ChannelSend(StampCommand("DATE", name, { day.year(), day.month(), day.day() }));
        ChannelSend(StampCommand("TIME", name, { time.hour(), time.minute(), time.second() }));
    }
    if (lock)
        TransferSetLock(name, true);
}

} // namespace tarvik
