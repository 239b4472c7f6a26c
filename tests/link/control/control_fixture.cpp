#include "tests/link/control/control_fixture.h"

#include <QDir>

namespace tarvik {

namespace {

QString SideName(ControlSide side)
{
    return side == ControlSide::Pc ? QStringLiteral("pc") : QStringLiteral("instr");
}

} // namespace

ControlTest::ControlTest()
{
    QDir().mkdir(FilePath(QStringLiteral("pc")));
    for (QString& path : FileClasses().PcPaths)
        path = FilePath(QStringLiteral("pc"));
    Control.LvPc.View = &pcView_;
    Control.LvInstr.View = &instrView_;
}

void ControlTest::EnableBusySet(bool on)
{
    Asked.append(QStringLiteral("buttons %1").arg(on));
}

void ControlTest::EnableTransfers(bool upload, bool download)
{
    Asked.append(QStringLiteral("transfers %1 %2").arg(upload).arg(download));
}

void ControlTest::ShowBusyPointer(bool busy)
{
    Asked.append(QStringLiteral("pointer %1").arg(busy));
}

void ControlTest::ShowCombo(ControlSide side)
{
    Asked.append(QStringLiteral("combo ") + SideName(side));
}

void ControlTest::RunTransfer()
{
    Asked.append(QStringLiteral("job %1 \"%2\"").arg(static_cast<int>(Transfer().TransferType)).arg(Frame.Status));
    DuringJob();
}

void ControlTest::Close()
{
    Asked.append(QStringLiteral("close"));
}

void ControlTest::Open(FileClass fileClass)
{
    ModFileInit(fileClass);
    ControlLoad(Control);
    ControlActivate(Control);
    Asked.clear();
    Instrument.Log.clear();
}

void ControlTest::OnPc(const QStringList& names)
{
    for (const QString& name : names) {
        const QString path = FilePath(QStringLiteral("pc/"));
        if (name.startsWith(u'+'))
            QDir().mkdir(path + name.mid(1));
        else
            Store(path + name, {});
    }
}

void ControlTest::OnInstr(const QStringList& names)
{
    Instrument.Rows.clear();
    for (const QString& name : names) {
        ChannelRow row;
        const bool isFolder = name.startsWith(u'+');
        row.Name = isFolder ? name.mid(1) : name;
        row.Type = isFolder ? ChannelRowType::Folder : ChannelRowType::File;
        row.Year = 2026;
        row.Month = 3;
        row.Day = 31;
        Instrument.Rows.push_back(row);
        Instrument.Exists[row.Name] = { ChannelPresence::Exists, row.Type };
    }
}

void ControlTest::Select(ControlSide side, const QStringList& names)
{
    FileList& list = ListOf(Control, side);
    for (FileListRow& row : list.Rows)
        row.Selected = names.contains(row.Text);
    EXPECT_EQ(TransferCountSelected(list), names.size());
}

QStringList ControlTest::Names(ControlSide side)
{
    QStringList names;
    for (const FileListRow& row : ListOf(Control, side).Rows)
        names.append(row.Text);
    return names;
}

} // namespace tarvik
