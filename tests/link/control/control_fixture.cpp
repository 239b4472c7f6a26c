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
    ControlView& view = Control.View;
    view.EnableBusySet = [this](bool on) { Asked.append(QStringLiteral("buttons %1").arg(on)); };
    view.EnableTransfers = [this](bool upload, bool download) {
        Asked.append(QStringLiteral("transfers %1 %2").arg(upload).arg(download));
    };
    view.ShowBusyPointer = [this](bool busy) { Asked.append(QStringLiteral("pointer %1").arg(busy)); };
    view.ShowCombo = [this](ControlSide side) { Asked.append(QStringLiteral("combo ") + SideName(side)); };
    view.Close = [this] { Asked.append(QStringLiteral("close")); };
    view.RunTransfer = [this] {
        Asked.append(QStringLiteral("job %1 \"%2\"").arg(Transfer().TransferType).arg(Frame.Status));
        DuringJob();
    };
    for (const ControlSide side : { ControlSide::Pc, ControlSide::Instr }) {
        FileList& list = ListOf(Control, side);
        list.View.GiveFocus = [this, side] { Asked.append(QStringLiteral("focus ") + SideName(side)); };
        list.View.StartLabelEdit = [this, side](int row) {
            Asked.append(QStringLiteral("edit %1 %2").arg(SideName(side)).arg(row));
        };
    }
}

void ControlTest::Open(int fileClass)
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
        row.Type = isFolder ? kChannelFolder : kChannelFile;
        row.Year = 2026;
        row.Month = 3;
        row.Day = 31;
        Instrument.Rows.push_back(row);
        Instrument.Exists[row.Name] = { 1, row.Type };
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
