#include "screen/window/FrameDesktop.h"

#include "app/frame/MfMain.h"
#include "link/documents/fileSave.h"
#include "screen/document/view.h"
#include "screen/window/ChildWindows.h"
#include "screen/window/FmSelectWindow.h"
#include "screen/window/MfScreen.h"
#include "screen/window/screenWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QMdiArea>
#include <QMimeData>
#include <QPointer>

namespace tarvik {

namespace {

class FrameDesktop final : public ScreenDesktop {
public:
    /// The modules keep it as long as its document lives; the frame's area may be destroyed earlier.
    ScreenViewOwner Load(WindowId id) override
    {
        MfMain* frame = MfMain::Current();
        if (frame == nullptr || TheScreenWindows().Batch)
            return LoadSizesView();
        QPointer<MfScreen> window = new MfScreen(id, *frame);
        return { window.data(), [window](ScreenView*) {
                    if (window)
                        window->Release();
                } };
    }

    bool MainFrameIsActive() override
    {
        return MfMain::Current() != nullptr && MfMain::Current()->HasActivation();
    }

    void Arrange(Arrangement arrangement) override
    {
        if (MfMain* frame = MfMain::Current())
            ArrangeChildWindows(*frame->ChildArea(), arrangement);
    }

    bool SetClipboard(const QImage& picture) override
    {
        QClipboard* clipboard = QGuiApplication::clipboard();
        clipboard->setImage(picture);
        const QMimeData* held = clipboard->mimeData();
        return held != nullptr && held->hasImage();
    }

    bool Save(WindowId id) override
    {
        return FileSaveAsDlg(id);
    }

    QVector<WindowId> SelectWindows(const QVector<WindowId>& offered, WindowId marked) override
    {
        FmSelectWindow form(offered, marked, QApplication::activeWindow());
        DialogShow(form);
        return form.Chosen();
    }
};

} // namespace

void BindScreenDesktop()
{
    TheScreenDesktop().Implement<FrameDesktop>();
}

} // namespace tarvik
