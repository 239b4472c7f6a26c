// lists/editor/editorGrid.h: the grid of the list editors: one page of cell controls that scrolls over a longer table.
// The contents come from the editor (`GridRows`).
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
    Number, ///< right-aligned text
    Lines ///< text of several lines
};

/// A column; its index in the list of columns is its number.
struct GridColumn {
    const char* Name; ///< of its cells, without the index
    CellKind Kind;
    TextNumber<0> HeaderText;
    int MaxLength; ///< characters that can be typed; 0: read-only
    int WidthDigits; ///< width in digits of the font; a last column of text, or all columns of numbers take the rest
    bool Sorts = false; ///< its header can be clicked
    const char* HeaderName = nullptr; ///< name of its header; null: LbHdr with the column's number
    int ShortCells = 0; ///< the cells of this many visible rows, from the last, take only `ShortLength` characters
    int ShortLength = 0;
};

struct GridShape {
    int Rows;
    int FirstLabel = 0; ///< label of row 0
    int VisibleRows = 20;
    int LinesPerRow = 1; ///< lines of text that a row shows
    bool HighlightsRow = false; ///< the current row has its own colour
    bool PlainWindowText = false; ///< plain cells use the window-text instead of the button-text colour
    bool IgnoresWheel = false; ///< the form handles the wheel, see `TurnPage`
    int CellHelp = 0; ///< help number of headers and cells
    const char* Name = "Grid";
    const char* ScrollBarName = "VScroll1";
};

/// Contents and reactions of a grid, implemented by the editor.
class GridRows {
public:
    virtual ~GridRows() = default;

    virtual bool IsRowUsed(int row) const = 0;
    virtual QString CellText(int row, int column) const = 0;
    virtual bool IsCellChecked(int row, int column) const = 0;

    /// The user has changed a cell. Not called while the grid is being filled.
    virtual void TextChanged(int row, int column, const QString& text) = 0;
    virtual void CheckChanged(int row, int column, bool checked) = 0;

    /// The focus leaves a cell of a used row: checks `text`, stores it and sets it to what the cell shows. False, after
    /// a message, keeps the focus.
    virtual bool CheckCell(int row, int column, QString& text) = 0;

    /// An invalid cell has its own colour.
    virtual bool IsCellInvalid(int row, int column) const;

    /// Another row is about to become the current one. False, after a message, refuses; the implementation moves the
    /// focus to what is wrong.
    virtual bool MayLeaveRow(int row);

    virtual void RowSelected(int row) = 0;
    virtual void RowOpened(int row) = 0; ///< double click
    virtual void HeaderClicked(int column) = 0;
};

class EditorGrid final : public QWidget {
    Q_OBJECT
public:
    /// `rows` outlives the grid.
    EditorGrid(QWidget* parent, GridRows& rows, const GridShape& shape, std::vector<GridColumn> columns);

    /// Shows the page at the scroll bar's value. If that page is shown already, only the colours are updated, unless
    /// `force`.
    void FillRows(bool force);

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

    /// Up, Down, Enter and the page keys change the row; true if `key` is one of them.
    bool CellKeyDown(int column, int key, int shift);

    /// Moves the focus to a visible cell and selects its text. Columns without input are ignored.
    void CellSetFocus(int row, int column);

    /// As above, with the row scrolled into view.
    void GoTo(int row, int column);

    /// Checks the cell that is being edited. False keeps the focus there.
    [[nodiscard]] bool Commit();

    /// Checks the edited cell and the focused control of the form, for clicks and commands that move the focus without
    /// Qt's focus change by mouse or Tab. False keeps the focus there.
    [[nodiscard]] bool MayLeaveFocus();

    /// Checks the visible cells of used rows, top down. False with the focus on the first bad one.
    [[nodiscard]] bool CheckPage();

    /// Text of a cell of a visible row, as it is typed; empty for other rows and check boxes.
    QString TextInCell(int row, int column) const;

    /// Shows a text in a cell of a visible row, as long as it has not been stored.
    void ShowText(int row, int column, const QString& text);

    /// Moves the view by a page.
    void TurnPage(bool up);

    /// Refills these cells of a row, if it is visible.
    void RefreshCells(int row, const std::vector<int>& columns);

    /// Scrolls to the first page without moving the focus.
    void ScrollToTop();

    /// Scrolls the current row into view.
    void ShowCurrentRow();

    /// Makes row 0 the current one. Keeps the column if it has input, else takes the first editable one.
    void ResetCurrent();

    /// Moves the focus to the current cell, or to the grid if that is not visible.
    void FocusCurrent();

    /// Last cell in the tab order.
    QWidget* LastInput() const;

    /// Shows the sort arrow on a header; column -1: on none.
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
        GridTextCell* Input = nullptr; ///< the control; null for a row label or check box
        int Index = 0; ///< visible row
        int Column = 0;
        CellState State = CellState::Plain;
    };

    void BuildHeaders();
    void BuildRow(int index);
    QWidget* BuildCell(int index, int column);
    QWidget* BuildLines(int index, int column);
    int LengthOfCell(const GridColumn& column, int index) const;
    void BuildScrollBar();
    void LayOut();
    int RowHeightPx() const;
    int HeaderHeightPx() const;
    int ColumnWidthPx(const GridColumn& column) const;
    int SharePx() const;

    Cell& CellAt(int index, int column);
    Cell* CellOf(const QObject* control);
    const Cell& CellAt(int index, int column) const;
    int IndexOfRow(int row) const; ///< visible row, or -1
    bool HasInput(int column) const;
    QString CellName(int index, int column) const;

    CellState StateOf(const Cell& cell) const;
    void FillCell(Cell& cell, bool used);
    void ColourCell(Cell& cell);
    void ColourRow(int index);
    void SetCurrent(int row, int column);
    bool CheckVisibleCell(int index, int column);
    void OnScroll(int value);
    void OnText(int index, int column, const QString& text);
    void OnCheck(int index, int column, bool checked);
    void ScrollTo(int topRow);
    void ScrollIntoView(int row);
    bool OnCellEvent(Cell& cell, QEvent* event);
    bool OnScrollBarEvent(QEvent* event);
    bool OnCellKey(const Cell& cell, const QKeyEvent* event);
    bool OnFocusIn(Cell& cell, Qt::FocusReason reason);
    bool OnRowClicked(const Cell& cell);
    bool OnDoubleClick(const Cell& cell);

    GridRows& rows_;
    GridShape shape_;
    std::vector<GridColumn> columns_;
    std::vector<GridHeader*> headers_; // children of the grid
    std::vector<Cell> cells_; // row by row; the controls are children of the grid
    QHash<const QObject*, int> placeOf_; // index into cells_
    QWidget* focused_ = nullptr; // the cell with the focus, also while another window is active
    QScrollBar* VScroll1 = nullptr;
    CellPalettes palettes_;
    int topRow_ = -1;
    int currentRow_ = 0;
    int currentColumn_ = 0;
    int wheelDelta_ = 0; // remainder of less than a row
    int pendingRow_ = -1; // edited cell that is not checked yet; -1: none
    int pendingColumn_ = -1;
    bool filling_ = false;
    bool moving_ = false; // the scroll bar is moved by the grid
};

} // namespace tarvik
