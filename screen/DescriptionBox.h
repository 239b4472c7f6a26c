// screen/DescriptionBox.h: `TbDescription`, the box in which a description is typed.
#pragma once

#include <QPlainTextEdit>

/// A box without frame and bars, as large as its text, that wraps at its width.
class DescriptionBox final : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit DescriptionBox(QWidget* parent);

    /// Another text, with the caret behind it. No `Edited`.
    void SetText(const QString& text);

    /// Place, and the font whose blank is a column wide.
    void SetPlace(const QRect& place, const QFont& font);

    void SetColours(const QColor& paper, const QColor& text);

Q_SIGNALS:
    void Edited(const QString& text); ///< by the user

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
};
