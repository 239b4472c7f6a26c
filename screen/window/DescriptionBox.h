// screen/window/DescriptionBox.h: `TbDescription`, the box in which a description is typed.
#pragma once

#include <QPlainTextEdit>

namespace tarvik {

/// A box without frame and bars, as large as its text, whose lines are those of descriptionText.h.
class DescriptionBox final : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit DescriptionBox(QWidget* parent);

    /// Lines parted by "\n".
    QString Text() const;

    /// Another text, with the caret behind it. No `Edited`. As an answer to `Edited` it is one step of undoing with
    /// what was typed; else what was typed before can't be undone any more.
    void SetText(const QString& text);

    /// Place, and the font whose blank is a column wide. What was typed at another width can't be undone any more.
    /// Where the window is narrower than the place, the box follows the caret while it has the focus.
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
    bool answering_ = false; ///< what SetText sets is an answer to what was typed
};

} // namespace tarvik
