// lists/editor/editorGrid.h: the grid of the list editors: a page of real cells over a longer table. It knows columns
// and rows, not what they mean: the editor answers for the contents.
#pragma once

#include "app/text/textNumber.h"
#include "lists/editor/gridCells.h"

#include <QHash>

#include <vector>

class QScrollBar;

namespace tarvik {

enum class CellKind {
    RowLabel, ///< the row's number
    Check, ///< a check box without text
    Text,
    Number ///< a text with its digits to the right
};

/// A column; its place in the description is its number.
struct GridColumn {
    const char* Name; ///< control name of its cells, without the index
    CellKind Kind;
    TextNumber<0> HeaderText;
    int MaxLength; ///< characters that a text cell takes; 0 for one that only shows
    int WidthDigits; ///< width, in digits of the font; the last column takes what is left
    bool Sorts = false; ///< a click on its header means something
};

struct GridShape {
    int Rows;
    int FirstLabel = 0; ///< label of row 0
    int VisibleRows = 20;
    bool MarksRow = false; ///< the current row has a colour of its own
    bool PlainWindowText = false; ///< plain cells show their text in the window-text instead of the button-text colour
    int CellHelp = 0; ///< help number of headers and cells
};

/// What an editor answers its grid.
class GridRows {
public:
    virtual ~GridRows() = default;

    virtual bool RowIsUsed(int row) const = 0;
    virtual QString CellText(int row, int column) const = 0;
    virtual bool CellIsChecked(int row, int column) const = 0;

    /// The user has changed a cell. Not called while the grid fills itself.
    virtual void TextChanged(int row, int column, const QString& text) = 0;
    virtual void CheckChanged(int row, int column, bool checked) = 0;

    /// The focus leaves a cell of a used row: checks `text`, takes it over and answers how the cell shows it.
    /// False, after a message, keeps the focus.
    virtual bool CheckCell(int row, int column, QString& text) = 0;

    virtual void RowSelected(int row) = 0;
    virtual void RowOpened(int row) = 0; ///< double click
    virtual void HeaderClicked(int column) = 0;
};

class EditorGrid final : public QWidget {
    Q_OBJECT
public:
    /// `rows` outlives the grid.
    EditorGrid(QWidget* parent, GridRows& rows, const GridShape& shape, std::vector<GridColumn> columns);

    /// Shows the page at the scroll bar's value. The same page is not filled again, only marked, unless `force`.
    void FillRows(bool force);

    /// True while cells are being filled: their changes mean nothing.
    bool Filling() const
    {
        return filling_;
    }

    int TopRow() const
    {
        return topRow_;
    }
    int CurrentRow() const
    {
        return currentRow_;
    }
    int CurrentColumn() const
    {
        return currentColumn_;
    }

    /// A key in a cell: Up, Down, Enter and the page keys change the row; true when it was one of them.
    bool CellKeyDown(int column, int key, int shift);

    /// Gives the focus to a cell of the shown page and marks its text. Columns without input are ignored.
    void CellSetFocus(int row, int column);

    /// Checks what was typed into a cell and not yet taken over. False keeps the focus there.
    [[nodiscard]] bool Commit();

    /// Checks the cells of the used rows of this page, top down. False with the focus on the first bad one.
    [[nodiscard]] bool CheckPage();

    /// Writes these cells of a shown row anew.
    void RefreshCells(int row, const std::vector<int>& columns);

    /// Moves to the first page without asking for the focus.
    void ScrollToTop();

    /// Brings the current row into view.
    void ShowCurrentRow();

    /// Makes row 0 the current one again, in the same column, or at first in the one that is typed into.
    void ResetCurrent();

    /// Gives the focus back to the current cell, or to the grid when that is out of view.
    void FocusCurrent();

    /// The control that Tab reaches last.
    QWidget* LastInput() const;

    /// The arrow on a header; column -1 for none.
    void ShowSortMark(int column, bool ascending);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct Cell {
        QWidget* Control = nullptr;
        int Index = 0; ///< visible row
        int Column = 0;
        CellState State = CellState::Plain;
    };

    void BuildHeaders();
    void BuildRow(int index);
    QWidget* BuildCell(int index, int column);
    void BuildScrollBar();
    void LayOut();
    int RowHeightPx() const;
    int HeaderHeightPx() const;
    int ColumnWidthPx(const GridColumn& column) const;

    Cell& CellAt(int index, int column);
    Cell* CellOf(const QObject* control);
    int IndexOfRow(int row) const; ///< visible row, or -1
    bool HasInput(int column) const;
    QString CellName(int index, int column) const;

    void FillCell(Cell& cell, bool used);
    void Colour(Cell& cell);
    void ColourRow(int index);
    void SetCurrent(int row, int column);
    bool CheckVisibleCell(int index, int column);
    void OnScroll(int value);
    void OnText(int index, int column, const QString& text);
    void OnCheck(int index, int column, bool checked);
    void ScrollTo(int topRow);
    bool OnCellEvent(Cell& cell, QEvent* event);
    bool OnCellKey(const Cell& cell, const QKeyEvent* event);
    bool OnRowClicked(const Cell& cell);
    bool OnDoubleClick(const Cell& cell);

    GridRows& rows_;
    GridShape shape_;
    std::vector<GridColumn> columns_;
    std::vector<GridHeader*> headers_; // children of the grid
    std::vector<Cell> cells_; // row by row; the controls are children of the grid
    QHash<const QObject*, int> placeOf_; // index into cells_
    QWidget* focused_ = nullptr; // the cell with the focus, also while another window is on top
    QScrollBar* VScroll1 = nullptr;
    CellPalettes palettes_;
    int topRow_ = -1;
    int currentRow_ = 0;
    int currentColumn_ = 0;
    int wheelTurn_ = 0; // of the wheel, not yet a whole row
    int pendingRow_ = -1; // a cell whose text the editor has not checked yet
    int pendingColumn_ = -1;
    bool filling_ = false;
    bool moving_ = false; // the grid itself moves the scroll bar
};

} // namespace tarvik
