#include "app/menu/frameDocuments.h"

namespace tarvik {

namespace {

class NoDocuments final : public FrameDocuments {
public:
    DocumentsState State() const override
    {
        return {};
    }
    void Enable(bool) override { }
    void Retile() override { }
    void CheckPendingResize() override { }
    void ClearTable() override { }
    bool CloseAll() override
    {
        return true;
    }
    bool Open(const QString&) override
    {
        return false;
    }
    bool CanOpen(const QString&) const override
    {
        return false;
    }
    bool CanTake(const QMimeData&) const override
    {
        return false;
    }
};

} // namespace

Port<FrameDocuments>& TheFrameDocuments()
{
    static PortOr<FrameDocuments, NoDocuments> port;
    return port;
}

} // namespace tarvik
