// The instrument's answers from arbitrary bytes. The first byte selects the operation and the piece size; the rest is
// what the instrument sends.
#include "closed/files/filesystem.h"
#include "closed/tvscpi.h"
#include "closed/tvscpi/channel.h"
#include "tests/closed/scriptedwire.h"

#include <cstdlib>
#include <cstring>

namespace tarvik {

namespace {

using namespace tvscpi;

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// A disk that counts open files and bytes.
class CountingDisk final : public tvfile::FileSystem {
public:
    int OpenFiles = 0;
    int Replaced = 0;

    int Describe(const std::string& path, tvfile::FileInfo& info) override
    {
        info = {};
        info.RealPath = path;
        return 0;
    }
    int Create(const std::string&, uint32_t, intptr_t& handle) override
    {
        handle = 1;
        ++OpenFiles;
        return 0;
    }
    int Write(intptr_t, tvfile::ByteView bytes, size_t& written) override
    {
        written = bytes.size();
        return 0;
    }
    int Flush(intptr_t) override
    {
        return 0;
    }
    int Replace(intptr_t, const std::string&, const std::string&) override
    {
        --OpenFiles;
        ++Replaced;
        return 0;
    }
    void Discard(intptr_t, const std::string&) override
    {
        --OpenFiles;
    }
    void FlushFolder(const std::string&) override { }
    int FreeBytes(const std::string&, uint64_t& bytes) override
    {
        bytes = UINT64_MAX;
        return 0;
    }
};

CountingDisk disk;

const TvScpiApi& Api()
{
    static TvScpiApi api{};
    if (api.Size == 0) {
        api.Size = sizeof api;
        Require(TvScpiBind(&api) == 0);
        tvfile::SetFileSystem(&disk);
    }
    return api;
}

int16_t Walk(const TvScpiApi& scpi)
{
    int16_t err = -1;
    int16_t nothing = -1;
    scpi.scpiStartFindAllFiles(&err, &nothing, nullptr, nullptr);
    int16_t last = nothing;
    while (err == TvScpiOk && last == 0) {
        char name[TVSCPI_TEXT_SIZE] = "";
        int16_t type = -1;
        int16_t stamp[6]{};
        scpi.scpiGetNextFile(&err, &type, &last, &stamp[0], &stamp[1], &stamp[2], &stamp[3], &stamp[4], &stamp[5], name,
            TVSCPI_TEXT_SIZE);
        Require(err == TvScpiOk && IsPlainName(name) && type >= 0 && type <= 2);
        Require(stamp[0] >= 1000 && stamp[0] <= 9999 && stamp[1] >= 1 && stamp[1] <= 12);
        Require(stamp[2] >= 1 && stamp[2] <= 31 && stamp[3] <= 23 && stamp[4] <= 59 && stamp[5] <= 59);
    }
    return err;
}

int16_t RunOne(const TvScpiApi& scpi, unsigned which)
{
    int16_t err = -1;
    char text[TVSCPI_TEXT_SIZE] = "";
    int16_t type = -1;
    switch (which) {
    case 0:
        return Walk(scpi);
    case 1:
        scpi.scpiGetMemoryListFile(&err, "remote", "local", 1000);
        break;
    case 2:
        scpi.scpiGetFileFromStream(&err, "local", 1000);
        break;
    case 3: {
        const int16_t found = scpi.scpiFindFile(&err, "remote", &type);
        Require(err == TvScpiOk ? (found == 0 || found == 1) && (type == 0 || type == 1) : found == -1);
        break;
    }
    case 4:
        scpi.scpiGetCurrentDirectory(&err, text, TVSCPI_TEXT_SIZE);
        Require(!HasControlCharacter(text));
        break;
    default:
        scpi.scpiRemoveFile(&err, "remote");
        break;
    }
    return err;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const TvScpiApi& scpi = Api();
    constexpr unsigned kOperations = 6;
    const unsigned which = *data % kOperations;
    WireScript script;
    script.MaxPiece = *data >= 128 ? 1 : SIZE_MAX;
    script.Answers = { "maker,model,serial,firmware\n",
        std::string(reinterpret_cast<const char*>(data) + 1, size - 1) };
    std::string identification;
    Require(TheChannel().Attach(std::make_unique<ScriptedWire>(script), Deadline(1000), identification) == Status::Ok);

    disk.Replaced = 0;
    const int16_t err = RunOne(scpi, which);
    Require(err == TvScpiOk || err == TvScpiLinkFailed || err == TvScpiRefused);
    Require((err == TvScpiLinkFailed) == (scpi.scpiCheckConnection() == 1));
    Require(disk.OpenFiles == 0);
    const bool isDownload = which == 1 || which == 2;
    Require(disk.Replaced == (isDownload && err == TvScpiOk ? 1 : 0));
    scpi.scpiDisconnect();
    return 0;
}

} // namespace tarvik
