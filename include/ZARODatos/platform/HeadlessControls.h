// The headless kit: every control kind of the control model in memory,
// deterministic, for the tests and for hosts that draw elsewhere.
//
// Contract:
//  - Ownership: a Form owns its controls (Form::Add makes them) and is their
//    Parent; a control holds its form weakly. A control made outside a form
//    has no Parent (GetParent gives no object).
//  - Thread: the user-interface thread only.
//  - Each kind has the members of its kind and raises 438 for the others.
//    Values out of range raise what the kind raises: a grid's Row 30009
//    "Invalid Row value", its Col 30010 "Invalid Col value", an index of
//    TextMatrix, ColWidth, ItemData ... 381 "Invalid property array index";
//    SetFocus on a hidden control 5.
//  - Events, as the real controls give them:
//      * a grid: setting Row or Col to another value fires LeaveCell (Row and
//        Col still those of the cell left), the change, then EnterCell, at
//        once and re-entrantly; setting the same value fires nothing. The
//        grid does not move by itself on arrow keys: its KeyUp handler moves.
//      * a list: setting ListIndex or Text to another item fires Click.
//      * focus: SetFocus fires LostFocus on the control that had it, then
//        GotFocus; hiding the control that has the focus fires its LostFocus
//        and leaves no control with the focus.
//  - What a user does arrives through the User* members (HeadlessUser drives
//    them): a key gives KeyDown, the control's own handling, KeyPress for a
//    key that types a character (applied only if KeyAscii is still non-zero
//    after the handlers), then KeyUp; a click gives the focus, MouseDown, the
//    control's own handling (a grid moves to the cell, a list selects the
//    item), MouseUp, Click; a double click is a click, then DblClick and
//    MouseUp (MouseDown, MouseUp, Click, DblClick, MouseUp in all).
//  - Geometry in twips: one fixed row and one fixed column; a column starts
//    where the ones before it end (ColPos), a cell's place and size come from
//    the column widths and row heights; nothing scrolls.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ZARODatos/platform/Controls.h"
#include "ZARODatos/platform/UserDriver.h"

namespace OVT_ZARO::Headless {

class Form;

// What every headless control has: the members its form supplies, focus,
// and the keys and mouse of a user.
class HeadlessControl : public Control {
public:
    std::string GetName() override { return name_; }
    // The form, or no object for a control made outside a form.
    ControlRef GetParent() override;
    bool GetVisible() override { return visible_; }
    void SetVisible(bool visible) override;
    int32_t GetLeft() override { return left_; }
    void SetLeft(int32_t v) override { left_ = v; }
    int32_t GetTop() override { return top_; }
    void SetTop(int32_t v) override { top_ = v; }
    int32_t GetWidth() override { return width_; }
    void SetWidth(int32_t v) override { width_ = v; }
    int32_t GetHeight() override { return height_; }
    void SetHeight(int32_t v) override { height_ = v; }
    void SetFocus() override;
    double GetFontSize() override { return fontSize_; }
    void SetFontSize(double v) override { fontSize_ = v; }
    bool GetTabStop() override { return tabStop_; }
    void SetTabStop(bool v) override { tabStop_ = v; }

    // Whether the control has the focus of its form.
    bool HasFocus() const;

    // ---- What a user does -------------------------------------------------
    // A key pressed and released while the control has the focus. keyAscii
    // is the character the key types (0: none).
    void UserKey(int16_t keyCode, int16_t shift, int16_t keyAscii);
    // A click, and a double click, at X, Y twips from the control's corner.
    void UserClick(float x, float y);
    void UserDoubleClick(float x, float y);

protected:
    // The control's own handling of a key going down, of a typed character
    // (after KeyPress), and of the mouse going down.
    virtual void OnKeyDown(int16_t keyCode, int16_t shift) { (void)keyCode, (void)shift; }
    virtual void OnCharacter(int16_t keyAscii) { (void)keyAscii; }
    virtual void OnMouseDown(float x, float y) { (void)x, (void)y; }

private:
    friend class Form;
    void Press(float x, float y);
    std::string name_;
    std::weak_ptr<Form> form_;
    bool visible_ = true;
    int32_t left_ = 0, top_ = 0, width_ = 1215, height_ = 495;
    double fontSize_ = 8.25;
    bool tabStop_ = true;
};

// The host form: owns its controls and their focus.
class Form : public Control {
public:
    static std::shared_ptr<Form> Create(const std::string& name);
    ~Form() override;

