// tests/closed/samples.h: small lists with every field set, for tests and as seeds of the fuzz targets.
#pragma once

#include "closed/tvfio/antennalist.h"
#include "closed/tvfio/correctionset.h"
#include "closed/tvfio/kfactortable.h"
#include "closed/tvfio/memorylist.h"
#include "closed/tvfio/suppresslist.h"

namespace tvfio {

/// Each puts a few records into an empty list.
void FillSample(AntennaList& list);
void FillSample(KfactorTable& table);
void FillSample(MemoryList& list);
void FillSample(SuppressList& list);
void FillSample(CorrectionSet& set);

/// The bytes of a file with the sample of a family.
template <typename List>
Bytes SampleFile()
{
    List list;
    FillSample(list);
    return list.Encode();
}

/// The bytes of a file without a record.
template <typename List>
Bytes EmptyFile()
{
    const List list;
    return list.Encode();
}

/// Puts the length and the check sum into the header that the bytes behind it ask for.
void RepairHeader(Bytes& file);

} // namespace tvfio
