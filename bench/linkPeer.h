// bench/linkPeer.h: the other end of the link benchmarks, in its own process: a minimal instrument, and bare transfers
// of the same bytes.
#pragma once

#include <cstdint>
#include <string>
#include <sys/types.h>

namespace tarvik {

/// Bytes per call in bare transfers and in the peer.
inline constexpr size_t kMoveBytes = size_t{ 256 } << 10;

struct LinkPeer {
    uint16_t Port = 0;
    pid_t Process = -1;
};

/// Starts the peer. It sends the file `source` for every download, stores every upload in the file `target`, and lists
/// `entries` files.
LinkPeer StartLinkPeer(const std::string& source, const std::string& target, int entries);
void StopLinkPeer(const LinkPeer& peer);

/// Starts an instrument program on a port of its choice, with its files in `root`.
LinkPeer StartInstrument(const std::string& program, const std::string& root);

/// A bare connection to the peer.
int ConnectToPeer(uint16_t port);

/// Move `bytes` bytes between a file and a socket. False if fewer are received.
bool MoveToSocket(const std::string& path, int socket, uint64_t bytes);
bool MoveToFile(int socket, const std::string& path, uint64_t bytes);

/// Sends all of `text`.
bool SendText(int socket, const std::string& text);

} // namespace tarvik
