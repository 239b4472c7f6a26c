// tests/link/control/control_form_fixture.h: the form of the file control window, with an instrument with invented
// files.
#pragma once

#include "link/classes/model.h"
#include "link/control/FileListWidget.h"
#include "link/control/FmControlGeneral.h"
#include "link/control/FolderComboBox.h"
#include "link/documents/file.h"
#include "link/transfer/transfer.h"
#include "tests/link/files/fakeDrives.h"
#include "tests/support/fakeChannel.h"
#include "tests/support/fakeFrame.h"
#include "tests/support/fileClasses.h"
#include "tests/support/forms.h"

#include <QDir>
#include <QLineEdit>
#include <QTest>
#include <QWindow>

namespace tarvik {

class ControlForm : public FormTest {
protected:
    ControlForm()
    {
        QDir().mkdir(PcFile({}));
        for (QString& path : FileClasses().PcPaths)
            path = FilePath(QStringLiteral("pc"));
        System.All.push_back({ "/media/stick", "STICK", DriveKind::Removable });
    }

    ~ControlForm() override
    {
        if (!form.IsClosed())
            DialogEnd(form, 1);
    }

    QString PcFile(const QString& name) const
    {
        return FilePath(QStringLiteral("pc/") + name);
    }

    void OnPc(const QStringList& names)
    {
        for (const QString& name : names)
            name.startsWith(u'+') ? void(QDir().mkdir(PcFile(name.mid(1)))) : Store(PcFile(name), {});
    }

    void OnInstr(const QStringList& names)
    {
        for (const QString& name : names) {
            const bool isFolder = name.startsWith(u'+');
            ChannelRow row;
            row.Name = isFolder ? name.mid(1) : name;
            row.Type = isFolder ? ChannelRowType::Folder : ChannelRowType::File;
            row.Year = 2026;
            row.Month = 3;
            row.Day = 31;
            Instrument.Rows.push_back(row);
            Instrument.Exists[row.Name] = { ChannelPresence::Exists, row.Type };
        }
    }

    void Open(FileClass fileClass)
    {
        ModFileInit(fileClass);
        ShowForm(form);
        QCoreApplication::processEvents();
    }

    FileListWidget& List(const char* name)
    {
        return Find<FileListWidget>(form, name);
    }

    QStringList Rows(const char* name)
    {
        QStringList rows;
        const QAbstractItemModel& model = *List(name).model();
        for (int row = 0; row < model.rowCount(); ++row)
            rows.append(model.index(row, 0).data().toString());
        return rows;
    }

    QStringList Selected(const char* name)
    {
        QStringList rows;
        for (const QModelIndex& index : List(name).selectionModel()->selectedRows())
            rows.append(index.data().toString());
        rows.sort();
        return rows;
    }

    QPoint CentreOf(const char* name, int row)
    {
        return List(name).visualRect(List(name).model()->index(row, 0)).center();
    }

    void ClickRow(const char* name, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(List(name).viewport(), Qt::LeftButton, modifiers, CentreOf(name, row));
    }

    void DoubleClickRow(const char* name, int row)
    {
        ClickRow(name, row);
        QTest::mouseDClick(List(name).viewport(), Qt::LeftButton, Qt::NoModifier, CentreOf(name, row));
    }

    bool IsShown(const QString& name)
    {
        return FindControl(form, name).isVisible();
    }

    bool IsEnabled(const QString& name)
    {
        return FindControl(form, name).isEnabled();
    }

    QLineEdit* LabelEdit()
    {
        return form.findChild<QLineEdit*>("LabelEdit");
    }

    /// The edit closes in one pass of the event loop, the rename follows in the next.
    void EndLabelEdit()
    {
        QTest::keyClick(LabelEdit(), Qt::Key_Return);
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    FakeChannel Instrument;
    FakeDrives System;
    FakeFrame Frame;
    FmControlGeneral form;
};

} // namespace tarvik
