// tools/examples/plans.h: real channel plans, each computed from the standard that it names.
#pragma once

#include "lists/memory/memoryRecord.h"
#include "tools/examples/receptions.h"

#include <vector>

namespace tarvik {

struct Channel {
    double FrequencyHz;
    QString Description;
    const Reception* Settings;
};

/// One list. The file has the list's name.
struct ChannelPlan {
    QString Name;
    QString Description; ///< names the source
    std::vector<Channel> Channels;
};

/// All plans of examples/.
std::vector<ChannelPlan> AllPlans();

/// The channels as a memory list, numbered from 0; the rows after the last channel are those of `empty`.
MemoryTable TableOfPlan(const ChannelPlan& plan, const MemoryTable& empty);

} // namespace tarvik
