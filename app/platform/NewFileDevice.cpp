#include "app/platform/NewFileDevice.h"

#include "app/platform/paths.h"

#include <utility>

namespace tarvik {

namespace {

/// Writers of pictures and pages write in small pieces.
constexpr size_t kPieceBytes = size_t{ 256 } << 10;

} // namespace

NewFileDevice::NewFileDevice(const QString& path)
    : path_(ModulePath(path).toStdString())
{
}

bool NewFileDevice::open(OpenMode mode)
{
    if (mode != WriteOnly || std::exchange(wasOpened_, true))
        return false;
    isWhole_ = file_.Begin(path_).Ok();
    return isWhole_ && QIODevice::open(mode | Unbuffered);
}

bool NewFileDevice::Commit()
{
    const bool isComplete = std::exchange(isWhole_, false) && WritePiece();
    return isComplete && file_.Commit(true).Ok();
}

qint64 NewFileDevice::readData(char*, qint64)
{
    return -1;
}

qint64 NewFileDevice::writeData(const char* data, qint64 size)
{
    if (!isWhole_)
        return -1;
    piece_.insert(piece_.end(), data, data + size);
    isWhole_ = piece_.size() < kPieceBytes || WritePiece();
    return isWhole_ ? size : -1;
}

bool NewFileDevice::WritePiece()
{
    const bool isWritten = file_.Write(piece_).Ok();
    piece_.clear();
    return isWritten;
}

} // namespace tarvik
