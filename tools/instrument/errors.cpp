#include "tools/instrument/errors.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

struct ErrorText {
    InstrumentError Error;
    const char* Text;
};

constexpr std::array kTexts{
    ErrorText{ InstrumentError::None, "No error" },
    ErrorText{ InstrumentError::Command, "Command error" },
    ErrorText{ InstrumentError::Parameter, "Parameter error" },
    ErrorText{ InstrumentError::MassStorage, "Mass storage error" },
    ErrorText{ InstrumentError::MediaFull, "Media full" },
    ErrorText{ InstrumentError::NotFound, "File name not found" },
    ErrorText{ InstrumentError::FileName, "File name error" },
    ErrorText{ InstrumentError::Protected, "Media protected" },
    ErrorText{ InstrumentError::QueueOverflow, "Queue overflow" },
};

} // namespace

std::string ErrorAnswer(InstrumentError error)
{
    const auto found =
        std::find_if(kTexts.begin(), kTexts.end(), [error](const ErrorText& text) { return text.Error == error; });
    return std::to_string(static_cast<int>(error)) + ",\"" + found->Text + '"';
}

void ErrorQueue::Put(InstrumentError error)
{
    if (errors_.size() < kPlaces)
        errors_.push_back(error);
    else
        errors_.back() = InstrumentError::QueueOverflow;
}

InstrumentError ErrorQueue::Take()
{
    if (errors_.empty())
        return InstrumentError::None;
    const InstrumentError oldest = errors_.front();
    errors_.pop_front();
    return oldest;
}

} // namespace tarvik
