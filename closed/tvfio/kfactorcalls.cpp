#include "closed/tvfio/calls.h"
#include "closed/tvfio/kfactortable.h"

namespace tvfio {

namespace {

using Record = KfactorRecord;

void GetCount(int16_t* status, int16_t* count)
{
    Answer(status, CopyOut(static_cast<int16_t>(KfactorTable::Current().Entries.size()), count));
}

void InsertEntry(int16_t* status)
{
    Answer(status, Guarded([] { return KfactorTable::Current().Insert(); }));
}

void SortTable(int16_t* status)
{
    Answer(status, Guarded([] {
        KfactorTable::Current().SortByFrequency();
        return FioStatus::Ok;
    }));
}

Record* Entry(int index)
{
    std::vector<Record>& entries = KfactorTable::Current().Entries;
    return index >= 0 && static_cast<size_t>(index) < entries.size() ? &entries[static_cast<size_t>(index)] : nullptr;
}

template <auto Member>
void GetEntry(int16_t* status, int16_t index, double* value)
{
    const Record* entry = Entry(index);
    Answer(status, entry != nullptr ? CopyOut(entry->*Member, value) : Fail(FioStatus::KfactorIndex));
}

template <auto Member, const auto& Rule>
void SetEntry(int16_t* status, int16_t index, double value)
{
    Record* entry = Entry(index);
    Answer(status, entry != nullptr ? CopyIn(value, Rule, entry->*Member) : Fail(FioStatus::KfactorIndex));
}

} // namespace

void BindKfactorCalls(TvFioApi& api)
{
    FIO_BIND_LIST(api, KfactorTable, KfactorTable);
    api.KfactorTableGetNumberOfKFactors = GetCount;
    api.KfactorTableSort = SortTable;
    api.KfactorInsert = InsertEntry;
    api.KfactorGetFrequency = GetEntry<&Record::Frequency>;
    api.KfactorSetFrequency = SetEntry<&Record::Frequency, kfactorRules::kFrequency>;
    api.KfactorGetPassive = GetEntry<&Record::Passive>;
    api.KfactorSetPassive = SetEntry<&Record::Passive, kfactorRules::kPassive>;
    api.KfactorGetActive = GetEntry<&Record::Active>;
    api.KfactorSetActive = SetEntry<&Record::Active, kfactorRules::kActive>;
}

} // namespace tvfio
