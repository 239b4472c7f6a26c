// lists/editor/gridCells.h: the controls that a list editor's grid is made of, light enough to be filled and drawn by
// the page.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

#include <array>

namespace tarvik {

/// Colours of a cell. The backgrounds of a marked row and of a focused cell are fixed light ones.
enum class CellState { Plain, CurrentRow, Focused };
inline constexpr int kCellStates = 3;
using CellPalettes = std::array<QPalette, kCellStates>;

/// The colours of each state, made from the system's `palette`: plain cells in the window colour with button-text (or,
/// with `plainWindowText`, window-text) colour; the others in window-text colour on BB BB 55 and EE EE 88. Where the
/// system writes light on dark, text on these two is black, since light text could not be read on them.
CellPalettes MakeCellPalettes(const QPalette& palette, bool plainWindowText);

/// Text cell: a line edit without frame.
class GridText final : public QLineEdit {
    Q_OBJECT
public:
    explicit GridText(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Check box cell: the box in the middle of the cell, all of which can be clicked.
class GridCheck final : public QCheckBox {
    Q_OBJECT
public:
    explicit GridCheck(QWidget* parent);

protected:
    bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;
};

/// Number of a row, left of its cells.
class GridRowLabel final : public QLabel {
    Q_OBJECT
public:
    explicit GridRowLabel(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

enum class SortMark { None, Up, Down };

/// Header of a column, drawn as the system draws headers.
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
