// bench/link_bench.cpp FOLDER INSTRUMENT: the channel to the instrument: 64 MiB down and up, a find, a listing of
// 10,000 files; compared with the same bytes over a bare socket, a bare line there and back, and a bare listing of the
// same files. Keeps its files in FOLDER and prints JSON.
#include "bench/linkPeer.h"
#include "bench/timing.h"
#include "closed/tvscpi.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace tarvik {

namespace {

constexpr uint64_t kFileBytes = uint64_t{ 64 } << 20;
constexpr int kEntries = 10000;
constexpr int kTransfers = 9;
constexpr int kRoundTrips = 20000;
constexpr int32_t kTimeoutMs = 60000;

TvScpiApi scpi;
std::string folder;

void Require(bool condition, const char* what)
{
    if (condition)
        return;
    (void)std::fprintf(stderr, "bench_link: %s\n", what);
    std::_Exit(1);
}

double PeakMebibytes()
{
    rusage usage{};
    (void)getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// Growth of the peak memory by `work`, in its own process.
template <typename Work>
double GrowthMebibytes(Work work)
{
    std::array<int, 2> ends{};
    Require(::pipe(ends.data()) == 0, "no pipe");
    const pid_t child = ::fork();
    if (child == 0) {
        const double before = PeakMebibytes();
        work();
        const double growth = PeakMebibytes() - before;
        std::_Exit(::write(ends[1], &growth, sizeof growth) == sizeof growth ? 0 : 1);
    }
    (void)::close(ends[1]);
    double growth = 0;
    Require(::read(ends[0], &growth, sizeof growth) == sizeof growth, "no growth");
    (void)::close(ends[0]);
    (void)::waitpid(child, nullptr, 0);
    return growth;
}

void WriteSource(const std::string& path)
{
    std::ofstream file(path, std::ios::binary);
    std::array<uint32_t, 16384> piece{};
    uint32_t state = 1;
    for (uint64_t written = 0; written < kFileBytes; written += sizeof piece) {
        for (uint32_t& word : piece)
            word = state = state * 1664525U + 1013904223U;
        file.write(reinterpret_cast<const char*>(piece.data()), sizeof piece);
    }
    Require(file.good(), "no room for the source");
}

bool IsSame(const std::string& left, const std::string& right)
{
    std::ifstream a(left, std::ios::binary);
    std::ifstream b(right, std::ios::binary);
    return std::equal(std::istreambuf_iterator<char>(a), {}, std::istreambuf_iterator<char>(b), {});
}

void Connect(const LinkPeer& peer)
{
    std::array<char, TVSCPI_TEXT_SIZE> reply{};
    int16_t err = -1;
    scpi.scpiConnect(&err, 1, "127.0.0.1", static_cast<int16_t>(peer.Port), kTimeoutMs, reply.data(), TVSCPI_TEXT_SIZE);
    Require(err == TvScpiOk, "not connected");
}

void Download()
{
    int16_t err = -1;
    scpi.scpiGetFile(&err, "x", (folder + "/down").c_str(), kTimeoutMs);
    Require(err == TvScpiOk, "download failed");
}

void Upload()
{
    int16_t err = -1;
    scpi.scpiPutFile(&err, (folder + "/source").c_str(), "x", kTimeoutMs);
    Require(err == TvScpiOk, "upload failed");
}

std::string PeerAnswer(int socket)
{
    std::array<char, 16> answer{};
    const ssize_t got = ::recv(socket, answer.data(), answer.size(), 0);
    return { answer.data(), got > 0 ? static_cast<size_t>(got) : 0 };
}

void BareDownload(int socket)
{
    Require(SendText(socket, "GIVE " + std::to_string(kFileBytes) + '\n')
            && MoveToFile(socket, folder + "/bare", kFileBytes),
        "bare download failed");
}

void BareUpload(int socket)
{
    Require(SendText(socket, "TAKE " + std::to_string(kFileBytes) + '\n') && PeerAnswer(socket) == "0\n"
            && MoveToSocket(folder + "/source", socket, kFileBytes) && PeerAnswer(socket) == "0\n",
        "bare upload failed");
}

/// Gets the listing of `shots` from the peer and splits it.
void BareWalk(int socket, const std::string& shots)
{
    Require(SendText(socket, "WALK " + shots + '\n'), "no walk");
    std::string line;
    std::vector<char> piece(kMoveBytes);
    while (line.empty() || line.back() != '\n') {
        const ssize_t got = ::recv(socket, piece.data(), piece.size(), 0);
        Require(got > 0, "no catalogue");
        line.append(piece.data(), static_cast<size_t>(got));
    }
    std::vector<std::string> words;
    for (size_t at = 0, end = 0; (end = line.find(',', at)) != std::string::npos; at = end + 1)
        words.push_back(line.substr(at, end - at));
    constexpr size_t kWordsOfAFile = 8;
    Require(words.size() == kWordsOfAFile * kEntries, "bare walk failed");
}

bool IsThere(const char* name)
{
    int16_t err = -1;
    int16_t type = -1;
    const int16_t found = scpi.scpiFindFile(&err, name, &type);
    Require(err == TvScpiOk, "find failed");
    return found == 1;
}

void List()
{
    int16_t err = -1;
    int16_t nothing = -1;
    int16_t last = 0;
    int count = 0;
    scpi.scpiStartFindAllFiles(&err, &nothing, nullptr, nullptr);
    while (err == TvScpiOk && last == 0) {
        std::array<char, TVSCPI_TEXT_SIZE> name{};
        int16_t type = -1;
        std::array<int16_t, 6> stamp{};
        scpi.scpiGetNextFile(&err, &type, &last, &stamp[0], &stamp[1], &stamp[2], &stamp[3], &stamp[4], &stamp[5],
            name.data(), TVSCPI_TEXT_SIZE);
        ++count;
    }
    Require(err == TvScpiOk && count == kEntries, "listing failed");
}

struct Figures {
    double InstrumentDownloadMs = 1e9;
    double InstrumentUploadMs = 1e9;
    double InstrumentListMs = 1e9;
    double BareWalkMs = 1e9;
    double InstrumentFindUs = 1e9;
    double DownloadMs = 1e9;
    double UploadMs = 1e9;
    double BareDownloadMs = 1e9;
    double BareUploadMs = 1e9;
    double Growth = 0; ///< MiB
    double BareGrowth = 0;
    double FindUs = 1e9;
    double BareLineUs = 1e9;
    double ListMs = 1e9;
};

/// The best of several runs each, alternating between channel and bare socket, so both run under the same conditions.
/// The peer serves one client at a time.
void MeasureTransfers(const LinkPeer& peer, Figures& figures)
{
    for (int i = 0; i < kTransfers; ++i) {
        Connect(peer);
        figures.DownloadMs = std::min(figures.DownloadMs, MsOf(Download));
        figures.UploadMs = std::min(figures.UploadMs, MsOf(Upload));
        scpi.scpiDisconnect();
        const int socket = ConnectToPeer(peer.Port);
        figures.BareDownloadMs = std::min(figures.BareDownloadMs, MsOf([socket] { BareDownload(socket); }));
        figures.BareUploadMs = std::min(figures.BareUploadMs, MsOf([socket] { BareUpload(socket); }));
        (void)::close(socket);
    }
    Require(IsSame(folder + "/source", folder + "/down") && IsSame(folder + "/source", folder + "/up"),
        "the bytes have changed");
}

void MeasureGrowth(const LinkPeer& peer, Figures& figures)
{
    figures.Growth = GrowthMebibytes([&peer] {
        Connect(peer);
        Download();
        Upload();
        scpi.scpiDisconnect();
    });
    figures.BareGrowth = GrowthMebibytes([&peer] {
        const int socket = ConnectToPeer(peer.Port);
        BareDownload(socket);
        BareUpload(socket);
        (void)::close(socket);
    });
}

void MeasureRoundTrips(const LinkPeer& peer, Figures& figures)
{
    constexpr int kRounds = 10;
    for (int round = 0; round < kRounds; ++round) {
        Connect(peer);
        const double find = MsOf([] {
            for (int i = 0; i < kRoundTrips / kRounds; ++i)
                Require(!IsThere("x"), "find failed");
        });
        figures.ListMs = std::min(figures.ListMs, MsOf(List));
        scpi.scpiDisconnect();
        const int socket = ConnectToPeer(peer.Port);
        const double bare = MsOf([socket] {
            for (int i = 0; i < kRoundTrips / kRounds; ++i)
                Require(SendText(socket, "PING\n") && PeerAnswer(socket) == "0\n", "no answer");
        });
        (void)::close(socket);
        figures.FindUs = std::min(figures.FindUs, find * 1000 / (kRoundTrips / kRounds));
        figures.BareLineUs = std::min(figures.BareLineUs, bare * 1000 / (kRoundTrips / kRounds));
    }
}

/// Fills the instrument's folder of screen shots and makes it the current one.
LinkPeer StartFilledInstrument(const std::string& program)
{
    const std::string root = folder + "/instrument";
    const std::string shots = root + "/Public/Screen Shots";
    std::filesystem::create_directories(shots);
    std::filesystem::copy_file(folder + "/source", shots + "/x");
    for (int i = 1; i < kEntries; ++i)
        std::ofstream(shots + "/Screen shot " + std::to_string(i) + ".png") << i;
    const LinkPeer peer = StartInstrument(program, root);
    Connect(peer);
    int16_t err = -1;
    scpi.scpiSetCurrentDirectory(&err, "\\Public\\Screen Shots");
    Require(err == TvScpiOk, "no folder of screen shots");
    return peer;
}

void MeasureInstrument(const LinkPeer& barePeer, const std::string& program, Figures& figures)
{
    constexpr int kRounds = 5;
    constexpr int kFinds = 1000;
    const LinkPeer peer = StartFilledInstrument(program);
    const int socket = ConnectToPeer(barePeer.Port);
    for (int round = 0; round < kRounds; ++round) {
        figures.InstrumentListMs = std::min(figures.InstrumentListMs, MsOf(List));
        figures.BareWalkMs = std::min(
            figures.BareWalkMs, MsOf([socket] { BareWalk(socket, folder + "/instrument/Public/Screen Shots"); }));
        figures.InstrumentDownloadMs = std::min(figures.InstrumentDownloadMs, MsOf(Download));
        figures.InstrumentUploadMs = std::min(figures.InstrumentUploadMs, MsOf(Upload));
        const double finds = MsOf([] {
            for (int i = 0; i < kFinds; ++i)
                Require(IsThere("x"), "find failed");
        });
        figures.InstrumentFindUs = std::min(figures.InstrumentFindUs, finds * 1000 / kFinds);
    }
    (void)::close(socket);
    Require(IsSame(folder + "/source", folder + "/down")
            && IsSame(folder + "/source", folder + "/instrument/Public/Screen Shots/x"),
        "the bytes have changed");
    scpi.scpiDisconnect();
    StopLinkPeer(peer);
    std::filesystem::remove_all(folder + "/instrument");
}

void Print(const Figures& figures)
{
    std::printf("{\"download\": %.2f, \"bareDownload\": %.2f, \"upload\": %.2f, \"bareUpload\": %.2f, "
                "\"growth\": %.2f, \"bareGrowth\": %.2f, \"find\": %.2f, \"bareLine\": %.2f, \"listing\": %.2f, ",
        figures.DownloadMs, figures.BareDownloadMs, figures.UploadMs, figures.BareUploadMs, figures.Growth,
        figures.BareGrowth, figures.FindUs, figures.BareLineUs, figures.ListMs);
    std::printf("\"instrumentDownload\": %.2f, \"instrumentUpload\": %.2f, \"instrumentFind\": %.2f, "
                "\"instrumentListing\": %.2f, \"bareWalk\": %.2f}\n",
        figures.InstrumentDownloadMs, figures.InstrumentUploadMs, figures.InstrumentFindUs, figures.InstrumentListMs,
        figures.BareWalkMs);
}

} // namespace

} // namespace tarvik

using namespace tarvik;

int main(int argc, char** argv)
{
    Require(argc == 3, "usage: bench_link FOLDER INSTRUMENT");
    folder = argv[1];
    WriteSource(folder + "/source");
    const LinkPeer peer = StartLinkPeer(folder + "/source", folder + "/up", kEntries);
    scpi.Size = sizeof scpi;
    Require(TvScpiBind(&scpi) == 0, "not bound");

    Figures figures;
    MeasureGrowth(peer, figures);
    MeasureTransfers(peer, figures);
    MeasureRoundTrips(peer, figures);
    MeasureInstrument(peer, argv[2], figures);
    StopLinkPeer(peer);
    for (const char* name : { "/source", "/up", "/down", "/bare" })
        std::filesystem::remove(folder + name);
    Print(figures);
    return 0;
}
