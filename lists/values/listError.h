// lists/values/listError.h: from a status word of the list store to a message.
#pragma once

namespace tarvik {

/// Stands for a failure of the whole list instead of one record.
inline constexpr int kNoItem = -1;

/// Shows the message of a store status; nothing for status 0 or while `show` is false. `item` is the number of the
/// record that failed and becomes the text's argument, kNoItem leaves it out. A status without a text of its own
/// shows text 12827 with the store's own words.
void ShowListError(int status, int item, bool show);

} // namespace tarvik
