// The headless spread and data grid.
#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/HeadlessControls.h"

namespace OVT_ZARO::Headless {

namespace {
constexpr double kDefaultSpreadWidth = 9.0;
}

fpSpread::fpSpread() {
    SetWidth(4800);
    SetHeight(2400);
    Resize(0, 0);
}

void fpSpread::Resize(int32_t rows, int32_t cols) {
    std::vector<Cell> cells(static_cast<size_t>(rows + 1) * static_cast<size_t>(cols + 1));
    if (!cells_.empty()) {
        for (int32_t r = 0; r <= std::min(rows, maxRows_); ++r)
            for (int32_t c = 0; c <= std::min(cols, maxCols_); ++c)
                cells[static_cast<size_t>(r) * static_cast<size_t>(cols + 1) + static_cast<size_t>(c)] =
                    std::move(cells_[static_cast<size_t>(r) * static_cast<size_t>(maxCols_ + 1) + static_cast<size_t>(c)]);
    }
    cells_ = std::move(cells);
    colWidth_.resize(static_cast<size_t>(cols + 1), kDefaultSpreadWidth);
    maxRows_ = rows;
    maxCols_ = cols;
    activeRow_ = std::min(activeRow_, std::max(maxRows_, 1));
    activeCol_ = std::min(activeCol_, std::max(maxCols_, 1));
}

void fpSpread::SetMaxRows(int32_t rows) {
    if (rows < 0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".MaxRows");
    if (rows != maxRows_) Resize(rows, maxCols_);
}

void fpSpread::SetMaxCols(int32_t cols) {
    if (cols < 0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".MaxCols");
    if (cols != maxCols_) Resize(maxRows_, cols);
}

fpSpread::Cell& fpSpread::CellRef(int32_t col, int32_t row) {
    if (row < 0 || row > maxRows_ || col < 0 || col > maxCols_)
        RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".Cell");
    return cells_[static_cast<size_t>(row) * static_cast<size_t>(maxCols_ + 1) + static_cast<size_t>(col)];
}

const fpSpread::Cell& fpSpread::CellAt(int32_t col, int32_t row) const {
    return const_cast<fpSpread*>(this)->CellRef(col, row);
}

fpSpread::Cell& fpSpread::Addressed() { return CellRef(col_, row_); }

double fpSpread::GetColWidth(int32_t col) {
    if (col < 0 || col > maxCols_) RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".ColWidth");
    return colWidth_[static_cast<size_t>(col)];
}

void fpSpread::SetColWidth(int32_t col, double width) {
    if (col < 0 || col > maxCols_) RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".ColWidth");
    if (!(width >= 0)) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".ColWidth");
    colWidth_[static_cast<size_t>(col)] = width;
}

void fpSpread::SetInteger(int32_t col, int32_t row, int32_t value) { CellRef(col, row).value = value; }

void fpSpread::SetFloat(int32_t col, int32_t row, double value) { CellRef(col, row).value = value; }

void fpSpread::SetText(int32_t col, int32_t row, const Variant& value) {
    Cell& cell = CellRef(col, row);
    // A Null writes an empty text.
    cell.value = value.IsNull() ? std::string() : CStr(value);
}

void fpSpread::UserClickCell(int32_t row, int32_t col) {
    CellRef(col, row);
    if (GetParent() && GetVisible() && !HasFocus()) SetFocus();
    if (row >= 1) activeRow_ = row;
    if (col >= 1) activeCol_ = col;
    Click.Raise();
}

namespace {
class HeadlessDataGridColumn : public DataGridColumn {
public:
    explicit HeadlessDataGridColumn(std::string field) : field_(field), caption_(std::move(field)) {}
    std::string GetDataField() override { return field_; }
    bool GetVisible() override { return visible_; }
    void SetVisible(bool v) override { visible_ = v; }
    double GetWidth() override { return width_; }
    void SetWidth(double w) override { width_ = w; }
    std::string GetCaption() override { return caption_; }
    void SetCaption(const std::string& c) override { caption_ = c; }
    int32_t GetAlignment() override { return alignment_; }
    void SetAlignment(int32_t a) override { alignment_ = a; }

private:
    std::string field_, caption_;
    bool visible_ = true;
    double width_ = 1440;
    int32_t alignment_ = 0;
};
}  // namespace

void DataGrid::SetDataSource(const std::shared_ptr<ADODB::Recordset>& rs) {
    source_ = rs;
    columns_.clear();
    row_ = -1;
    if (!rs || rs->State() != ADODB::adStateOpen) return;
    for (ADODB::Field& f : rs->Fields()) columns_.push_back(std::make_shared<HeadlessDataGridColumn>(f.Name()));
    if (!(rs->EOF_() && rs->BOF())) row_ = 0;
}

void DataGrid::SetRow(int32_t row) {
    if (!source_ || row < 0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".Row");
    source_->MoveFirst();
    for (int32_t i = 0; i < row; ++i) {
        source_->MoveNext();
        if (source_->EOF_()) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".Row");
    }
    row_ = row;
}

}  // namespace OVT_ZARO::Headless
