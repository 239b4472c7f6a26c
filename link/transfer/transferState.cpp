#include "link/transfer/transferState.h"

#include "app/platform/processState.h"

namespace tarvik {

TransferState& Transfer()
{
    static ProcessState<TransferState> state;
    return state.Get();
}

} // namespace tarvik
