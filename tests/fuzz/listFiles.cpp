#include "tests/fuzz/listFiles.h"

#include "app/message/message.h"
#include "closed/loader.h"
#include "lists/editor/editorGeneral.h"

#include <algorithm>

namespace tarvik {

namespace {

class MessageCounter final : public MessagePresenter {
public:
    void Present(MessageRequest& request) override
    {
        ++Shown;
        request.Result = request.IsQuestion() ? MsgResult::No : MsgResult::Ok;
    }

    int Shown = 0;
};

MessageCounter& Counter()
{
    static MessageCounter counter;
    return counter;
}

bool Bind()
{
    TvLng().Size = sizeof(TvLngApi);
    TvFio().Size = sizeof(TvFioApi);
    Require(TvLngBind(&TvLng()) == 0 && TvFioBind(&TvFio()) == 0);
    ModuleMarkBound(Module::Language);
    ModuleMarkBound(Module::ListStore);
    TheMessagePresenter().Set(Counter());
    ReadInstrumentLimits();
    return true;
}

} // namespace

void FuzzStart(FileClass listType)
{
    [[maybe_unused]] static const bool isBound = Bind();
    SetEditorType(listType);
}

int FuzzMessages()
{
    return Counter().Shown;
}

MemoryDisk::MemoryDisk(tvfile::ByteView file)
    : file_(file.begin(), file.end())
{
    tvfile::SetFileSystem(this);
}

MemoryDisk::~MemoryDisk()
{
    tvfile::SetFileSystem(nullptr);
}

int MemoryDisk::Describe(const std::string& path, tvfile::FileInfo& info)
{
    info.RealPath = path;
    return 0;
}

bool MemoryDisk::IsStillNamed(intptr_t, const std::string&)
{
    return true;
}

int MemoryDisk::OpenToRead(const std::string&, intptr_t& handle, uint64_t& bytes)
{
    handle = 0;
    bytes = file_.size();
    at_ = 0;
    return 0;
}

int MemoryDisk::Read(intptr_t, std::span<uint8_t> room, size_t& got)
{
    got = std::min(room.size(), file_.size() - at_);
    std::copy_n(file_.begin() + static_cast<std::ptrdiff_t>(at_), got, room.begin());
    at_ += got;
    return 0;
}

void MemoryDisk::Close(intptr_t) { }

int MemoryDisk::Create(const std::string&, uint32_t, intptr_t& handle)
{
    handle = 0;
    written_.clear();
    return 0;
}

int MemoryDisk::Write(intptr_t, tvfile::ByteView bytes, size_t& written)
{
    written_.insert(written_.end(), bytes.begin(), bytes.end());
    written = bytes.size();
    return 0;
}

int MemoryDisk::Flush(intptr_t)
{
    return 0;
}

int MemoryDisk::Replace(intptr_t, const std::string&, const std::string&)
{
    file_ = written_;
    return 0;
}

void MemoryDisk::Discard(intptr_t, const std::string&) { }

void MemoryDisk::FlushFolder(const std::string&) { }

} // namespace tarvik
