#include "link/transfer/transferState.h"

namespace tarvik {

TransferState& Transfer()
{
    static TransferState state;
    return state;
}

void TransferReset()
{
    Transfer() = {};
}

} // namespace tarvik
