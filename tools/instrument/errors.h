// tools/instrument/errors.h: the receiver's error numbers and its error queue.
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

/// The answer for an error, with number and text: `-256,"File name not found"`.
std::string ErrorAnswer(InstrumentError error);

/// Oldest error first. The last place of a full queue holds the overflow error.
class ErrorQueue {
public:
    static constexpr size_t kPlaces = 20;

    void Put(InstrumentError error);

    /// Removes and returns the oldest error; None if the queue is empty.
    InstrumentError Take();

    /// The most recent error in the queue.
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
