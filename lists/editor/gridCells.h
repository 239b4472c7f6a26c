// lists/editor/gridCells.h: the controls of a list editor's grid, cheap enough to refill and repaint a page per key.
#pragma once

#include <QCheckBox>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include <array>

namespace tarvik {

/// Selects the colours of a cell. All backgrounds but that of Plain are fixed and light.
enum class CellState { Plain, CurrentRow, Focused, Invalid };
inline constexpr int kCellStates = 4;
using CellPalettes = std::array<QPalette, kCellStates>;

/// Which colours the cells of a grid have.
struct CellColours {
    bool HighlightsRow = false; ///< EE EE 88 and window text instead of DD DD 77 and button text for the focused cell
    bool PlainWindowText = false; ///< window text instead of button text for plain cells
};

/// Palettes by state, derived from the system's `palette`: plain cells on the base colour, the current row BB BB 55,
/// invalid cells DD 77 77. If the system's text is light, text on a fixed background is black.
CellPalettes MakeCellPalettes(const QPalette& palette, const CellColours& colours);

/// False if another window or a menu takes the focus only for a while.
bool IsFocusMoved(const QFocusEvent& event);

/// A cell that shows text.
class GridTextCell {
public:
    virtual QString Text() const = 0;

    /// The cell shows the beginning of the text unless it has the focus.
    virtual void SetText(const QString& text) = 0;
    virtual void SelectAll() = 0;

    /// Characters that can be typed. A longer text that has been set is kept.
    virtual void SetLimit(int length) = 0;

protected:
    ~GridTextCell() = default;
};

/// Text cell of one line.
class GridText final : public QLineEdit, public GridTextCell {
    Q_OBJECT
public:
    explicit GridText(QWidget* parent);

    QString Text() const override;
    void SetText(const QString& text) override;
    void SelectAll() override;
    void SetLimit(int length) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int limit_ = 0;
};

/// Text cell that wraps one paragraph over several lines and scrolls with the caret. Line ends become blanks.
class GridLines final : public QPlainTextEdit, public GridTextCell {
    Q_OBJECT
public:
    explicit GridLines(QWidget* parent);

    QString Text() const override;
    void SetText(const QString& text) override;
    void SelectAll() override;
    void SetLimit(int length) override;

    bool IsCaretInFirstLine() const;
    bool IsCaretInLastLine() const;

Q_SIGNALS:
    void Edited(const QString& text);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int Room() const;

    int limit_ = 0;
};

/// Check box cell: the box is centred, the whole cell can be clicked.
class GridCheck final : public QCheckBox {
    Q_OBJECT
public:
    explicit GridCheck(QWidget* parent);

protected:
    bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;
};

/// Number of a row.
class GridRowLabel final : public QLabel {
    Q_OBJECT
public:
    explicit GridRowLabel(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

enum class SortMark { None, Up, Down };

/// Header of a column, in the system's style.
class GridHeader final : public QLabel {
    Q_OBJECT
public:
    GridHeader(QWidget* parent, bool canBeClicked);

    void SetSortMark(SortMark mark);
    SortMark Mark() const
    {
        return mark_;
    }

Q_SIGNALS:
    void Clicked();

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool canBeClicked_;
    bool pressed_ = false;
    SortMark mark_ = SortMark::None;
};

} // namespace tarvik
