#include "link/bindLink.h"

#include "app/menu/commands.h"
#include "app/platform/instrumentLink.h"
#include "app/state/statusBar.h"
#include "link/classes/model.h"
#include "link/connection/FmConnect.h"
#include "link/connection/FmConnecting.h"
#include "link/connection/connect.h"
#include "link/control/FmControlGeneral.h"
#include "link/documents/FmConvertProgress.h"
#include "link/documents/FmFileConvert.h"
#include "link/documents/fileDialogs.h"

#include <QApplication>

#include <array>

namespace tarvik {

namespace {

template <typename Form>
void ShowLinkForm()
{
    Form form(QApplication::activeWindow());
    DialogShow(form);
}

class LinkedInstrument final : public InstrumentLink {
public:
    bool IsAccepted() const override
    {
        return Connection().InstrumentAccepted == 1;
    }
    QString Name() const override
    {
        return conFieldsOf(Connection().SelectedEntry).Name;
    }
    QString Address() const override
    {
        const ConnectionFields fields = conFieldsOf(Connection().SelectedEntry);
        return fields.Address + u':' + fields.Port;
    }
    bool IsConnecting() const override
    {
        return Connection().ConnectInProgress;
    }
    void AutoConnect(bool connectedAtExit) override
    {
        conStart(connectedAtExit);
    }
};

class LinkConnectForms final : public ConnectForms {
public:
    void ShowDialog() override
    {
        ShowLinkForm<FmConnect>();
    }
    void ShowConnecting() override
    {
        ShowLinkForm<FmConnecting>();
    }
};

void BindConnections()
{
    TheConnectForms().Implement<LinkConnectForms>();
    TheInstrumentLink().Implement<LinkedInstrument>();
}

void OpenFileControl(FileClass fileClass)
{
    const BusyScope busy;
    ModFileInit(fileClass);
    ShowLinkForm<FmControlGeneral>();
}

bool ShowConvertForm()
{
    FmFileConvert form(QApplication::activeWindow());
    DialogShow(form);
    return form.IsAccepted();
}

BatchResult ConvertWithProgress()
{
    FmConvertProgress form(QApplication::activeWindow());
    DialogShow(form);
    return form.Result();
}

constexpr std::array kCommands{
    CommandBinding{ Command::Connect, conShowDialog },
    CommandBinding{ Command::FileOpen, FileOpenDlg },
    CommandBinding{ Command::FileConvert, [] { FileConvertDlg(ShowConvertForm, ConvertWithProgress); } },
    CommandBinding{ Command::Control1, [] { OpenFileControl(FileClassAntennaList); } },
    CommandBinding{ Command::Control2, [] { OpenFileControl(FileClassKfactorTable); } },
    CommandBinding{ Command::Control3, [] { OpenFileControl(FileClassMemoryList); } },
    CommandBinding{ Command::Control4, [] { OpenFileControl(FileClassSuppressList); } },
    CommandBinding{ Command::Control5, [] { OpenFileControl(FileClassScreenShot); } },
    CommandBinding{ Command::Control6, [] { OpenFileControl(FileClassCorrectionSet); } },
};

} // namespace

void BindLink()
{
    BindConnections();
    CommandsBind(kCommands);
}

} // namespace tarvik