    // Makes a control of kind T named name on this form.
    template <class T>
    std::shared_ptr<T> Add(const std::string& name) {
        auto c = std::make_shared<T>();
        Adopt(c, name);
        return c;
    }
    // The control of that name (case ignored); 730 "Control not found" if none.
    ControlRef Controls(const std::string& name);
    // The control that has the focus, or no object.
    ControlRef ActiveControl() const { return focused_.lock(); }
    // Detaches every handler of every control and releases them.
    void Unload();

    std::string GetName() override { return name_; }
    bool GetVisible() override { return true; }
    std::string TypeName() const override { return "Form"; }

private:
    friend class HeadlessControl;
    explicit Form(std::string name) : name_(std::move(name)) {}
    void Adopt(const std::shared_ptr<HeadlessControl>& c, const std::string& name);
    void MoveFocus(const std::shared_ptr<HeadlessControl>& to);
    void FocusLost(HeadlessControl& from);

    std::string name_;
    std::vector<std::shared_ptr<HeadlessControl>> controls_;
    std::weak_ptr<HeadlessControl> focused_;
};

// A list box. Text is the selected item's text; setting it selects the first
// item of that text (case ignored), or none.
class ListBox : public HeadlessControl {
public:
    std::string TypeName() const override { return "ListBox"; }
    void Clear() override;
    int32_t GetListCount() override { return static_cast<int32_t>(items_.size()); }
    void AddItem(const std::string& item, int32_t Index = -1) override;
    int32_t GetNewIndex() override { return newIndex_; }
    int32_t GetListIndex() override { return listIndex_; }
    // -1 selects nothing; outside -1 .. ListCount - 1 raises 380 "Invalid property value".
    void SetListIndex(int32_t index) override;
    int32_t GetItemData(int32_t index) override;
    void SetItemData(int32_t index, int32_t data) override;
    std::string GetList(int32_t index) override;
    std::string GetText() override;
    void SetText(const std::string& text) override;
    int32_t GetBackColor() override { return backColor_; }
    void SetBackColor(int32_t c) override { backColor_ = c; }

    // A user's click on item index: the focus, the selection, Click (also on
    // the item already selected).
    void UserClickItem(int32_t index);

protected:
    // Up and Down move the selection.
    void OnKeyDown(int16_t keyCode, int16_t shift) override;
    void OnMouseDown(float x, float y) override;
    // The height of one item, in twips.
    static constexpr int32_t ItemHeight = 195;

    struct Item {
        std::string text;
        int32_t data = 0;
    };
    std::vector<Item> items_;
    int32_t listIndex_ = -1;
    int32_t newIndex_ = -1;
    int32_t backColor_ = vbWhite;
};

// A combo box: a list with a text of its own.
class ComboBox : public ListBox {
public:
    std::string TypeName() const override { return "ComboBox"; }
    std::string GetText() override;
    // Selects the item of that text, if there is one, and keeps the text.
    void SetText(const std::string& text) override;
    void Clear() override;

private:
    std::string text_;
};

// A flex grid: Rows by Cols cells, one fixed row and one fixed column.
class MSFlexGrid : public HeadlessControl {
public:
    MSFlexGrid();
    std::string TypeName() const override { return "MSFlexGrid"; }

    void Clear() override;
    int32_t GetRows() override { return rows_; }
    // At least 1; a current row beyond the new end moves to the last row, silently.
    void SetRows(int32_t rows) override;
    int32_t GetCols() override { return cols_; }
    void SetCols(int32_t cols) override;
    int32_t GetRow() override { return row_; }
    void SetRow(int32_t row) override;
    int32_t GetCol() override { return col_; }
    void SetCol(int32_t col) override;
    double GetColWidth(int32_t col) override;
    // Whole twips; -1 gives the default width back.
    void SetColWidth(int32_t col, double width) override;
    int32_t GetColAlignment(int32_t col) override;
    void SetColAlignment(int32_t col, int32_t alignment) override;
    std::string GetTextMatrix(int32_t row, int32_t col) override;
    void SetTextMatrix(int32_t row, int32_t col, const std::string& text) override;
    std::string GetText() override;
    void SetText(const std::string& text) override;
    int32_t GetCellAlignment() override { return Current().alignment; }
    void SetCellAlignment(int32_t v) override { Current().alignment = v; }
    int32_t GetCellPictureAlignment() override { return Current().pictureAlignment; }
    void SetCellPictureAlignment(int32_t v) override { Current().pictureAlignment = v; }
    PictureRef GetCellPicture() override { return Current().picture; }
    void SetCellPicture(const PictureRef& p) override { Current().picture = p; }
    int32_t GetCellBackColor() override { return Current().backColor; }
    void SetCellBackColor(int32_t v) override { Current().backColor = v; }
    int32_t GetCellForeColor() override { return Current().foreColor; }
    void SetCellForeColor(int32_t v) override { Current().foreColor = v; }
    int32_t GetBackColor() override { return backColor_; }
    void SetBackColor(int32_t c) override { backColor_ = c; }
    int32_t GetCellLeft() override { return GetColPos(col_); }
    int32_t GetCellTop() override { return RowPos(row_); }
    int32_t GetCellWidth() override { return static_cast<int32_t>(GetColWidth(col_)); }
    int32_t GetCellHeight() override { return GetRowHeight(row_); }
    int32_t GetColPos(int32_t col) override;
    int32_t GetRowHeight(int32_t row) override;
    void SetRowHeight(int32_t row, int32_t height) override;
    int32_t GetHighLight() override { return highLight_; }
    void SetHighLight(int32_t v) override { highLight_ = v; }

