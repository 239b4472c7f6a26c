#include "closed/files/files.h"
#include "closed/tvfio/calls.h"
#include "closed/tvfio/correctionset.h"

#include <limits>
#include <map>

namespace tvfio {

namespace {

/// Return value of the operations that return their status.
int16_t Word(FioStatus status)
{
    return static_cast<int16_t>(status);
}

// Conversion of the caller's array entries to checked records of the set, and back.

FioStatus ToRecord(const KfactorCorrEntry& entry, CorrKfactorRecord& record)
{
    record = { entry.FrequencyHz, entry.ActiveLevel, entry.PassiveLevel };
    const bool sound = std::isfinite(record.Frequency) && std::isfinite(record.Active) && std::isfinite(record.Passive);
    return sound ? FioStatus::Ok : FioStatus::CorrectionKfactorEntry;
}

FioStatus ToRecord(const OmniphaseEntry& entry, CorrPhaseRecord& record)
{
    record = { entry.FrequencyHz, entry.PhaseDegrees };
    return std::isfinite(record.Frequency) && std::isfinite(record.Phase) ? FioStatus::Ok
                                                                          : FioStatus::CorrectionOmniphaseEntry;
}

/// Lists of angles by handle.
using AngleLists = std::map<int32_t, std::vector<double>>;

AngleLists& Angles()
{
    static AngleLists lists;
    return lists;
}

int32_t NewAngles(int16_t count)
{
    if (count <= 0 || count > TVFIO_MAX_ANGLES)
        return 0;
    try {
        // The lowest free handle after the highest in use; the handles wrap around.
        AngleLists& lists = Angles();
        int32_t handle = lists.empty() ? 0 : lists.rbegin()->first;
        do
            handle = handle == std::numeric_limits<int32_t>::max() ? 1 : handle + 1;
        while (lists.contains(handle));
        lists.emplace(handle, static_cast<size_t>(count));
        return handle;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

double* GetAngles(int32_t angles, int16_t* count)
{
    const auto found = Angles().find(angles);
    const bool exists = found != Angles().end();
    if (count != nullptr)
        *count = exists ? static_cast<int16_t>(found->second.size()) : int16_t{ 0 };
    return exists ? found->second.data() : nullptr;
}

void FreeAngles(int32_t angles)
{
    Angles().erase(angles);
}

FioStatus ToRecord(const AzimuthEntry& entry, CorrAzimuthRecord& record)
{
    int16_t count = 0;
    const double* angles = GetAngles(entry.Angles, &count);
    if (entry.Angles != 0 && angles == nullptr)
        return FioStatus::CorrectionAngleCount;
    record.Frequency = entry.FrequencyHz;
    record.Angles.assign(angles, angles + count);
    const bool sound = std::isfinite(record.Frequency)
        && std::all_of(record.Angles.begin(), record.Angles.end(), [](double angle) { return std::isfinite(angle); });
    return sound ? FioStatus::Ok : FioStatus::CorrectionAzimuthEntry;
}

bool ToEntry(const CorrKfactorRecord& record, KfactorCorrEntry& entry)
{
    entry = { 1, 0, record.Frequency, record.Active, record.Passive };
    return true;
}

bool ToEntry(const CorrPhaseRecord& record, OmniphaseEntry& entry)
{
    entry = { 1, 0, record.Frequency, record.Phase };
    return true;
}

/// False if memory for the angles runs out.
bool ToEntry(const CorrAzimuthRecord& record, AzimuthEntry& entry)
{
    const int32_t angles = NewAngles(static_cast<int16_t>(record.Angles.size()));
    if (angles == 0 && !record.Angles.empty())
        return false;
    std::copy(record.Angles.begin(), record.Angles.end(), GetAngles(angles, nullptr));
    entry = { 1, 0, record.Frequency, angles };
    return true;
}

template <typename Entry>
void Erase(Entry* entries, size_t)
{
    std::fill_n(entries, TVFIO_CORR_ENTRIES, Entry{});
}

void Erase(AzimuthEntry* entries, size_t filled)
{
    for (size_t i = 0; i < filled; ++i)
        FreeAngles(entries[i].Angles);
    std::fill_n(entries, TVFIO_CORR_ENTRIES, AzimuthEntry{});
}

template <auto Table, typename Entry>
int16_t GetTable(Entry* entries, int16_t* count)
{
    if (entries == nullptr || count == nullptr)
        return Word(Fail(FioStatus::MissingArgument));
    const auto& table = CorrectionSet::Current().*Table;
    Erase(entries, 0);
    *count = 0;
    for (size_t i = 0; i < table.size(); ++i) {
        if (!ToEntry(table[i], entries[i])) {
            Erase(entries, i);
            return Word(Fail(FioStatus::OutOfMemory));
        }
    }
    *count = static_cast<int16_t>(table.size());
    return Word(FioStatus::Ok);
}

/// Copies the used entries to `records`; Ok if all are valid and their number is `count`.
template <typename Entry, typename Record>
FioStatus CollectUsed(const Entry* entries, int16_t count, std::vector<Record>& records)
{
    for (size_t i = 0; i < TVFIO_CORR_ENTRIES; ++i) {
        if (entries[i].Used == 0)
            continue;
        if (const FioStatus status = ToRecord(entries[i], records.emplace_back()); status != FioStatus::Ok)
            return status;
    }
    return static_cast<int>(records.size()) == count ? FioStatus::Ok : FioStatus::CorrectionCount;
}

template <typename Entry>
bool ComesBefore(const Entry& left, const Entry& right)
{
    if (left.Used == 0 || right.Used == 0)
        return left.Used != 0 && right.Used == 0;
    return left.FrequencyHz < right.FrequencyHz;
}

template <auto Table, typename Entry>
int16_t SortTable(Entry* entries, int16_t count)
{
    if (entries == nullptr)
        return Word(Fail(FioStatus::MissingArgument));
    return Word(Guarded([entries, count] {
        auto& table = CorrectionSet::Current().*Table;
        std::remove_reference_t<decltype(table)> records;
        if (const FioStatus status = CollectUsed(entries, count, records); status != FioStatus::Ok)
            return Fail(status);
        std::stable_sort(entries, entries + TVFIO_CORR_ENTRIES, ComesBefore<Entry>);
        SortByFrequency(records);
        table = std::move(records);
        return FioStatus::Ok;
    }));
}

int16_t ClearSet()
{
    CorrectionSet::Current().Clear();
    return Word(FioStatus::Ok);
}

int16_t LoadSet(const char* path)
{
    return Word(LoadCurrent<CorrectionSet>([path](CorrectionSet& set) {
        Bytes bytes;
        FioStatus status = ReadFileBytes(path, bytes);
        if (status == FioStatus::Ok)
            status = set.Decode(bytes);
        if (status == FioStatus::Ok)
            set.FileName = tvfile::FileNameOfPath(path);
        return status;
    }));
}

int16_t SaveSet(const char* path)
{
    return Word(Guarded([path] {
        CorrectionSet& set = CorrectionSet::Current();
        const FioStatus status = SaveFileBytes(path, set.Encode());
        if (status == FioStatus::Ok)
            set.FileName = tvfile::FileNameOfPath(path);
        return status;
    }));
}

int16_t GetHeader(CorrHeader* header)
{
    return Word(CopyOut(CorrectionSet::Current().Header, header));
}

int16_t SetHeader(const CorrHeader* header)
{
    return Word(header != nullptr ? CorrectionSet::Current().SetHeader(*header) : Fail(FioStatus::MissingArgument));
}

int16_t GetIdentity(CorrModIdent* identity)
{
    return Word(CopyOut(CorrectionSet::Current().Identity, identity));
}

int16_t GetFileName(char* out, int32_t outSize)
{
    return Word(CopyOut(std::string_view(CorrectionSet::Current().FileName), out, outSize));
}

} // namespace

void BindCorrectionCalls(TvFioApi& api)
{
    api.AntCorrClear = ClearSet;
    api.AntCorrLoadFile = LoadSet;
    api.AntCorrSaveFile = SaveSet;
    api.AntCorrGetHeader = GetHeader;
    api.AntCorrSetHeader = SetHeader;
    api.AntCorrGetModIdent = GetIdentity;
    api.AntCorrGetKFactor = GetTable<&CorrectionSet::Kfactor, KfactorCorrEntry>;
    api.AntCorrGetOmniphase = GetTable<&CorrectionSet::Omniphase, OmniphaseEntry>;
    api.AntCorrGetAzimuth = GetTable<&CorrectionSet::Azimuth, AzimuthEntry>;
    api.AntCorrGetFileName = GetFileName;
    api.AntCorrSortKFactor = SortTable<&CorrectionSet::Kfactor, KfactorCorrEntry>;
    api.AntCorrSortOmniphase = SortTable<&CorrectionSet::Omniphase, OmniphaseEntry>;
    api.AntCorrSortAzimuth = SortTable<&CorrectionSet::Azimuth, AzimuthEntry>;
    api.AntCorrNewAngles = NewAngles;
    api.AntCorrGetAngles = GetAngles;
    api.AntCorrFreeAngles = FreeAngles;
}

} // namespace tvfio
