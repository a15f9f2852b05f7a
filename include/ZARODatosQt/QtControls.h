// The Qt Widgets kit: the control kinds of the control model over Qt 6
// widgets, the user driver that clicks and types on them, and the screen
// services of a Qt program. A library of its own (libZARODatosQt.so): the
// core library never links Qt.
//
// Contract:
//  - Ownership: a Form owns its controls and its top-level widget; each
//    control's widget is a child of the form's widget, laid out in twips
//    converted to pixels at the form's resolution (1440 twips to the inch,
//    logicalDpiX/Y of the widget). A form that goes away detaches every
//    handler of its controls and deletes its widget.
//  - Thread: the Qt GUI thread only (a QApplication must exist).
//  - The kinds behave as the headless kit's (see HeadlessControls.h): a
//    grid's Row and Col fire LeaveCell and EnterCell at once, a list's
//    ListIndex fires Click, members of another kind raise 438. Keys and the
//    mouse of the widgets arrive as KeyDown, KeyPress (KeyAscii, which a
//    handler may change or zero before the widget sees it), KeyUp,
//    MouseDown, MouseUp, Click and DblClick with the platform's key codes; a
//    double click gives MouseDown, MouseUp, Click, DblClick, MouseUp. A grid
//    leaves arrow keys to its KeyUp handler, as the headless grid does.
//  - The flex grid is a QTableWidget whose row 0 and column 0 are the fixed
//    heading row and column (drawn grey), with its own current cell; it
//    draws each cell's colours, picture (on the side CellPictureAlignment
//    says) and alignment. ColPos, CellLeft ... are where the cells are drawn.
//  - The spread is a QTableWidget of typed cells; the data grid a QTableView
//    over a static Recordset's rows; the overlays a QLineEdit, a QListWidget
//    and a QCalendarWidget.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ZARODatos/platform/Controls.h"
#include "ZARODatos/platform/Screen.h"
#include "ZARODatos/platform/UserDriver.h"

class QWidget;
class QTableWidget;
class QTableView;
class QListWidget;
class QComboBox;
class QLineEdit;
class QCalendarWidget;
class QObject;
class QEvent;
class QPixmap;

namespace OVT_ZARO::QtKit {

class Form;
class EventBridge;

// What every control of the kit has: its widget, the members its form
// supplies (in twips), focus, and the translation of the widget's events.
class QtControl : public Control {
public:
    QtControl();
    ~QtControl() override;
    QWidget* Widget() const { return widget_; }

    std::string GetName() override { return name_; }
    ControlRef GetParent() override;
    bool GetVisible() override;
    void SetVisible(bool visible) override;
    int32_t GetLeft() override;
    void SetLeft(int32_t v) override;
    int32_t GetTop() override;
    void SetTop(int32_t v) override;
    int32_t GetWidth() override;
    void SetWidth(int32_t v) override;
    int32_t GetHeight() override;
    void SetHeight(int32_t v) override;
    void SetFocus() override;
    double GetFontSize() override;
    void SetFontSize(double v) override;
    bool GetTabStop() override;
    void SetTabStop(bool v) override;

    // Twips to pixels and back, horizontally and vertically, at the widget's resolution.
    int32_t PxX(int32_t twips) const;
    int32_t PxY(int32_t twips) const;
    int32_t TwipsX(int32_t px) const;
    int32_t TwipsY(int32_t px) const;

protected:
    friend class Form;
    friend class EventBridge;
    // Takes the widget (parented by the form) and starts translating its events.
    void Adopt(QWidget* widget, const std::string& name, const std::shared_ptr<Form>& form);
    // The widgets whose events are this control's (the widget, a viewport ...).
    virtual std::vector<QWidget*> EventSources();
    // The kind's own handling: return true to keep the event from the widget.
    virtual bool OnKeyDown(int16_t keyCode, int16_t shift) { (void)keyCode, (void)shift; return false; }
    virtual bool SwallowsCharacters() const { return false; }
    virtual void OnMouseDown(int x, int y) { (void)x, (void)y; }
    virtual bool SwallowsMouse() const { return false; }
    // Makes the widget and the kind's own parts; called by Form::Add.
    virtual QWidget* MakeWidget(QWidget* parent) = 0;
    // Sets the kind up once its widget is adopted.
    virtual void Prepare() {}

