// screen/window/DescriptionBox.h: `TbDescription`, the edit box of a description.
#pragma once

#include <QPlainTextEdit>

namespace tarvik {

/// A text box without frame and scroll bars, as large as its text, with the line breaks of descriptionText.h.
class DescriptionBox final : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit DescriptionBox(QWidget* parent);

    /// Lines separated by "\n".
    QString Text() const;

    /// Sets the text with the caret at its end. Does not emit `Edited`. From a slot of `Edited` it forms one undo
    /// step with the typing; otherwise it clears the undo history.
    void SetText(const QString& text);

    /// Sets geometry and font; a blank of the font is one column wide. A new width clears the undo history. If the
    /// window is narrower than `place`, the box follows the caret while it has the focus.
    void SetPlace(const QRect& place, const QFont& font);

    void SetColours(const QColor& paper, const QColor& text);

Q_SIGNALS:
    void Edited(const QString& text); ///< by the user

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void Change();
    void Tidy();
    void Replace(const QString& text);
    void Stand();

    QRect place_;
    bool answering_ = false; ///< SetText is called in response to typing
};

} // namespace tarvik
