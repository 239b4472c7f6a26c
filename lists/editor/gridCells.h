// lists/editor/gridCells.h: the controls of a list editor's grid, cheap enough to refill and repaint a page per key.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

#include <array>

namespace tarvik {

/// Selects the colours of a cell. The backgrounds of CurrentRow and Focused are fixed and light.
enum class CellState { Plain, CurrentRow, Focused };
inline constexpr int kCellStates = 3;
using CellPalettes = std::array<QPalette, kCellStates>;

/// Palettes by state, derived from the system's `palette`: plain cells with button-text (with `plainWindowText`:
/// window-text) colour on the base colour; the others with window-text colour on BB BB 55 and EE EE 88. If the system's
/// text is light, text on these two is black.
CellPalettes MakeCellPalettes(const QPalette& palette, bool plainWindowText);

/// Text cell.
class GridText final : public QLineEdit {
    Q_OBJECT
public:
    explicit GridText(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
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
