// Screen controls: the members list binding reaches a control by, and the
// events a control raises.
//
// Contract:
//  - Ownership: controls belong to the host's Form, which holds them and is
//    their Parent. List binding keeps references to the controls it loaded;
//    a control holds its form weakly. When a form goes away (or is unloaded)
//    it detaches every handler of its controls, so a handler that holds a
//    control does not keep it alive.
//  - Thread: the user-interface thread only. Nothing here locks.
//  - Control is one base for every kind. Every member raises 438 "Object
//    doesn't support this property or method" (source "<TypeName>.<member>")
//    unless the kind has it, so a call on the wrong kind fails at the first
//    missing member. A kit (the headless one of this library, or a toolkit's)
//    overrides the members its kind has and reports its TypeName: "ListBox",
//    "ComboBox", "MSFlexGrid", "MSHFlexGrid", "DataGrid", "fpSpread",
//    "vaSpread", "TextBox", "MonthView", and "Form" for the host form.
//  - Events are raised synchronously, as the real controls raise them, with
//    their arguments by reference: a KeyPress handler that sets KeyAscii to 0
//    swallows the key. Setting a grid's Row or Col fires LeaveCell, then the
//    change, then EnterCell at once; setting a list's ListIndex fires Click.
//  - Units: positions and sizes are twips (1440 to the inch), the unit of
//    the form, so a grid cell's place is given to an overlay as it is.
//    Colours are 0x00BBGGRR.
// Properties are Get<Name>/Set<Name>; methods keep their names.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ZARODatos/platform/Date.h"
#include "ZARODatos/platform/Event.h"
#include "ZARODatos/platform/Object.h"
#include "ZARODatos/platform/Variant.h"

namespace OVT_ZARO {

namespace ADODB {
class Recordset;
}

class Picture;
using PictureRef = std::shared_ptr<Picture>;
class Control;
using ControlRef = std::shared_ptr<Control>;
class DataGridColumn;
using DataGridColumnRef = std::shared_ptr<DataGridColumn>;

// Key codes of KeyUp and KeyDown (and the KeyAscii of the keys that type a character).
inline constexpr int16_t vbKeyBack = 8;
inline constexpr int16_t vbKeyTab = 9;
inline constexpr int16_t vbKeyReturn = 13;
inline constexpr int16_t vbKeyEscape = 27;
inline constexpr int16_t vbKeySpace = 32;
inline constexpr int16_t vbKeyPageUp = 33;
inline constexpr int16_t vbKeyPageDown = 34;
inline constexpr int16_t vbKeyEnd = 35;
inline constexpr int16_t vbKeyHome = 36;
inline constexpr int16_t vbKeyLeft = 37;
inline constexpr int16_t vbKeyUp = 38;
inline constexpr int16_t vbKeyRight = 39;
inline constexpr int16_t vbKeyDown = 40;
inline constexpr int16_t vbKeyInsert = 45;
inline constexpr int16_t vbKeyDelete = 46;
inline constexpr int16_t vbKeyF2 = 113;
// Shift states and mouse buttons.
inline constexpr int16_t vbShiftMask = 1;
inline constexpr int16_t vbCtrlMask = 2;
inline constexpr int16_t vbLeftButton = 1;

inline constexpr int32_t vbWhite = 0xFFFFFF;
inline constexpr int32_t vbBlack = 0x000000;
inline constexpr int32_t TwipsPerInch = 1440;

// Cell alignments of a flex grid.
enum FlexAlignment : int32_t {
    flexAlignLeftTop = 0,
    flexAlignLeftCenter = 1,
    flexAlignLeftBottom = 2,
    flexAlignCenterTop = 3,
    flexAlignCenterCenter = 4,
    flexAlignCenterBottom = 5,
    flexAlignRightTop = 6,
    flexAlignRightCenter = 7,
    flexAlignRightBottom = 8,
    flexAlignGeneral = 9,
};

// Cell types of a spread.
enum SpreadCellType : int32_t {
    CellTypeDate = 0,
    CellTypeEdit = 1,
    CellTypeFloat = 2,
    CellTypeInteger = 3,
    CellTypeStaticText = 5,
    CellTypeCheckBox = 10,
};

class Control : public Object {
public:
    // ---- Events ------------------------------------------------------------
    Event<> Click;
    Event<> DblClick;
    Event<int16_t, int16_t> KeyDown;  // KeyCode, Shift
    Event<int16_t, int16_t> KeyUp;    // KeyCode, Shift
    Event<int16_t> KeyPress;          // KeyAscii: 0 swallows the key
    Event<int16_t, int16_t, float, float> MouseDown;  // Button, Shift, X, Y (twips, from the control's corner)
    Event<int16_t, int16_t, float, float> MouseUp;
    Event<> EnterCell;
    Event<> LeaveCell;
    Event<> GotFocus;
    Event<> LostFocus;
    Event<Date> DateClick;  // the day clicked on a month view

    // Detaches every handler of every event.
    void DetachAllHandlers();

