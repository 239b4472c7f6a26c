// screen/window/descriptionEdit.h: changes the description of a window: visibility, text and width.
#pragma once

#include "screen/document/description.h"

namespace tarvik {

/// Shows or hides the block and resizes the window accordingly. Showing it in a maximised window, where it is
/// invisible, clears the text.
void DescrSetVisible(bool visible, WindowId id);
void DescrToggle(WindowId id);

/// The user has typed: `text` is the content of the control. An eleventh line is undone silently; other text is
/// stored up to the length limit, and the window height is adjusted.
void DescrTextChanged(WindowId id, const QString& text);

/// Sets the text of a window as if the user had typed it. False if it was cut: more than ten lines, or more
/// characters than a description holds.
bool DescrSetText(WindowId id, const QString& text);

/// Fits the window height to picture and description; does nothing while maximised or minimised.
void DescrResize(WindowId id);

/// The operations of `FmDescription` on one window. Each width is applied to the text from when the form opened, so
/// that a narrow width does not lose text for good.
class DescriptionChoice {
public:
    explicit DescriptionChoice(WindowId id);

    DescriptionColumns Limits() const;
    int Columns() const; ///< current columns

    /// Applies the typed width. False after text 12749, with nothing changed.
    [[nodiscard]] bool Apply(const QString& typed);

    /// Restores columns and text from when the form opened.
    void Cancel();

private:
    void Show(const QString& text);

    WindowId id_;
    qint16 columns_;
    QString text_;
    bool modified_;
};

} // namespace tarvik
