// tools/instrument/errors.h: the receiver's error numbers, and the queue in which they wait to be asked for.
#pragma once

#include <deque>
#include <string>

namespace tarvik {

enum class InstrumentError {
    None = 0,
    Command = -100,
    Parameter = -220,
    MassStorage = -250,
    MediaFull = -254,
    NotFound = -256,
    FileName = -257,
    Protected = -258,
    QueueOverflow = -350
};

/// The number and its text as they are answered: `-256,"File name not found"`.
std::string ErrorAnswer(InstrumentError error);

/// Oldest first. The last place of a full queue tells that errors were lost.
class ErrorQueue {
public:
    static constexpr size_t kPlaces = 20;

    void Put(InstrumentError error);

    /// The oldest error, which leaves the queue; None when there is none.
    InstrumentError Take();

    /// The error that came last and has not been asked for.
    InstrumentError Newest() const
    {
        return errors_.empty() ? InstrumentError::None : errors_.back();
    }

    void Clear()
    {
        errors_.clear();
    }

private:
    std::deque<InstrumentError> errors_;
};

} // namespace tarvik
