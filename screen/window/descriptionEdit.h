// screen/window/descriptionEdit.h: turning the description of a window on and off, typing into it, and its width.
#pragma once

#include "screen/document/description.h"

namespace tarvik {

/// Shows or hides the block; the window grows or shrinks by it. Showing it in a maximised window, where it can't be
/// seen, empties the text.
void DescrSetVisible(bool visible, WindowId id);
void DescrToggle(WindowId id);

/// The user has typed: `text` is what the control holds now. An eleventh line is taken back without a word; all else is
/// stored as far as there is room, and the window is as high as the text then asks for.
void DescrTextChanged(WindowId id, const QString& text);

/// Puts a text into a window, as a user would type it. False if some of it had to be left out: more than ten lines, or
/// more characters than a description holds.
bool DescrSetText(WindowId id, const QString& text);

/// The window as high as picture and description ask for; nothing while it is maximised or minimised.
void DescrResize(WindowId id);

/// What `FmDescription` does with one window. The text that it had when the form opened is what each width is applied
/// to, so that a narrow one does not cost what a wider one has room for.
class DescriptionChoice {
public:
    explicit DescriptionChoice(WindowId id);

    DescriptionColumns Limits() const;
    int Columns() const; ///< as they are now

    /// What was typed becomes the width. False after text 12749, with nothing changed.
    [[nodiscard]] bool Apply(const QString& typed);

    /// Columns and text as they were when the form opened.
    void Cancel();

private:
    void Show(const QString& text);

    WindowId id_;
    qint16 columns_;
    QString text_;
    bool modified_;
};

} // namespace tarvik
