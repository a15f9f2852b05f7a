// The headless flex grid.
#include <cmath>

#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/HeadlessControls.h"

namespace OVT_ZARO::Headless {

namespace {
const char kInvalidRow[] = "Invalid Row value";
const char kInvalidCol[] = "Invalid Col value";
constexpr int32_t kInvalidRowNumber = 30009;
constexpr int32_t kInvalidColNumber = 30010;
}  // namespace

MSFlexGrid::MSFlexGrid() {
    SetWidth(4800);
    SetHeight(2400);
    Resize(rows_, cols_);
}

void MSFlexGrid::Resize(int32_t rows, int32_t cols) {
    std::vector<Cell> cells(static_cast<size_t>(rows) * static_cast<size_t>(cols));
    const int32_t keepRows = std::min(rows, rows_), keepCols = std::min(cols, cols_);
    if (!cells_.empty()) {
        for (int32_t r = 0; r < keepRows; ++r)
            for (int32_t c = 0; c < keepCols; ++c)
                cells[static_cast<size_t>(r) * static_cast<size_t>(cols) + static_cast<size_t>(c)] =
                    std::move(cells_[static_cast<size_t>(r) * static_cast<size_t>(cols_) + static_cast<size_t>(c)]);
    }
    cells_ = std::move(cells);
    colWidth_.resize(static_cast<size_t>(cols), DefaultColWidth);
    colAlignment_.resize(static_cast<size_t>(cols), flexAlignGeneral);
    rowHeight_.resize(static_cast<size_t>(rows), DefaultRowHeight);
    rows_ = rows;
    cols_ = cols;
    row_ = std::min(row_, rows_ - 1);
    col_ = std::min(col_, cols_ - 1);
}

void MSFlexGrid::SetRows(int32_t rows) {
    if (rows < 1) throw Error(kInvalidRowNumber, TypeName() + ".Rows", kInvalidRow);
    if (rows != rows_) Resize(rows, cols_);
}

void MSFlexGrid::SetCols(int32_t cols) {
    if (cols < 1) throw Error(kInvalidColNumber, TypeName() + ".Cols", kInvalidCol);
    if (cols != cols_) Resize(rows_, cols);
}

void MSFlexGrid::CheckRow(int32_t row) const {
    if (row < 0 || row >= rows_) throw Error(kInvalidRowNumber, TypeName() + ".Row", kInvalidRow);
}

void MSFlexGrid::CheckCol(int32_t col) const {
    if (col < 0 || col >= cols_) throw Error(kInvalidColNumber, TypeName() + ".Col", kInvalidCol);
}

void MSFlexGrid::MoveTo(int32_t row, int32_t col) {
    if (row == row_ && col == col_) return;
    LeaveCell.Raise();
    row_ = row;
    col_ = col;
    EnterCell.Raise();
}

void MSFlexGrid::SetRow(int32_t row) {
    CheckRow(row);
    MoveTo(row, col_);
}

void MSFlexGrid::SetCol(int32_t col) {
    CheckCol(col);
    MoveTo(row_, col);
}

void MSFlexGrid::Clear() {
    for (Cell& c : cells_) c = Cell{};
}

MSFlexGrid::Cell& MSFlexGrid::CellRef(int32_t row, int32_t col) {
    if (row < 0 || row >= rows_ || col < 0 || col >= cols_)
        RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".TextMatrix");
    return cells_[static_cast<size_t>(row) * static_cast<size_t>(cols_) + static_cast<size_t>(col)];
}

const MSFlexGrid::Cell& MSFlexGrid::CellAt(int32_t row, int32_t col) const {
    return const_cast<MSFlexGrid*>(this)->CellRef(row, col);
}

std::string MSFlexGrid::GetTextMatrix(int32_t row, int32_t col) { return CellRef(row, col).text; }

void MSFlexGrid::SetTextMatrix(int32_t row, int32_t col, const std::string& text) { CellRef(row, col).text = text; }

std::string MSFlexGrid::GetText() { return Current().text; }

void MSFlexGrid::SetText(const std::string& text) { Current().text = text; }

double MSFlexGrid::GetColWidth(int32_t col) {
    if (col < 0 || col >= cols_) RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".ColWidth");
    return colWidth_[static_cast<size_t>(col)];
}

void MSFlexGrid::SetColWidth(int32_t col, double width) {
    if (col < 0 || col >= cols_) RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".ColWidth");
    if (width == -1) width = DefaultColWidth;
    if (!(width >= 0) || width > 2147483647.0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".ColWidth");
    colWidth_[static_cast<size_t>(col)] = static_cast<int32_t>(std::lround(width));
}

int32_t MSFlexGrid::GetColAlignment(int32_t col) {
    if (col < 0 || col >= cols_) RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".ColAlignment");
    return colAlignment_[static_cast<size_t>(col)];
}

void MSFlexGrid::SetColAlignment(int32_t col, int32_t alignment) {
    if (col < 0 || col >= cols_) RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".ColAlignment");
    if (alignment < 0 || alignment > flexAlignGeneral)
        RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".ColAlignment");
    colAlignment_[static_cast<size_t>(col)] = alignment;
}

int32_t MSFlexGrid::GetColPos(int32_t col) {
    if (col < 0 || col >= cols_) RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".ColPos");
    int32_t x = 0;
    for (int32_t c = 0; c < col; ++c) x += colWidth_[static_cast<size_t>(c)];
    return x;
}

int32_t MSFlexGrid::RowPos(int32_t row) {
    if (row < 0 || row >= rows_) RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".RowPos");
    int32_t y = 0;
    for (int32_t r = 0; r < row; ++r) y += rowHeight_[static_cast<size_t>(r)];
    return y;
}

int32_t MSFlexGrid::GetRowHeight(int32_t row) {
    if (row < 0 || row >= rows_) RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".RowHeight");
    return rowHeight_[static_cast<size_t>(row)];
}

void MSFlexGrid::SetRowHeight(int32_t row, int32_t height) {
    if (row < 0 || row >= rows_) RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".RowHeight");
    if (height < 0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".RowHeight");
    rowHeight_[static_cast<size_t>(row)] = height;
}

bool MSFlexGrid::CellAtPoint(float x, float y, int32_t& row, int32_t& col) {
    row = col = -1;
    float top = 0;
    for (int32_t r = 0; r < rows_ && row < 0; ++r) {
        const float h = static_cast<float>(rowHeight_[static_cast<size_t>(r)]);
        if (y >= top && y < top + h) row = r;
        top += h;
    }
    float left = 0;
    for (int32_t c = 0; c < cols_ && col < 0; ++c) {
        const float w = static_cast<float>(colWidth_[static_cast<size_t>(c)]);
        if (x >= left && x < left + w) col = c;
        left += w;
    }
    return row >= 0 && col >= 0;
}

void MSFlexGrid::OnMouseDown(float x, float y) {
    int32_t row, col;
    // A fixed cell is no current cell: a click on a heading leaves Row and Col.
    if (CellAtPoint(x, y, row, col) && row >= 1 && col >= 1) MoveTo(row, col);
}

}  // namespace OVT_ZARO::Headless
