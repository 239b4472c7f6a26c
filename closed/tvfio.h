/* closed/tvfio.h: the list store: the instrument's five list files, the value limits, the cross-field checks.

   The store holds one current list for each family, process-wide. A calling sequence is: Clear, LoadFile, then the
   getters; or Clear, SetName, SetDescription, then for each used row the field setters and the commit, then SaveFile.

   Status words: 0 is success, anything else the number of an exception whose text GetExceptionStringTV returns (see
   tvfio/status.h for the numbers). Outputs are valid only after status 0. After a failed load the current list is
   empty; after a failed save the file is unchanged.

   Paths are UTF-8, so that every file name can be passed; all other text is single-byte (Windows-1252). A getter of
   text writes at most `outSize` bytes with the terminating zero; a longer text is cut and gives a status.

   Indexes count from 0; antenna index 0 is never used. Frequencies and offsets are in Hz, levels in dB/m or dBuV,
   times in seconds, angles in degrees. Numbers must be finite and codes in their tables; the limits of the
   instrument generation are available here but enforced by the editors, not by the store.

   The field setters of antennas, memory entries and suppressed ranges fill one staging record; the commit copies it to
   an index and resets the staging record to its defaults. Unused indexes can be read and have the default values:
   zeros and empty texts, or for a memory entry FM at 100 MHz with 15 kHz bandwidth, switches off, 0.5 s measurement
   time, 1 MHz span, 1 kHz step and 15 kHz DF bandwidth. The number of an unused memory entry is its own index; if a
   used entry has that number, it is one of the remaining numbers, in ascending order. All numbers differ. */
#pragma once

#include "closed/module.h"

#define TVFIO_MAX_NAME 32 /* characters of a list's name, description, and of a record's texts */
#define TVFIO_MAX_LINK_NAME 40 /* characters of the name of a linked K-factor table or correction set */
#define TVFIO_MAX_ANGLES 1000 /* angles of one azimuth entry */
#define TVFIO_TEXT_SIZE 256 /* sufficient for every text of the store */
#define TVFIO_CORR_ENTRIES 1000 /* entries in each table of a correction set */

/* Records of a correction set: little-endian, packed to 4 bytes. Their members can be misaligned: copy them, do not
   take references. */
#pragma pack(push, 4)

typedef struct KfactorCorrEntry { /* 28 bytes */
    int16_t Used;
    int16_t Reserved;
    double FrequencyHz;
    double ActiveLevel;
    double PassiveLevel;
} KfactorCorrEntry;

typedef struct OmniphaseEntry { /* 20 bytes */
    int16_t Used;
    int16_t Reserved;
    double FrequencyHz;
    double PhaseDegrees;
} OmniphaseEntry;

typedef struct AzimuthEntry { /* 16 bytes on every platform: the list of angles is a handle, as a pointer may need 8 */
    int16_t Used;
    int16_t Reserved;
    double FrequencyHz;
    int32_t Angles; /* handle, owned by the entry; see AntCorrNewAngles. 0: no angles */
} AzimuthEntry;

#pragma pack(pop)

typedef struct CorrHeader {
    char AntennaName[TVFIO_MAX_NAME + 1];
    char ManufacturerName[TVFIO_MAX_NAME + 1];
    int16_t AntennaCode;
    int16_t Version;
    double StartFrequencyHz;
    double StopFrequencyHz;
    int16_t Year;
    int16_t Month;
    int16_t Day;
} CorrHeader;

typedef struct CorrModIdent {
    int32_t Values[11];
    char Text[TVFIO_MAX_NAME + 1];
} CorrModIdent;

/* Every operation, as X(result, name, (arguments)). The table of pointers below is generated from this list. */

