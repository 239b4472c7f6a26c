#include "tests/closed/storefixture.h"

#include "closed/tvfio/antennalist.h"
#include "closed/tvfio/correctionset.h"
#include "closed/tvfio/kfactortable.h"
#include "closed/tvfio/memorylist.h"
#include "closed/tvfio/suppresslist.h"

void ClearStore()
{
    AntennaList::Current().Clear();
    KfactorTable::Current().Clear();
    MemoryList::Current().Clear();
    SuppressList::Current().Clear();
    CorrectionSet::Current().Clear();
}

StoreTest::StoreTest()
{
    fio.Size = sizeof fio;
    EXPECT_EQ(TvFioBind(&fio), 0);
    ClearStore();
}
