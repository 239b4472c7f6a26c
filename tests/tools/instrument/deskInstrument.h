// tests/tools/instrument/deskInstrument.h: an instrument without a link: bytes in, bytes out.
#pragma once

#include "tools/instrument/instrument.h"

#include <QTemporaryDir>

#include <string>
#include <string_view>

namespace tarvik {

class DeskInstrument {
public:
    static constexpr std::uint64_t kCapacityBytes = 100000;

    DeskInstrument();

    /// Everything sent in answer to `bytes`.
    std::string Say(std::string_view bytes);

    /// The code of the oldest error; "0" if there is none.
    std::string Error();

    /// Path on the disk of a file, given with `/` as separator.
    std::string Path(const std::string& name) const;

    /// Creates a file on the disk directly.
    void Put(const std::string& name, const std::string& content) const;

    /// Content of a file on the disk; "(none)" if it does not exist.
    std::string Content(const std::string& name) const;

    Instrument& Unit()
    {
        return instrument_;
    }

    Storage& Disk()
    {
        return storage_;
    }

    void RefuseNext()
    {
        instrument_.RefuseNext();
    }

private:
    QTemporaryDir folder_;
    Storage storage_;
    Instrument instrument_;
    MessageReader reader_;
    Answers answers_;
};

} // namespace tarvik
