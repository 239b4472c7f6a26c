/* closed/tvscpi.h: the instrument channel. One connection at a time; no handle is passed.

   Nearly every operation stores a status word into `*err`: 0 success; 1 the link failed (not connected, time-out,
   connection lost, an answer that makes no sense), and counts as gone from then on; 2 the instrument refused, the
   link stays; 3 the local file could not be read or written, the link stays.

   Text is single-byte (Windows-1252), except paths of local files, which are UTF-8. Remote names are names in the
   instrument's current directory, without a path; a name with a control character is refused with 2 and never sent.
   A text result is written into the caller's buffer with its closing zero; one that does not fit is a failure of the
   link, since no valid answer is that long. Time-outs are milliseconds and cover the whole operation; an operation
   without one has TVSCPI_DEFAULT_TIMEOUT_MS. A walk is the exception: its catalogue may be long and the line slow, so
   that time counts from the last byte received, up to TVSCPI_LONGEST_WALK_MS in all.

   A download is written to a temporary file in the target's folder and renamed when complete: after any failure the
   target is unchanged. */
#pragma once

#include "closed/module.h"

#define TVSCPI_MAX_NAME 255 /* characters of a file name */
#define TVSCPI_TEXT_SIZE 1024 /* sufficient for every name, path and identification */
#define TVSCPI_DEFAULT_TIMEOUT_MS 5000
#define TVSCPI_LONGEST_WALK_MS 100000 /* an instrument that trickles for ever must not block its caller for ever */
#define TVSCPI_MAX_BLOCK (256LL * 1024 * 1024) /* bytes; a longer block is refused before anything is stored */

enum TvScpiStatus { TvScpiOk = 0, TvScpiLinkFailed = 1, TvScpiRefused = 2, TvScpiLocalFile = 3 };

/* Every operation, as X(result, name, (arguments)). The table of pointers below is generated from this list. */

/* `mode` is 1. `host` is an IPv4 address. The reply is the instrument's identification. An existing link is
   closed first. */
#define TVSCPI_LINK_OPERATIONS(X)                                                                                      \
    X(void, scpiConnect,                                                                                               \
        (int16_t * err, int16_t mode, const char* host, int16_t port, int32_t timeoutMs, char* reply,                  \
            int32_t replySize))                                                                                        \
    X(void, scpiDisconnect, (void))                                                                                    \
    /* 0 while connected, non-zero otherwise: mind the inverted sense. A link that counts as gone is not connected. */ \
    X(int16_t, scpiGetConnected, (void))                                                                               \
    /* 1 when the connection is gone, 0 while it is there. */                                                          \
    X(int16_t, scpiCheckConnection, (void))                                                                            \
    /* One line of text, without its end. Neither waits for the instrument; a text that ends in "?" leaves its answer  \
       to scpiGetFileFromStream. */                                                                                    \
    X(void, scpiSend, (int16_t * err, const char* text))                                                               \
    X(void, scpiSendCommand, (int16_t * err, const char* text))

#define TVSCPI_FOLDER_OPERATIONS(X)                                                                                    \
    X(void, scpiGetCurrentDirectory, (int16_t * err, char* path, int32_t pathSize))                                    \
    X(void, scpiSetCurrentDirectory, (int16_t * err, const char* path))                                                \
    X(void, scpiCreateDirectory, (int16_t * err, const char* name))                                                    \
    X(void, scpiRemoveDirectory, (int16_t * err, const char* name))

/* Starts a search of the current directory or, for a family, of the directory of the family. A non-zero status means
   that it is empty. `usedBytes` and `freeBytes` refer to the storage of the instrument. */
#define TVSCPI_START_FIND(X, name)                                                                                     \
    X(void, name, (int16_t * err, int16_t * status, int64_t * usedBytes, int64_t * freeBytes))

