#include "link/documents/documents.h"

namespace tarvik {

namespace {

class NoDocuments final : public Documents {
public:
    int Open(const QString&, ImageKind) override
    {
        return 0;
    }
    PictureSaved Save(const QString&, ImageKind, int) override
    {
        return PictureSaved::Failed;
    }
    void UseOwnSize(int) override { }
    void Close(int) override { }
    bool IsBlackAndWhite() const override
    {
        return false;
    }
    void BeginBatch(std::optional<bool>) override { }
    void EndBatch() override { }
    bool IsDataSet(int) const override
    {
        return false;
    }
};

class NoListFiles final : public ListFiles {
public:
    bool Open(const QString&, FileClass) override
    {
        return false;
    }
    bool OpenText(const QString&, bool) override
    {
        return false;
    }
};

} // namespace

Port<Documents>& TheDocuments()
{
    static PortOr<Documents, NoDocuments> port;
    return port;
}

Port<ListFiles>& TheListFiles()
{
    static PortOr<ListFiles, NoListFiles> port;
    return port;
}

} // namespace tarvik
