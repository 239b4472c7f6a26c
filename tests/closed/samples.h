// tests/closed/samples.h: small lists with every field set, for tests and as seeds for the fuzz targets.
#pragma once

#include "closed/tvfio/antennalist.h"
#include "closed/tvfio/correctionset.h"
#include "closed/tvfio/kfactortable.h"
#include "closed/tvfio/memorylist.h"
#include "closed/tvfio/suppresslist.h"

namespace tvfio {

/// Each fills an empty list with a few records.
void FillSample(AntennaList& list);
void FillSample(KfactorTable& table);
void FillSample(MemoryList& list);
void FillSample(SuppressList& list);
void FillSample(CorrectionSet& set);

/// The file of a family's sample list.
template <typename List>
Bytes SampleFile()
{
    List list;
    FillSample(list);
    return list.Encode();
}

/// The file of an empty list.
template <typename List>
Bytes EmptyFile()
{
    const List list;
    return list.Encode();
}

/// Updates the length and the checksum in the header.
void RepairHeader(Bytes& file);

} // namespace tvfio