    // Read-only views of any cell, for tests and hosts.
    struct Cell {
        std::string text;
        PictureRef picture;
        int32_t backColor = 0;
        int32_t foreColor = 0;
        int32_t alignment = flexAlignGeneral;
        int32_t pictureAlignment = flexAlignLeftTop;
    };
    const Cell& CellAt(int32_t row, int32_t col) const;
    int32_t RowPos(int32_t row);
    // The cell under a point (twips from the grid's corner); false when none.
    bool CellAtPoint(float x, float y, int32_t& row, int32_t& col);

    static constexpr int32_t DefaultColWidth = 960;
    static constexpr int32_t DefaultRowHeight = 240;

protected:
    // A click on a cell that is not fixed makes it the current cell.
    void OnMouseDown(float x, float y) override;

private:
    Cell& Current() { return CellRef(row_, col_); }
    Cell& CellRef(int32_t row, int32_t col);
    void CheckRow(int32_t row) const;
    void CheckCol(int32_t col) const;
    void MoveTo(int32_t row, int32_t col);
    void Resize(int32_t rows, int32_t cols);

    int32_t rows_ = 2, cols_ = 2, row_ = 1, col_ = 1;
    std::vector<Cell> cells_;  // row by row
    std::vector<int32_t> colWidth_, colAlignment_, rowHeight_;
    int32_t backColor_ = vbWhite;
    int32_t highLight_ = 1;
};

// The hierarchical flex grid: the same grid under another name.
class MSHFlexGrid : public MSFlexGrid {
public:
    std::string TypeName() const override { return "MSHFlexGrid"; }
};

// A spread: typed cells, columns 1 .. MaxCols and rows 1 .. MaxRows, the
// headings in row 0. Row and Col address the cell that the type members
// (CellType, TypeHAlign ...) read and write; they fire nothing. ActiveRow
// and ActiveCol are the cell a user stands on.
class fpSpread : public HeadlessControl {
public:
    fpSpread();
    std::string TypeName() const override { return "fpSpread"; }

    int32_t GetMaxRows() override { return maxRows_; }
    void SetMaxRows(int32_t rows) override;
    int32_t GetMaxCols() override { return maxCols_; }
    void SetMaxCols(int32_t cols) override;
    int32_t GetActiveRow() override { return activeRow_; }
    int32_t GetActiveCol() override { return activeCol_; }
    int32_t GetRow() override { return row_; }
    void SetRow(int32_t row) override { row_ = row; }
    int32_t GetCol() override { return col_; }
    void SetCol(int32_t col) override { col_ = col; }
    // Characters; the default is 9.
    double GetColWidth(int32_t col) override;
    void SetColWidth(int32_t col, double width) override;
    int32_t GetCellType() override { return Addressed().type; }
    void SetCellType(int32_t v) override { Addressed().type = v; }
    int32_t GetTypeHAlign() override { return Addressed().hAlign; }
    void SetTypeHAlign(int32_t v) override { Addressed().hAlign = v; }
    bool GetTypeFloatSeparator() override { return Addressed().floatSeparator; }
    void SetTypeFloatSeparator(bool v) override { Addressed().floatSeparator = v; }
    int32_t GetTypeFloatDecimalPlaces() override { return Addressed().decimalPlaces; }
    void SetTypeFloatDecimalPlaces(int32_t v) override { Addressed().decimalPlaces = v; }
    void SetInteger(int32_t col, int32_t row, int32_t value) override;
    void SetFloat(int32_t col, int32_t row, double value) override;
    void SetText(int32_t col, int32_t row, const Variant& value) override;

