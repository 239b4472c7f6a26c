#include "screen/files/documentFiles.h"

#include "app/state/frame.h"
#include "app/state/project.h"
#include "link/documents/documents.h"
#include "link/documents/fileSave.h"
#include "screen/document/screenTable.h"
#include "screen/files/document.h"
#include "screen/files/pictureFile.h"
#include "screen/window/closing.h"
#include "screen/window/screenWindow.h"

#include <utility>

namespace tarvik {

namespace {

class ScreenDocuments final : public Documents {
public:
    int Open(const QString& path, ImageKind kind) override
    {
        const OpenedImage image = ImgOpen(path, kind, WindowSubtype::File);
        return image.Result == 0 ? image.Id : 0;
    }

    PictureSaved Save(const QString& path, ImageKind kind, int window) override
    {
        if (ImgSave(path, kind, static_cast<WindowId>(window)))
            return PictureSaved::Written;
        const bool isSilent = !LoadPictureLibrary(); // reported at start
        return isSilent || kind == ImageKind::Metafile ? PictureSaved::FailedAndReported : PictureSaved::Failed;
    }

    /// Composing uses the stretched copy, whose size is that of a tiled or maximised window.
    void UseOwnSize(int window) override
    {
        const auto id = static_cast<WindowId>(window);
        DocumentPicture* picture = PictureOf(id);
        if (picture != nullptr && !picture->OwnSize().isEmpty() && picture->Graph.size() != picture->OwnSize())
            picture->Graph = picture->Draw(picture->OwnSize(), 1);
    }

    void Close(int window) override
    {
        DropWindow(static_cast<WindowId>(window));
    }

    bool IsDataSet(int window) const override
    {
        return WindowTypeOf(static_cast<WindowId>(window)) == WindowType::DataSet;
    }

    bool IsBlackAndWhite() const override
    {
        return TheColorDefaults().PalNr == PaletteNumber::BlackAndWhite;
    }

    void BeginBatch(std::optional<bool> blackAndWhite) override
    {
        TheScreenWindows().Batch = { WindowTable().Active, TheColorDefaults().PalNr };
        if (blackAndWhite)
            TheColorDefaults().PalNr = *blackAndWhite ? PaletteNumber::BlackAndWhite : PaletteNumber::Colour;
    }

    void EndBatch() override
    {
        const ScreenBatch before = std::exchange(TheScreenWindows().Batch, {}).value_or(ScreenBatch());
        TheColorDefaults().PalNr = before.PalNr;
        WindowTable().Active = WindowInUse(before.Active) ? before.Active : WindowId(0);
        UpdateAfterClosing();
        TheFrame()->MenuUpdate();
    }
};

} // namespace

void BindDocumentFiles()
{
    TheDocuments().Implement<ScreenDocuments>();
}

} // namespace tarvik
