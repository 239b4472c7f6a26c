// app/menu/frameDocuments.h: the port to the open documents: what the frame asks of them.
#pragma once

#include "app/platform/port.h"

#include <QString>

class QMimeData;

namespace tarvik {

/// The open documents as the menus see them.
struct DocumentsState {
    bool Active = false; ///< a valid document window is active
    bool AnyMinimised = false;
    bool AnyShown = false; ///< one is not minimised
    bool ActiveIsMaximised = false;
    bool ActiveAtDefaultSize = false;
    bool DescriptionVisible = false; ///< of the active window
};

/// Implemented by screen/. Without it none is open, and no file can be opened.
class FrameDocuments {
public:
    virtual ~FrameDocuments() = default;

    virtual DocumentsState State() const = 0;
    virtual void Enable(bool enabled) = 0; ///< whether their windows accept the mouse
    virtual void Retile() = 0; ///< the area for child windows has changed size
    virtual void CheckPendingResize() = 0; ///< on each tick of the frame's tip timer
    virtual void ClearTable() = 0;
    virtual bool CloseAll() = 0; ///< with prompts; false if one was cancelled

    virtual bool Open(const QString& path) = 0; ///< a document or a list; true on success
    virtual bool CanOpen(const QString& path) const = 0; ///< the file test of a drop
    virtual bool CanTake(const QMimeData& data) const = 0; ///< dropped data that is no list of files
};

Port<FrameDocuments>& TheFrameDocuments();

} // namespace tarvik
