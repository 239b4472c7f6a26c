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

/// Time for the system to find a new route to the address.
constexpr int kRoutePauseMs = 800;

/// Maker, model, serial number, firmware.
constexpr int kIdentificationFields = 4;

void Pump()
{
    TheSeams().PumpEvents();
}

/// At most four fields; the last one keeps its commas.
QStringList IdentificationFields(const QString& reply)
{
    QStringList fields = reply.split(u',');
    if (fields.size() <= kIdentificationFields)
        return fields;
    return fields.mid(0, kIdentificationFields - 1) << reply.section(u',', kIdentificationFields - 1);
}

/// An empty text matches none.
template <typename Numbers>
bool IsOneOf(const QString& text, const Numbers& textNumbers)
{
    return !text.isEmpty() && std::any_of(textNumbers.begin(), textNumbers.end(), [&text](TextNumber<0> number) {
        return text == LngStr(number);
    });
}

/// Stores the identification of a known maker's instrument; true if the model is known too.
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

void ShowOutcome(const QString& reply, const ConnectDisplay& status)
{
    const InstrumentRefusal refusal = conCheckIdentification(reply);
    if (refusal.Id.IsNone()) {
        status(LngStr(TextId::Connected));
        return;
    }
    ChannelDisconnect();
    status(refusal.Text);
}

/// Gives the system time to find a new route: another instrument may have had the address on another network. No
/// command is needed, since systems drop stale routes themselves.
void WaitForRoute(const ConnectDisplay& debug)
{
    debug(QStringLiteral("route delete"));
    Pump();
    TheSeams().Sleep(kRoutePauseMs);
    Pump();
}

/// False if the selected entry is not valid.
bool TryConnection(const ConnectDisplay& status, const ConnectDisplay& debug)
{
    constexpr int kEntryFields = 3;
    const QStringList fields = Connection().SelectedEntry.split(u':');
    if (fields.size() != kEntryFields)
        return false;
    status(LngStr(TextId::ConnectingTo) + fields[0]);
    Pump();
    WaitForRoute(debug);
    bool isPort = false;
    const int port = fields[2].toShort(&isPort);
    if (!isPort)
        return false;
    QString reply;
    if (ChannelConnect(conNormalisedAddress(fields[1]), port, reply) != ChannelStatus::Success) {
        status(LngStr(TextId::ConnectionFailed));
        debug(QStringLiteral("SCPI connect not successfull."));
        return true;
    }
    debug(reply);
    ShowOutcome(reply, status);
    return true;
}

class NoConnectForms final : public ConnectForms {
public:
    void ShowDialog() override { }
    void ShowConnecting() override { }
};

} // namespace

InstrumentRefusal conCheckIdentification(const QString& identification)
{
    const QStringList fields = IdentificationFields(identification);
    if (AcceptInstrument(fields))
        return {};
    if (fields.size() != kIdentificationFields)
        return { TextId::UnknownInstrument, LngStr(TextId::UnknownInstrument) };
    return { TextId::UnsupportedInstrument, LngStr(TextId::UnsupportedInstrument) + fields[0] + u' ' + fields[1] };
}

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
    Connection().ConnectInProgress = false; // the form may have closed before the procedure began
}

void conStart(bool reconnect)
{
    if (reconnect)
        conShowConnecting();
    if (!ChannelIsUp() && !Program().CloseRequested)
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