#define TVFIO_LIST_OPERATIONS(X, Family)                                                                               \
    X(void, Family##Clear, (int16_t * status))                                                                         \
    X(void, Family##LoadFile, (int16_t * status, const char* path))                                                    \
    X(void, Family##SaveFile, (int16_t * status, const char* path))                                                    \
    X(void, Family##GetName, (int16_t * status, char* out, int32_t outSize))                                           \
    X(void, Family##SetName, (int16_t * status, const char* text))                                                     \
    X(void, Family##GetDescription, (int16_t * status, char* out, int32_t outSize))                                    \
    X(void, Family##SetDescription, (int16_t * status, const char* text))

/* A field that is read by index and written into the staging record. */
#define TVFIO_STAGED(X, Family, Field, Type)                                                                           \
    X(void, Family##Get##Field, (int16_t * status, int16_t index, Type * value))                                       \
    X(void, Family##Set##Field, (int16_t * status, Type value))

#define TVFIO_STAGED_TEXT(X, Family, Field)                                                                            \
    X(void, Family##Get##Field, (int16_t * status, int16_t index, char* out, int32_t outSize))                         \
    X(void, Family##Set##Field, (int16_t * status, const char* text))

#define TVFIO_ANTENNA_OPERATIONS(X)                                                                                    \
    TVFIO_LIST_OPERATIONS(X, AntennaList)                                                                              \
    X(void, AntennaListGetMaxNumberOfItems, (int16_t * status, int16_t * count))                                       \
    X(void, AntennaGetUsed, (int16_t * status, int16_t index, int16_t * used))                                         \
    X(void, AntennaSetData, (int16_t * status, int16_t index))                                                         \
    TVFIO_STAGED(X, Antenna, Include, int16_t)                                                                         \
    TVFIO_STAGED_TEXT(X, Antenna, Name)                                                                                \
    TVFIO_STAGED(X, Antenna, StartFrequency, double)                                                                   \
    TVFIO_STAGED(X, Antenna, StopFrequency, double)                                                                    \
    TVFIO_STAGED(X, Antenna, DefFrequencyOffset, double)                                                               \
    TVFIO_STAGED(X, Antenna, PassiveBits, int16_t)                                                                     \
    TVFIO_STAGED(X, Antenna, ActiveBits, int16_t)                                                                      \
    TVFIO_STAGED_TEXT(X, Antenna, KFactorTableName)                                                                    \
    TVFIO_STAGED(X, Antenna, AntennaCode, int16_t)                                                                     \
    TVFIO_STAGED(X, Antenna, NorthOffset, double)                                                                      \
    TVFIO_STAGED_TEXT(X, Antenna, CorrectionSetName)

#define TVFIO_KFACTOR_OPERATIONS(X)                                                                                    \
    TVFIO_LIST_OPERATIONS(X, KfactorTable)                                                                             \
    X(void, KfactorTableGetNumberOfKFactors, (int16_t * status, int16_t * count))                                      \
    X(void, KfactorTableSort, (int16_t * status))                                                                      \
    X(void, KfactorInsert, (int16_t * status))                                                                         \
    X(void, KfactorGetFrequency, (int16_t * status, int16_t index, double* value))                                     \
    X(void, KfactorSetFrequency, (int16_t * status, int16_t index, double value))                                      \
    X(void, KfactorGetPassive, (int16_t * status, int16_t index, double* value))                                       \
    X(void, KfactorSetPassive, (int16_t * status, int16_t index, double value))                                        \
    X(void, KfactorGetActive, (int16_t * status, int16_t index, double* value))                                        \
    X(void, KfactorSetActive, (int16_t * status, int16_t index, double value))

/* MemoryListSort's key: 0 status then number; 1, 2 number up, down; 3, 4 frequency up, down; 5, 6 description
   up, down, ignoring case. */
#define TVFIO_MEMORY_OPERATIONS(X)                                                                                     \
    TVFIO_LIST_OPERATIONS(X, MemoryList)                                                                               \
    X(void, MemoryListGetMaxNumberOfItems, (int16_t * status, int16_t * count))                                        \
    X(void, MemoryListSort, (int16_t * status, int16_t key))                                                           \
    X(void, MemoryListItemIsInUse, (int16_t * status, int16_t index, int16_t * used))                                  \
    X(void, MemorySetData, (int16_t * status, int16_t index))                                                          \
    TVFIO_STAGED(X, Memory, MemItemNumber, int16_t)                                                                    \
    TVFIO_STAGED(X, Memory, Frequency, double)                                                                         \
    TVFIO_STAGED(X, Memory, Demodulation, int16_t)                                                                     \
    TVFIO_STAGED(X, Memory, BandWidth, int16_t)                                                                        \
    TVFIO_STAGED(X, Memory, SquelchLevel, double)                                                                      \
    TVFIO_STAGED(X, Memory, SquelchSetting, int16_t)                                                                   \
    TVFIO_STAGED(X, Memory, AntennaNumber, int16_t)                                                                    \
    TVFIO_STAGED(X, Memory, AttenuatorSetting, int16_t)                                                                \
    TVFIO_STAGED(X, Memory, AFCSetting, int16_t)                                                                       \
    TVFIO_STAGED_TEXT(X, Memory, Description)                                                                          \
    TVFIO_STAGED(X, Memory, Suppressed, int16_t)                                                                       \
    TVFIO_STAGED(X, Memory, DfSquelchSetting, int16_t)                                                                 \
    TVFIO_STAGED(X, Memory, DfSquelchLevel, double)                                                                    \
    TVFIO_STAGED(X, Memory, DfMeasurementTime, double)                                                                 \
    TVFIO_STAGED(X, Memory, FrequencySpan, int16_t)                                                                    \
    TVFIO_STAGED(X, Memory, DfStep, int16_t)                                                                           \
    TVFIO_STAGED(X, Memory, Reserved1, int32_t)                                                                        \
    TVFIO_STAGED(X, Memory, Reserved2, int32_t)                                                                        \
    TVFIO_STAGED(X, Memory, Reserved3, int32_t)

#define TVFIO_SUPPRESS_OPERATIONS(X)                                                                                   \
    TVFIO_LIST_OPERATIONS(X, SuppressList)                                                                             \
    X(void, SuppressListGetMaxNumberOfItems, (int16_t * status, int16_t * count))                                      \
    X(void, SuppressListSort, (int16_t * status))                                                                      \
    X(void, SuppressListSortAndMerge, (int16_t * status))                                                              \
    X(void, SuppressIsInUse, (int16_t * status, int16_t index, int16_t * used))                                        \
    X(void, SuppressSetData, (int16_t * status, int16_t index))                                                        \
    TVFIO_STAGED(X, Suppress, Include, int16_t)                                                                        \
    TVFIO_STAGED(X, Suppress, StartFrequency, double)                                                                  \
    TVFIO_STAGED(X, Suppress, StopFrequency, double)                                                                   \
    TVFIO_STAGED_TEXT(X, Suppress, Description)

/* Correction sets: the status is the result. Every array holds TVFIO_CORR_ENTRIES entries, used or not, and a count is
   the number of the used ones among them. Getting a table fills the whole array, used entries first; the angles of an
   azimuth entry are a new list then, which the caller releases (the handles that were in the array are overwritten).
   Sorting looks at the whole array, refuses a wrong count, orders the used entries by frequency before the unused ones
   in the array itself, and takes them over as the current table; the angles stay the caller's. AntCorrNewAngles makes a
   list of zeros and returns its handle, or 0 for a count outside 1 to TVFIO_MAX_ANGLES and if memory runs out.
   AntCorrGetAngles returns the angles of a list, in degrees, and their number; a null pointer and 0 for the handle 0
   and for one that is not in use. They can be changed, and are valid until AntCorrFreeAngles. The file name is the last
   part of the path of the last load or save, as UTF-8; empty for a new set. */
#define TVFIO_CORRECTION_OPERATIONS(X)                                                                                 \
    X(int16_t, AntCorrClear, (void))                                                                                   \
    X(int16_t, AntCorrLoadFile, (const char* path))                                                                    \
    X(int16_t, AntCorrSaveFile, (const char* path))                                                                    \
    X(int16_t, AntCorrGetHeader, (CorrHeader * header))                                                                \
    X(int16_t, AntCorrSetHeader, (const CorrHeader* header))                                                           \
    X(int16_t, AntCorrGetModIdent, (CorrModIdent * ident))                                                             \
    X(int16_t, AntCorrGetKFactor, (KfactorCorrEntry * entries, int16_t * count))                                       \
    X(int16_t, AntCorrGetOmniphase, (OmniphaseEntry * entries, int16_t * count))                                       \
    X(int16_t, AntCorrGetAzimuth, (AzimuthEntry * entries, int16_t * count))                                           \
    X(int16_t, AntCorrGetFileName, (char* out, int32_t outSize))                                                       \
    X(int16_t, AntCorrSortKFactor, (KfactorCorrEntry * entries, int16_t count))                                        \
    X(int16_t, AntCorrSortOmniphase, (OmniphaseEntry * entries, int16_t count))                                        \
    X(int16_t, AntCorrSortAzimuth, (AzimuthEntry * entries, int16_t count))                                            \
    X(int32_t, AntCorrNewAngles, (int16_t count))                                                                      \
    X(double*, AntCorrGetAngles, (int32_t angles, int16_t * count))                                                    \
    X(void, AntCorrFreeAngles, (int32_t angles))

#define TVFIO_LIMIT(X, Name, Type)                                                                                     \
    X(void, GetMin##Name, (int16_t * status, Type * value))                                                            \
    X(void, GetMax##Name, (int16_t * status, Type * value))

#define TVFIO_LIMIT_OPERATIONS(X)                                                                                      \
    TVFIO_LIMIT(X, FrequencyApplication, double)                                                                       \
    TVFIO_LIMIT(X, AntennaConverterOffset, double)                                                                     \
    TVFIO_LIMIT(X, KFactorLevel, double)                                                                               \
    TVFIO_LIMIT(X, SquelchLevel, double)                                                                               \
    TVFIO_LIMIT(X, DfSquelchLevel, double)                                                                             \
    TVFIO_LIMIT(X, DfMeasTimeInSec, double)                                                                            \
    TVFIO_LIMIT(X, AntennaNr, int16_t)                                                                                 \
    TVFIO_LIMIT(X, AntennaCode, int16_t)                                                                               \
    TVFIO_LIMIT(X, NorthOffset, double)                                                                                \
    TVFIO_LIMIT(X, AntennaBitPattern, int16_t)                                                                         \
    X(void, GetMaxAntennasIncluded, (int16_t * status, int16_t * value))                                               \
    TVFIO_LIMIT(X, MemoryNr, int16_t)

/* The checks are pure: non-zero when the pair of codes is allowed. */
#define TVFIO_OTHER_OPERATIONS(X)                                                                                      \
    X(int16_t, CheckBandwidthAndDemodulation, (int16_t bandwidth, int16_t demodulation))                               \
    X(int16_t, CheckAutoFreqControlAndDemodulation, (int16_t afc, int16_t demodulation))                               \
    X(int16_t, CheckIfPanSpanAndIfPanStep, (int16_t span, int16_t step))                                               \
    X(void, GetTvFwVersion, (int16_t * status, char* out, int32_t outSize))                                            \
    X(void, GetExceptionStringTV, (int16_t * status, char* out, int32_t outSize))

#define TVFIO_OPERATIONS(X)                                                                                            \
    TVFIO_ANTENNA_OPERATIONS(X)                                                                                        \
    TVFIO_KFACTOR_OPERATIONS(X)                                                                                        \
    TVFIO_MEMORY_OPERATIONS(X)                                                                                         \
    TVFIO_SUPPRESS_OPERATIONS(X)                                                                                       \
    TVFIO_CORRECTION_OPERATIONS(X)                                                                                     \
    TVFIO_LIMIT_OPERATIONS(X)                                                                                          \
    TVFIO_OTHER_OPERATIONS(X)

typedef struct TvFioApi {
    uint32_t Size; /* set by the caller to the size of this structure; a module refuses a smaller one */
#define TVFIO_POINTER(result, name, arguments) result(*name) arguments;
    TVFIO_OPERATIONS(TVFIO_POINTER)
#undef TVFIO_POINTER
} TvFioApi;

#if defined(__cplusplus)
int16_t TvFioBind(TvFioApi* api);
#endif