    QWidget* widget_ = nullptr;
    std::string name_;
    std::weak_ptr<Form> form_;
    std::unique_ptr<EventBridge> bridge_;
};

// The host form: a top-level widget and the controls on it.
class Form : public Control {
public:
    static std::shared_ptr<Form> Create(const std::string& name, int widthTwips = 12000, int heightTwips = 8000);
    ~Form() override;

    template <class T>
    std::shared_ptr<T> Add(const std::string& name) {
        auto c = std::make_shared<T>();
        Adopt(c, name);
        return c;
    }
    ControlRef Controls(const std::string& name);
    void Unload();
    // Shows the form and makes it the active window, so that focus works.
    void Show();
    // The form's widget. It may be put inside another widget (a tab page, a
    // window's centre), which then owns it; otherwise the form deletes it.
    QWidget* Widget() const { return widget_; }

    std::string GetName() override { return name_; }
    bool GetVisible() override;
    std::string TypeName() const override { return "Form"; }

private:
    explicit Form(std::string name);
    void Adopt(const std::shared_ptr<QtControl>& c, const std::string& name);

    std::string name_;
    QWidget* widget_ = nullptr;
    std::unique_ptr<QObject> guard_;  // notices the widget going with another owner
    std::vector<std::shared_ptr<QtControl>> controls_;
};

class ListBox : public QtControl {
public:
    std::string TypeName() const override { return "ListBox"; }
    void Clear() override;
    int32_t GetListCount() override;
    void AddItem(const std::string& item, int32_t Index = -1) override;
    int32_t GetNewIndex() override { return newIndex_; }
    int32_t GetListIndex() override;
    void SetListIndex(int32_t index) override;
    int32_t GetItemData(int32_t index) override;
    void SetItemData(int32_t index, int32_t data) override;
    std::string GetList(int32_t index) override;
    std::string GetText() override;
    void SetText(const std::string& text) override;
    int32_t GetBackColor() override;
    void SetBackColor(int32_t c) override;
    QListWidget* List() const;

protected:
    QWidget* MakeWidget(QWidget* parent) override;
    std::vector<QWidget*> EventSources() override;
    bool OnKeyDown(int16_t keyCode, int16_t shift) override;
    void OnMouseDown(int x, int y) override;
    bool SwallowsMouse() const override { return true; }
    int32_t newIndex_ = -1;
};

class ComboBox : public QtControl {
public:
    std::string TypeName() const override { return "ComboBox"; }
    void Clear() override;
    int32_t GetListCount() override;
    void AddItem(const std::string& item, int32_t Index = -1) override;
    int32_t GetNewIndex() override { return newIndex_; }
    int32_t GetListIndex() override;
    void SetListIndex(int32_t index) override;
    int32_t GetItemData(int32_t index) override;
    void SetItemData(int32_t index, int32_t data) override;
    std::string GetList(int32_t index) override;
    std::string GetText() override;
    void SetText(const std::string& text) override;
    QComboBox* Combo() const;

protected:
    QWidget* MakeWidget(QWidget* parent) override;
    int32_t newIndex_ = -1;
};

class GridDelegate;

// The flex grid.
class MSFlexGrid : public QtControl {
public:
    std::string TypeName() const override { return "MSFlexGrid"; }
    void Clear() override;
    int32_t GetRows() override { return rows_; }
    void SetRows(int32_t rows) override;
    int32_t GetCols() override { return cols_; }
    void SetCols(int32_t cols) override;
    int32_t GetRow() override { return row_; }
    void SetRow(int32_t row) override;
    int32_t GetCol() override { return col_; }
    void SetCol(int32_t col) override;
    double GetColWidth(int32_t col) override;
    void SetColWidth(int32_t col, double width) override;
    int32_t GetColAlignment(int32_t col) override;
    void SetColAlignment(int32_t col, int32_t alignment) override;
    std::string GetTextMatrix(int32_t row, int32_t col) override;
    void SetTextMatrix(int32_t row, int32_t col, const std::string& text) override;
    std::string GetText() override { return GetTextMatrix(row_, col_); }
    void SetText(const std::string& text) override { SetTextMatrix(row_, col_, text); }
    int32_t GetCellAlignment() override;
    void SetCellAlignment(int32_t v) override;
    int32_t GetCellPictureAlignment() override;
    void SetCellPictureAlignment(int32_t v) override;
    PictureRef GetCellPicture() override;
    void SetCellPicture(const PictureRef& p) override;
    int32_t GetCellBackColor() override;
    void SetCellBackColor(int32_t v) override;
    int32_t GetCellForeColor() override;
    void SetCellForeColor(int32_t v) override;
    int32_t GetBackColor() override { return backColor_; }
    void SetBackColor(int32_t c) override;
    int32_t GetCellLeft() override { return GetColPos(col_); }
    int32_t GetCellTop() override;
    int32_t GetCellWidth() override;
    int32_t GetCellHeight() override;
    int32_t GetColPos(int32_t col) override;
    int32_t GetRowHeight(int32_t row) override;
    void SetRowHeight(int32_t row, int32_t height) override;
    int32_t GetHighLight() override { return highLight_; }
    void SetHighLight(int32_t v) override;

