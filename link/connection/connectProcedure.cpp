#include "app/text/textId.h"
#include "link/connection/connect.h"

#include "app/message/message.h"
#include "app/platform/debug.h"
#include "app/platform/seams.h"
#include "app/settings/ini.h"
#include "app/state/project.h"
#include "app/state/statusBar.h"
#include "app/text/lang.h"
#include "app/values/general.h"
#include "link/channel/channel.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr std::array kMakers{ TextId::MakerShort, TextId::MakerLong };
constexpr std::array kModels{ TextId::ModelTr100, TextId::ModelTr200, TextId::ModelTr300, TextId::ModelTr100Df,
    TextId::ModelTr200Df, TextId::ModelTr300Df };

/// How long it may take until the way to an address is found again.
constexpr int kRoutePauseMs = 800;

/// Maker, model, serial number, firmware.
constexpr int kIdentificationFields = 4;

void Pump()
{
    TheSeams().PumpEvents();
}

/// At most four; the last one keeps its commas.
QStringList IdentificationFields(const QString& reply)
{
    QStringList fields = reply.split(u',');
    if (fields.size() <= kIdentificationFields)
        return fields;
    return fields.mid(0, kIdentificationFields - 1) << reply.section(u',', kIdentificationFields - 1);
}

/// A number without a text fits nothing.
template <typename Numbers>
bool IsOneOf(const QString& text, const Numbers& textNumbers)
{
    return !text.isEmpty() && std::any_of(textNumbers.begin(), textNumbers.end(), [&text](TextNumber<0> number) {
        return text == LngStr(number);
    });
}

/// Keeps what a known maker's instrument tells of itself; true if its model is known too.
bool AcceptInstrument(const QStringList& fields)
{
    if (fields.size() != kIdentificationFields || !IsOneOf(fields[0], kMakers))
        return false;
    ConnectionState& state = Connection();
    const bool isKnownModel = IsOneOf(fields[1].trimmed(), kModels);
    state.InstrumentAccepted = isKnownModel ? 1 : 0;
    state.InstrumentSerial = fields[2];
    state.InstrumentFirmware = IsNumberText(fields[3]) ? IniNumber(fields[3].trimmed()) : 0;
    return isKnownModel;
}

void JudgeAnswer(const QString& reply, const ConnectDisplay& status)
{
    const QStringList fields = IdentificationFields(reply);
    if (AcceptInstrument(fields)) {
        status(LngStr(TextId::Connected));
        return;
    }
    ChannelDisconnect();
    if (fields.size() == kIdentificationFields)
        status(LngStr(TextId::UnsupportedInstrument) + fields[0] + u' ' + fields[1]);
    else
        status(LngStr(TextId::UnknownInstrument));
}

/// Leaves the system time to find the way to the address anew: another instrument may have had it on another network.
/// No command is run, since systems drop a way that is gone by themselves.
void RenewRoute(const ConnectDisplay& debug)
{
    debug(QStringLiteral("route delete"));
    Pump();
    TheSeams().Sleep(kRoutePauseMs);
    Pump();
}

/// False when the selected entry is none that a connect can be tried with.
bool TryConnection(const ConnectDisplay& status, const ConnectDisplay& debug)
{
    constexpr int kEntryFields = 3;
    const QStringList fields = Connection().SelectedEntry.split(u':');
    if (fields.size() != kEntryFields)
        return false;
    status(LngStr(TextId::ConnectingTo) + fields[0]);
    Pump();
    RenewRoute(debug);
    bool isPort = false;
    const int port = fields[2].toShort(&isPort);
    if (!isPort)
        return false;
    QString reply;
    if (ChannelConnect(conPlainAddress(fields[1]), port, reply) != ChannelStatus::Success) {
        status(LngStr(TextId::ConnectionFailed));
        debug(QStringLiteral("SCPI connect not successfull."));
        return true;
    }
    debug(reply);
    JudgeAnswer(reply, status);
    return true;
}

class NoConnectForms final : public ConnectForms {
public:
    void ShowDialog() override { }
    void ShowConnecting() override { }
};

} // namespace

Port<ConnectForms>& TheConnectForms()
{
    static PortOr<ConnectForms, NoConnectForms> port;
    return port;
}

void conShowDialog()
{
    const BusyScope busy;
    TheConnectForms()->ShowDialog();
}

void conShowConnecting()
{
    if (Connection().ConnectInProgress)
        return;
    Connection().ConnectInProgress = true;
    TheConnectForms()->ShowConnecting();
    Connection().ConnectInProgress = false; // also of a form that closed before its procedure began
}

void conStart(bool reconnect)
{
    if (reconnect)
        conShowConnecting();
    if (!ChannelIsUp() && !Program().CloseWished)
        conShowDialog();
}

void conHandleConnection(const ConnectDisplay& status, const ConnectDisplay& debug)
{
    Connection().ConnectInProgress = true;
    if (!TryConnection(status, debug)) {
        status(LngStr(TextId::ConnectionFailed));
        DebugReport("conHandleConnection_error");
    }
    Connection().ConnectInProgress = false;
}

} // namespace tarvik
