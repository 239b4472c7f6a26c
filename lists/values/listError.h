// lists/values/listError.h: messages for statuses of the list store.
#pragma once

namespace tarvik {

/// The failure concerns the whole list, not one record.
inline constexpr int kNoItem = -1;

/// Shows the message for a store status; nothing for status 0 or if `show` is false. The text's argument is `item`, the
/// number of the failed record, unless it is kNoItem. Other statuses show 12827 with the store's own description.
void ShowListError(int status, int item, bool show);

} // namespace tarvik