    // ---- Every control: members its host form supplies ---------------------
    virtual std::string GetName() { Missing("Name"); }
    virtual ControlRef GetParent() { Missing("Parent"); }
    virtual bool GetVisible() { Missing("Visible"); }
    virtual void SetVisible(bool) { Missing("Visible"); }
    virtual int32_t GetLeft() { Missing("Left"); }
    virtual void SetLeft(int32_t) { Missing("Left"); }
    virtual int32_t GetTop() { Missing("Top"); }
    virtual void SetTop(int32_t) { Missing("Top"); }
    virtual int32_t GetWidth() { Missing("Width"); }
    virtual void SetWidth(int32_t) { Missing("Width"); }
    virtual int32_t GetHeight() { Missing("Height"); }
    virtual void SetHeight(int32_t) { Missing("Height"); }
    // Moves the keyboard focus to the control; a hidden control raises 5.
    virtual void SetFocus() { Missing("SetFocus"); }
    // Font.Size of a grid or a month view, FontSize of a text box or list box (points).
    virtual double GetFontSize() { Missing("FontSize"); }
    virtual void SetFontSize(double) { Missing("FontSize"); }
    virtual int32_t GetBackColor() { Missing("BackColor"); }
    virtual void SetBackColor(int32_t) { Missing("BackColor"); }
    // Whether Tab reaches the control; set to false on an overlay when it is
    // attached, so that an overlay stays out of the way until an edit shows it.
    virtual bool GetTabStop() { Missing("TabStop"); }
    virtual void SetTabStop(bool) { Missing("TabStop"); }
    // The text of a text box, of a list's selected item, or of a grid's current cell.
    virtual std::string GetText() { Missing("Text"); }
    virtual void SetText(const std::string&) { Missing("Text"); }
    // Empties a list, or the cells of a grid.
    virtual void Clear() { Missing("Clear"); }

    // ---- List box and combo box --------------------------------------------
    virtual int32_t GetListCount() { Missing("ListCount"); }
    // Appends an item, or inserts it at Index (from 0); NewIndex tells where it went.
    virtual void AddItem(const std::string&, int32_t Index = -1) { (void)Index; Missing("AddItem"); }
    virtual int32_t GetNewIndex() { Missing("NewIndex"); }
    virtual int32_t GetListIndex() { Missing("ListIndex"); }
    virtual void SetListIndex(int32_t) { Missing("ListIndex"); }
    virtual int32_t GetItemData(int32_t) { Missing("ItemData"); }
    virtual void SetItemData(int32_t, int32_t) { Missing("ItemData"); }
    // The text of item Index (from 0).
    virtual std::string GetList(int32_t) { Missing("List"); }

    // ---- Flex grid (and the row and column members a spread shares) --------
    virtual int32_t GetRows() { Missing("Rows"); }
    virtual void SetRows(int32_t) { Missing("Rows"); }
    virtual int32_t GetCols() { Missing("Cols"); }
    virtual void SetCols(int32_t) { Missing("Cols"); }
    virtual int32_t GetRow() { Missing("Row"); }
    virtual void SetRow(int32_t) { Missing("Row"); }
    virtual int32_t GetCol() { Missing("Col"); }
    virtual void SetCol(int32_t) { Missing("Col"); }
    // Twips on a flex grid (whole numbers), characters on a spread.
    virtual double GetColWidth(int32_t) { Missing("ColWidth"); }
    virtual void SetColWidth(int32_t, double) { Missing("ColWidth"); }
    virtual int32_t GetColAlignment(int32_t) { Missing("ColAlignment"); }
    virtual void SetColAlignment(int32_t, int32_t) { Missing("ColAlignment"); }
    virtual std::string GetTextMatrix(int32_t, int32_t) { Missing("TextMatrix"); }
    virtual void SetTextMatrix(int32_t, int32_t, const std::string&) { Missing("TextMatrix"); }
    // Members of the current cell (Row, Col).
    virtual int32_t GetCellAlignment() { Missing("CellAlignment"); }
    virtual void SetCellAlignment(int32_t) { Missing("CellAlignment"); }
    virtual int32_t GetCellPictureAlignment() { Missing("CellPictureAlignment"); }
    virtual void SetCellPictureAlignment(int32_t) { Missing("CellPictureAlignment"); }
    virtual PictureRef GetCellPicture() { Missing("CellPicture"); }
    virtual void SetCellPicture(const PictureRef&) { Missing("CellPicture"); }
    // 0 when the cell has no colour of its own.
    virtual int32_t GetCellBackColor() { Missing("CellBackColor"); }
    virtual void SetCellBackColor(int32_t) { Missing("CellBackColor"); }
    virtual int32_t GetCellForeColor() { Missing("CellForeColor"); }
    virtual void SetCellForeColor(int32_t) { Missing("CellForeColor"); }
    // The current cell's place and size, from the grid's corner.
    virtual int32_t GetCellLeft() { Missing("CellLeft"); }
    virtual int32_t GetCellTop() { Missing("CellTop"); }
    virtual int32_t GetCellWidth() { Missing("CellWidth"); }
    virtual int32_t GetCellHeight() { Missing("CellHeight"); }
    // Where column i starts, from the grid's corner, as drawn (scrolling included).
    virtual int32_t GetColPos(int32_t) { Missing("ColPos"); }
    virtual int32_t GetRowHeight(int32_t) { Missing("RowHeight"); }
    virtual void SetRowHeight(int32_t, int32_t) { Missing("RowHeight"); }
    // How the grid shows its selection; set to 0 (never) when an editor is
    // attached, since the controller colours the current row itself.
    virtual int32_t GetHighLight() { Missing("HighLight"); }
    virtual void SetHighLight(int32_t) { Missing("HighLight"); }