    QTableWidget* Table() const;
    // The picture of any cell, without moving the current cell.
    PictureRef PictureAt(int32_t row, int32_t col);
    // Where a cell is drawn, in pixels of the table's viewport.
    void CellRect(int32_t row, int32_t col, int& x, int& y, int& w, int& h);

    static constexpr int32_t DefaultColWidth = 960;
    static constexpr int32_t DefaultRowHeight = 285;

protected:
    QWidget* MakeWidget(QWidget* parent) override;
    std::vector<QWidget*> EventSources() override;
    bool OnKeyDown(int16_t keyCode, int16_t shift) override;
    bool SwallowsCharacters() const override { return true; }
    void OnMouseDown(int x, int y) override;
    bool SwallowsMouse() const override { return true; }
    void Prepare() override;

private:
    friend class GridDelegate;
    void MoveTo(int32_t row, int32_t col);
    void CheckCell(int32_t row, int32_t col, const char* member) const;
    void Repaint();

    int32_t rows_ = 2, cols_ = 2, row_ = 1, col_ = 1;
    std::vector<int32_t> colWidth_, colAlignment_, rowHeight_;
    int32_t backColor_ = vbWhite;
    int32_t highLight_ = 1;
};

class MSHFlexGrid : public MSFlexGrid {
public:
    std::string TypeName() const override { return "MSHFlexGrid"; }
};

// The spread: typed cells, headings in row 0.
class fpSpread : public QtControl {
public:
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
    double GetColWidth(int32_t col) override;
    void SetColWidth(int32_t col, double width) override;
    int32_t GetCellType() override;
    void SetCellType(int32_t v) override;
    int32_t GetTypeHAlign() override;
    void SetTypeHAlign(int32_t v) override;
    bool GetTypeFloatSeparator() override;
    void SetTypeFloatSeparator(bool v) override;
    int32_t GetTypeFloatDecimalPlaces() override;
    void SetTypeFloatDecimalPlaces(int32_t v) override;
    void SetInteger(int32_t col, int32_t row, int32_t value) override;
    void SetFloat(int32_t col, int32_t row, double value) override;
    void SetText(int32_t col, int32_t row, const Variant& value) override;