#define TVSCPI_WALK_OPERATIONS(X)                                                                                      \
    TVSCPI_START_FIND(X, scpiStartFindAllFiles)                                                                        \
    TVSCPI_START_FIND(X, scpiStartFindAntennaListFiles)                                                                \
    TVSCPI_START_FIND(X, scpiStartFindKfactorTableFiles)                                                               \
    TVSCPI_START_FIND(X, scpiStartFindMemoryListFiles)                                                                 \
    TVSCPI_START_FIND(X, scpiStartFindSuppressListFiles)                                                               \
    TVSCPI_START_FIND(X, scpiStartFindCorrectionSetFiles)                                                              \
    /* One row of the walk. `*type` is 0 for a file, 1 for a folder. A non-zero `*last`: this row is valid and no      \
       further one follows. The year has four digits. */                                                               \
    X(void, scpiGetNextFile,                                                                                           \
        (int16_t * err, int16_t * type, int16_t * last, int16_t * year, int16_t * month, int16_t * day,                \
            int16_t * hour, int16_t * minute, int16_t * second, char* name, int32_t nameSize))

#define TVSCPI_GET(X, name) X(void, name, (int16_t * err, const char* remote, const char* local, int32_t timeoutMs))
#define TVSCPI_PUT(X, name) X(void, name, (int16_t * err, const char* local, const char* remote, int32_t timeoutMs))
#define TVSCPI_REMOVE(X, name) X(void, name, (int16_t * err, const char* remote))

/* 1 if the name exists; `*type` is then 1 for a folder and 0 for a file. 0 if it does not. */
#define TVSCPI_FIND(X, name) X(int16_t, name, (int16_t * err, const char* remote, int16_t* type))

#define TVSCPI_FILE_OPERATIONS(X)                                                                                      \
    TVSCPI_GET(X, scpiGetFile)                                                                                         \
    TVSCPI_GET(X, scpiGetAntennaListFile)                                                                              \
    TVSCPI_GET(X, scpiGetKfactorTableFile)                                                                             \
    TVSCPI_GET(X, scpiGetMemoryListFile)                                                                               \
    TVSCPI_GET(X, scpiGetSuppressListFile)                                                                             \
    TVSCPI_GET(X, scpiGetCorrectionSetFile)                                                                            \
    X(void, scpiGetActiveDatasetFile, (int16_t * err, const char* local, int32_t timeoutMs))                           \
    /* Stores the block that answers a text sent by scpiSend. */                                                       \
    X(void, scpiGetFileFromStream, (int16_t * err, const char* local, int32_t timeoutMs))                              \
    TVSCPI_PUT(X, scpiPutFile)                                                                                         \
    TVSCPI_PUT(X, scpiPutAntennaListFile)                                                                              \
    TVSCPI_PUT(X, scpiPutKfactorTableFile)                                                                             \
    TVSCPI_PUT(X, scpiPutMemoryListFile)                                                                               \
    TVSCPI_PUT(X, scpiPutSuppressListFile)                                                                             \
    TVSCPI_PUT(X, scpiPutCorrectionSetFile)                                                                            \
    X(void, scpiPutActiveDatasetFile, (int16_t * err, const char* local, int32_t timeoutMs))                           \
    TVSCPI_REMOVE(X, scpiRemoveFile)                                                                                   \
    TVSCPI_REMOVE(X, scpiRemoveKfactorTableFile)                                                                       \
    TVSCPI_REMOVE(X, scpiRemoveCorrectionSetFile)                                                                      \
    X(void, scpiRename, (int16_t * err, const char* oldName, const char* newName))                                     \
    TVSCPI_FIND(X, scpiFindFile)                                                                                       \
    TVSCPI_FIND(X, scpiFindInKfactorTableFiles)                                                                        \
    TVSCPI_FIND(X, scpiFindInCorrectionSetFiles)

#define TVSCPI_OPERATIONS(X)                                                                                           \
    TVSCPI_LINK_OPERATIONS(X)                                                                                          \
    TVSCPI_FOLDER_OPERATIONS(X)                                                                                        \
    TVSCPI_WALK_OPERATIONS(X)                                                                                          \
    TVSCPI_FILE_OPERATIONS(X)

typedef struct TvScpiApi {
    uint32_t Size; /* set by the caller to the size of this structure; a module refuses a smaller one */
#define TVSCPI_POINTER(result, name, arguments) result(*name) arguments;
    TVSCPI_OPERATIONS(TVSCPI_POINTER)
#undef TVSCPI_POINTER
} TvScpiApi;

#if defined(__cplusplus)
int16_t TvScpiBind(TvScpiApi* api);
#endif