    // ---- Data grid ---------------------------------------------------------
    virtual std::shared_ptr<ADODB::Recordset> GetDataSource() { Missing("DataSource"); }
    virtual void SetDataSource(const std::shared_ptr<ADODB::Recordset>&) { Missing("DataSource"); }
    // One column per field of the DataSource, from 0.
    virtual std::vector<DataGridColumnRef> GetColumns() { Missing("Columns"); }

    // ---- Spread --------------------------------------------------------------
    virtual int32_t GetMaxRows() { Missing("MaxRows"); }
    virtual void SetMaxRows(int32_t) { Missing("MaxRows"); }
    virtual int32_t GetMaxCols() { Missing("MaxCols"); }
    virtual void SetMaxCols(int32_t) { Missing("MaxCols"); }
    virtual int32_t GetActiveRow() { Missing("ActiveRow"); }
    virtual int32_t GetActiveCol() { Missing("ActiveCol"); }
    // Type members of the cell (Col, Row).
    virtual int32_t GetCellType() { Missing("CellType"); }
    virtual void SetCellType(int32_t) { Missing("CellType"); }
    virtual int32_t GetTypeHAlign() { Missing("TypeHAlign"); }
    virtual void SetTypeHAlign(int32_t) { Missing("TypeHAlign"); }
    virtual bool GetTypeFloatSeparator() { Missing("TypeFloatSeparator"); }
    virtual void SetTypeFloatSeparator(bool) { Missing("TypeFloatSeparator"); }
    virtual int32_t GetTypeFloatDecimalPlaces() { Missing("TypeFloatDecimalPlaces"); }
    virtual void SetTypeFloatDecimalPlaces(int32_t) { Missing("TypeFloatDecimalPlaces"); }
    virtual void SetInteger(int32_t, int32_t, int32_t) { Missing("SetInteger"); }
    virtual void SetFloat(int32_t, int32_t, double) { Missing("SetFloat"); }
    // Writes a cell's text: Col, Row, value (in its default string form; Null writes "").
    virtual void SetText(int32_t, int32_t, const Variant&) { Missing("SetText"); }

    // ---- Text box ------------------------------------------------------------
    // Caret and selection, in characters.
    virtual int32_t GetSelStart() { Missing("SelStart"); }
    virtual void SetSelStart(int32_t) { Missing("SelStart"); }
    virtual int32_t GetSelLength() { Missing("SelLength"); }
    virtual void SetSelLength(int32_t) { Missing("SelLength"); }
    // 0 left, 1 right, 2 centred.
    virtual int32_t GetAlignment() { Missing("Alignment"); }
    virtual void SetAlignment(int32_t) { Missing("Alignment"); }
    virtual std::string GetToolTipText() { Missing("ToolTipText"); }
    virtual void SetToolTipText(const std::string&) { Missing("ToolTipText"); }

    // ---- Month view --------------------------------------------------------
    virtual Date GetValue() { Missing("Value"); }
    virtual void SetValue(Date) { Missing("Value"); }

protected:
    // Raises 438 naming the kind and the member.
    [[noreturn]] void Missing(const char* member) const;
};

// One column of a data grid.
class DataGridColumn : public Object {
public:
    virtual std::string GetDataField() = 0;
    virtual bool GetVisible() = 0;
    virtual void SetVisible(bool) = 0;
    virtual double GetWidth() = 0;
    virtual void SetWidth(double) = 0;
    virtual std::string GetCaption() = 0;
    virtual void SetCaption(const std::string&) = 0;
    // 0 left, 1 right, 2 centred.
    virtual int32_t GetAlignment() = 0;
    virtual void SetAlignment(int32_t) = 0;
    std::string TypeName() const override { return "Column"; }
};

// A picture: a small image as PNG bytes, with its size in pixels.
class Picture : public Object {
public:
    Picture(std::string key, std::vector<uint8_t> png);
    const std::string& Key() const { return key_; }
    const std::vector<uint8_t>& Png() const { return png_; }
    int32_t Width() const { return width_; }
    int32_t Height() const { return height_; }
    std::string TypeName() const override { return "Picture"; }

private:
    std::string key_;
    std::vector<uint8_t> png_;
    int32_t width_ = 0, height_ = 0;
};

}  // namespace OVT_ZARO