    // What a cell shows, and its value.
    std::string CellText(int32_t col, int32_t row);
    Variant CellValue(int32_t col, int32_t row);
    QTableWidget* Table() const;

protected:
    QWidget* MakeWidget(QWidget* parent) override;
    std::vector<QWidget*> EventSources() override;
    void OnMouseDown(int x, int y) override;
    bool SwallowsMouse() const override { return true; }
    void Prepare() override;

private:
    struct CellFormat {
        int32_t type = CellTypeEdit, hAlign = 0, decimals = 2;
        bool separator = false;
    };
    CellFormat& Addressed();
    void Display(int32_t col, int32_t row);
    void Check(int32_t col, int32_t row) const;
    int32_t maxRows_ = 0, maxCols_ = 0, row_ = 1, col_ = 1, activeRow_ = 1, activeCol_ = 1;
    std::vector<std::vector<CellFormat>> formats_;
    std::vector<std::vector<Variant>> values_;
    std::vector<double> colWidth_;
};

class vaSpread : public fpSpread {
public:
    std::string TypeName() const override { return "vaSpread"; }
};

class RecordsetModel;

// The data grid over a static Recordset.
class DataGrid : public QtControl {
public:
    ~DataGrid() override;
    std::string TypeName() const override { return "DataGrid"; }
    std::shared_ptr<ADODB::Recordset> GetDataSource() override { return source_; }
    void SetDataSource(const std::shared_ptr<ADODB::Recordset>& rs) override;
    std::vector<DataGridColumnRef> GetColumns() override { return columns_; }
    int32_t GetRow() override { return row_; }
    void SetRow(int32_t row) override;
    QTableView* View() const;

protected:
    QWidget* MakeWidget(QWidget* parent) override;

private:
    std::shared_ptr<ADODB::Recordset> source_;
    std::vector<DataGridColumnRef> columns_;
    RecordsetModel* model_ = nullptr;
    int32_t row_ = -1;
};

// The text box: a single-line QLineEdit.
class TextBox : public QtControl {
public:
    std::string TypeName() const override { return "TextBox"; }
    std::string GetText() override;
    void SetText(const std::string& text) override;
    int32_t GetSelStart() override;
    void SetSelStart(int32_t start) override;
    int32_t GetSelLength() override;
    void SetSelLength(int32_t length) override;
    int32_t GetAlignment() override { return alignment_; }
    void SetAlignment(int32_t v) override;
    std::string GetToolTipText() override;
    void SetToolTipText(const std::string& t) override;
    int32_t GetBackColor() override { return backColor_; }
    void SetBackColor(int32_t c) override;
    QLineEdit* Edit() const;

protected:
    QWidget* MakeWidget(QWidget* parent) override;

private:
    int32_t alignment_ = 0, backColor_ = vbWhite;
};

// The month calendar.
class MonthView : public QtControl {
public:
    std::string TypeName() const override { return "MonthView"; }
    Date GetValue() override;
    void SetValue(Date d) override;
    QCalendarWidget* Calendar() const;

protected:
    QWidget* MakeWidget(QWidget* parent) override;
    std::vector<QWidget*> EventSources() override;
};

// A picture of the strip as a Qt pixmap (made once per picture).
const QPixmap& PixmapOf(const PictureRef& picture);

// The screen services of a Qt program: the wait cursor for pointer 11, the
// system beep, DoEvents as processing Qt's pending events (at most every
// 20 ms, so that a load that yields after every row repaints as often as a
// person can see, not per row). The counts of the headless screen are kept too.
class QtScreen : public ScreenServices {
public:
    void SetMousePointer(int shape) override;
    void DoEvents() override;
    void Beep() override;
};

// The user driver of the Qt kit: real mouse and key events sent to the
// widgets (QTest), so that everything passes through Qt's event delivery.
class QtUser : public UserDriver {
public:
    explicit QtUser(std::shared_ptr<Form> form) : form_(std::move(form)) {}
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
    std::shared_ptr<Form> form_;
};

}  // namespace OVT_ZARO::QtKit
