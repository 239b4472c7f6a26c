#include "link/transfer/transferState.h"

#include "app/platform/processState.h"

namespace tarvik {

namespace {

class NoTransferProgress final : public TransferProgress {
public:
    void SetLabel(const QString&) override { }
    void SetMaximum(int) override { }
    void SetValue(int) override { }
};

} // namespace

Port<TransferProgress>& TheTransferProgress()
{
    static PortOr<TransferProgress, NoTransferProgress> port;
    return port;
}

TransferState& Transfer()
{
    static ProcessState<TransferState> state;
    return state.Get();
}

} // namespace tarvik
