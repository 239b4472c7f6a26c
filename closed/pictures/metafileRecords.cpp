#include "closed/pictures/metafileRecords.h"

#include <algorithm>

namespace tvpicture {

namespace {

constexpr size_t kRecordHeadBytes = 6;

} // namespace

uint16_t MetafileParameters::Word(int index) const
{
    if (index < 0 || index >= Words())
        return 0;
    const size_t at = 2 * static_cast<size_t>(index);
    return static_cast<uint16_t>(bytes_[at] | bytes_[at + 1] << 8);
}

uint32_t MetafileParameters::Long(int index) const
{
    return static_cast<uint32_t>(Word(index)) | static_cast<uint32_t>(Word(index + 1)) << 16;
}

ByteView MetafileParameters::From(int index) const
{
    return index < 0 || index > Words() ? ByteView() : bytes_.subspan(2 * static_cast<size_t>(index));
}

MetafileRecords::Step MetafileRecords::Next(MetafileRecord& record)
{
    const MetafileParameters head(rest_.first(std::min(rest_.size(), kRecordHeadBytes)));
    const uint64_t bytes = uint64_t{ 2 } * head.Long(0);
    if (bytes < kRecordHeadBytes || bytes > rest_.size())
        return Step::Broken;
    record.Function = head.Word(2);
    record.Parameters =
        MetafileParameters(rest_.subspan(kRecordHeadBytes, static_cast<size_t>(bytes) - kRecordHeadBytes));
    rest_ = rest_.subspan(static_cast<size_t>(bytes));
    return record.Function == MetaEof ? Step::End : Step::Record;
}

} // namespace tvpicture