    struct Cell {
        Variant value;  // Long for SetInteger, Double for SetFloat, String for SetText
        int32_t type = CellTypeEdit;
        int32_t hAlign = 0;
        bool floatSeparator = false;
        int32_t decimalPlaces = 2;
    };
    const Cell& CellAt(int32_t col, int32_t row) const;
    // A user's click on a cell: the focus, and the active cell.
    void UserClickCell(int32_t row, int32_t col);

private:
    Cell& Addressed();
    Cell& CellRef(int32_t col, int32_t row);
    void Resize(int32_t rows, int32_t cols);

    int32_t maxRows_ = 0, maxCols_ = 0, row_ = 1, col_ = 1, activeRow_ = 1, activeCol_ = 1;
    std::vector<Cell> cells_;  // (maxRows_ + 1) rows of (maxCols_ + 1) cells
    std::vector<double> colWidth_;
};

class vaSpread : public fpSpread {
public:
    std::string TypeName() const override { return "vaSpread"; }
};

// A data grid over a Recordset: one column per field, headed and filled from
// it. Row is the grid's current row from 0 (-1 with no rows); setting it
// moves the Recordset to that row. Moving the Recordset behind the grid's
// back does not move Row.
class DataGrid : public HeadlessControl {
public:
    std::string TypeName() const override { return "DataGrid"; }
    std::shared_ptr<ADODB::Recordset> GetDataSource() override { return source_; }
    void SetDataSource(const std::shared_ptr<ADODB::Recordset>& rs) override;
    std::vector<DataGridColumnRef> GetColumns() override { return columns_; }
    int32_t GetRow() override { return row_; }
    void SetRow(int32_t row) override;

private:
    std::shared_ptr<ADODB::Recordset> source_;
    std::vector<DataGridColumnRef> columns_;
    int32_t row_ = -1;
};

// A single-line text box. SelStart and SelLength count characters; setting
// Text puts the caret at 0; a typed character replaces the selection;
// Backspace removes the selection or the character before the caret; Left,
// Right, Home and End move the caret; Delete removes the selection or the
// character after it. Enter and Escape type nothing.
class TextBox : public HeadlessControl {
public:
    std::string TypeName() const override { return "TextBox"; }
    std::string GetText() override { return text_; }
    void SetText(const std::string& text) override;
    int32_t GetSelStart() override { return selStart_; }
    // Beyond the end goes to the end; SelLength becomes 0.
    void SetSelStart(int32_t start) override;
    int32_t GetSelLength() override { return selLength_; }
    // Cut to the end of the text.
    void SetSelLength(int32_t length) override;
    int32_t GetAlignment() override { return alignment_; }
    void SetAlignment(int32_t v) override { alignment_ = v; }
    std::string GetToolTipText() override { return toolTip_; }
    void SetToolTipText(const std::string& t) override { toolTip_ = t; }
    int32_t GetBackColor() override { return backColor_; }
    void SetBackColor(int32_t c) override { backColor_ = c; }

protected:
    void OnKeyDown(int16_t keyCode, int16_t shift) override;
    void OnCharacter(int16_t keyAscii) override;

private:
    void Replace(int32_t from, int32_t length, const std::string& with);
    std::string text_;
    int32_t selStart_ = 0, selLength_ = 0, alignment_ = 0;
    std::string toolTip_;
    int32_t backColor_ = vbWhite;
};

// A month calendar. Value starts as today.
class MonthView : public HeadlessControl {
public:
    MonthView();
    std::string TypeName() const override { return "MonthView"; }
    Date GetValue() override { return value_; }
    void SetValue(Date d) override { value_ = d; }
    // A user's click on a day: the focus, Value, DateClick.
    void UserPickDay(Date day);

private:
    Date value_;
};

}  // namespace OVT_ZARO::Headless

namespace OVT_ZARO {

// The driver of the headless kit, over one form.
class HeadlessUser : public UserDriver {
public:
    explicit HeadlessUser(std::shared_ptr<Headless::Form> form) : form_(std::move(form)) {}

    void ClickCell(const ControlRef& grid, int32_t row, int32_t col) override;
    void DoubleClickCell(const ControlRef& grid, int32_t row, int32_t col) override;
    void ClickHeader(const ControlRef& grid, int32_t col) override;
    void ClickItem(const ControlRef& list, int32_t index) override;
    void Click(const ControlRef& control) override;
    void DoubleClick(const ControlRef& control) override;
    void Type(const std::string& text) override;
    void Press(int16_t keyCode, int16_t shift = 0) override;
    void PickDay(const ControlRef& monthView, Date day) override;
    ControlRef Focused() override;

private:
    std::shared_ptr<Headless::Form> form_;
};

}  // namespace OVT_ZARO
