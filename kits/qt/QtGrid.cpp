// The flex grid over a QTableWidget: row 0 and column 0 fixed and grey, a
// current cell of its own, and each cell's colours, picture and alignment
// drawn by a delegate.
#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <cmath>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/Pictures.h"
#include "kits/qt/Comun.h"

namespace OVT_ZARO::QtKit {

namespace {
const char kInvalidRow[] = "Invalid Row value";
const char kInvalidCol[] = "Invalid Col value";

// A flex grid alignment as Qt's.
Qt::Alignment AlignmentOf(int32_t a) {
    switch (a) {
        case flexAlignLeftTop: return Qt::AlignLeft | Qt::AlignTop;
        case flexAlignLeftCenter: return Qt::AlignLeft | Qt::AlignVCenter;
        case flexAlignLeftBottom: return Qt::AlignLeft | Qt::AlignBottom;
        case flexAlignCenterTop: return Qt::AlignHCenter | Qt::AlignTop;
        case flexAlignCenterCenter: return Qt::AlignCenter;
        case flexAlignCenterBottom: return Qt::AlignHCenter | Qt::AlignBottom;
        case flexAlignRightTop: return Qt::AlignRight | Qt::AlignTop;
        case flexAlignRightCenter: return Qt::AlignRight | Qt::AlignVCenter;
        case flexAlignRightBottom: return Qt::AlignRight | Qt::AlignBottom;
        default: return Qt::AlignLeft | Qt::AlignVCenter;
    }
}
}  // namespace

// The properties of every cell but its text, row by row, and the painting.
class GridDelegate : public QStyledItemDelegate {
public:
    struct Cell {
        PictureRef picture;
        int32_t backColor = 0, foreColor = 0, alignment = flexAlignGeneral, pictureAlignment = flexAlignLeftTop;
    };
    GridDelegate(MSFlexGrid& grid, QObject* parent) : QStyledItemDelegate(parent), grid_(grid) {}

    Cell& At(int32_t row, int32_t col) { return cells_[static_cast<size_t>(row) * static_cast<size_t>(cols_) + col]; }
    void Resize(int32_t rows, int32_t cols) {
        std::vector<Cell> cells(static_cast<size_t>(rows) * static_cast<size_t>(cols));
        for (int32_t r = 0; r < std::min(rows, rows_); ++r)
            for (int32_t c = 0; c < std::min(cols, cols_); ++c)
                cells[static_cast<size_t>(r) * cols + c] = std::move(At(r, c));
        cells_ = std::move(cells);
        rows_ = rows;
        cols_ = cols;
    }
    void Clear() {
        for (Cell& c : cells_) c = Cell{};
    }

    void paint(QPainter* p, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const int32_t r = index.row(), c = index.column();
        if (r >= rows_ || c >= cols_) return;
        const Cell& cell = cells_[static_cast<size_t>(r) * cols_ + c];
        const QRect rect = option.rect;
        const bool fixed = r == 0 || c == 0;
        QColor background = cell.backColor != 0 ? ColorOf(cell.backColor)
                                            : (fixed ? QColor(0xE4, 0xE4, 0xE4) : ColorOf(grid_.backColor_));
        p->fillRect(rect, background);
        if (fixed) {
            p->setPen(QColor(0xA0, 0xA0, 0xA0));
            p->drawLine(rect.bottomLeft(), rect.bottomRight());
            p->drawLine(rect.topRight(), rect.bottomRight());
        }
        const QRect interior = rect.adjusted(3, 1, -3, -1);
        if (cell.picture) {
            const QPixmap& pm = PixmapOf(cell.picture);
            const QRect area = QStyle::alignedRect(Qt::LeftToRight, AlignmentOf(cell.pictureAlignment), pm.size(), interior);
            p->drawPixmap(area.topLeft(), pm);
        }
        const QString text = index.data(Qt::DisplayRole).toString();
        if (!text.isEmpty()) {
            int32_t a = cell.alignment;
            if (a == flexAlignGeneral) a = grid_.colAlignment_[static_cast<size_t>(c)];
            Qt::Alignment align = AlignmentOf(a);
            if (a == flexAlignGeneral) {
                // General: numbers to the right, text to the left.
                align = (IsNumericText(S(text)) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
            }
            p->setPen(cell.foreColor != 0 ? ColorOf(cell.foreColor) : QColor(Qt::black));
            p->setFont(option.font);
            p->drawText(interior, static_cast<int>(align), text);
        }
        if (grid_.highLight_ != 0 && r == grid_.row_ && c == grid_.col_) {
            QPen pen(QColor(0x40, 0x40, 0x40));
            pen.setStyle(Qt::DotLine);
            p->setPen(pen);
            p->drawRect(rect.adjusted(0, 0, -1, -1));
        }
    }

private:
    MSFlexGrid& grid_;
    std::vector<Cell> cells_;
    int32_t rows_ = 0, cols_ = 0;
};

namespace {
GridDelegate& DelegateOf(QTableWidget* t) { return *static_cast<GridDelegate*>(t->itemDelegate()); }
}  // namespace

QWidget* MSFlexGrid::MakeWidget(QWidget* parent) {
    auto* t = new QTableWidget(parent);
    t->horizontalHeader()->hide();
    t->verticalHeader()->hide();
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->setSelectionMode(QAbstractItemView::NoSelection);
    t->setFocusPolicy(Qt::StrongFocus);
    t->setWordWrap(false);
    t->setShowGrid(true);
    t->setGridStyle(Qt::SolidLine);
    t->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    t->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    t->setItemDelegate(new GridDelegate(*this, t));
    return t;
}

std::vector<QWidget*> MSFlexGrid::EventSources() { return {widget_, Table()->viewport()}; }

QTableWidget* MSFlexGrid::Table() const { return static_cast<QTableWidget*>(&Alive(widget_, *this)); }

void MSFlexGrid::Repaint() { Table()->viewport()->update(); }

void MSFlexGrid::SetRows(int32_t rows) {
    if (rows < 1) throw Error(30009, TypeName() + ".Rows", kInvalidRow);
    QTableWidget* t = Table();
    if (rows_ == rows && t->rowCount() == rows) return;
    t->setRowCount(rows);
    DelegateOf(t).Resize(rows, cols_);
    rowHeight_.resize(static_cast<size_t>(rows), DefaultRowHeight);
    for (int32_t r = 0; r < rows; ++r) t->setRowHeight(r, PxY(rowHeight_[static_cast<size_t>(r)]));
    rows_ = rows;
    row_ = std::min(row_, rows_ - 1);
}

void MSFlexGrid::SetCols(int32_t cols) {
    if (cols < 1) throw Error(30010, TypeName() + ".Cols", kInvalidCol);
    QTableWidget* t = Table();
    if (cols_ == cols && t->columnCount() == cols) return;
    t->setColumnCount(cols);
    DelegateOf(t).Resize(rows_, cols);
    colWidth_.resize(static_cast<size_t>(cols), DefaultColWidth);
    colAlignment_.resize(static_cast<size_t>(cols), flexAlignGeneral);
    for (int32_t c = 0; c < cols; ++c) t->setColumnWidth(c, PxX(colWidth_[static_cast<size_t>(c)]));
    cols_ = cols;
    col_ = std::min(col_, cols_ - 1);
}

void MSFlexGrid::MoveTo(int32_t row, int32_t col) {
    if (row == row_ && col == col_) return;
    LeaveCell.Raise();
    row_ = row;
    col_ = col;
    if (highLight_ != 0) Repaint();
    EnterCell.Raise();
}

void MSFlexGrid::Prepare() {
    // Two rows and two columns, one of each fixed, standing on the first cell.
    rows_ = cols_ = 0;
    SetCols(2);
    SetRows(2);
    row_ = col_ = 1;
}

void MSFlexGrid::SetRow(int32_t row) {
    if (row < 0 || row >= rows_) throw Error(30009, TypeName() + ".Row", kInvalidRow);
    MoveTo(row, col_);
}

void MSFlexGrid::SetCol(int32_t col) {
    if (col < 0 || col >= cols_) throw Error(30010, TypeName() + ".Col", kInvalidCol);
    MoveTo(row_, col);
}

void MSFlexGrid::CheckCell(int32_t row, int32_t col, const char* member) const {
    if (row < 0 || row >= rows_ || col < 0 || col >= cols_)
        RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + "." + member);
}

void MSFlexGrid::Clear() {
    QTableWidget* t = Table();
    t->clearContents();
    DelegateOf(t).Clear();
    Repaint();
}

std::string MSFlexGrid::GetTextMatrix(int32_t row, int32_t col) {
    CheckCell(row, col, "TextMatrix");
    const QTableWidgetItem* item = Table()->item(row, col);
    return item ? S(item->text()) : std::string();
}

void MSFlexGrid::SetTextMatrix(int32_t row, int32_t col, const std::string& text) {
    CheckCell(row, col, "TextMatrix");
    QTableWidget* t = Table();
    if (QTableWidgetItem* item = t->item(row, col)) item->setText(Q(text));
    else t->setItem(row, col, new QTableWidgetItem(Q(text)));
}

double MSFlexGrid::GetColWidth(int32_t col) {
    CheckCell(0, col, "ColWidth");
    return colWidth_[static_cast<size_t>(col)];
}

void MSFlexGrid::SetColWidth(int32_t col, double width) {
    CheckCell(0, col, "ColWidth");
    if (width == -1) width = DefaultColWidth;
    if (!(width >= 0) || width > 2147483647.0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".ColWidth");
    colWidth_[static_cast<size_t>(col)] = static_cast<int32_t>(std::lround(width));
    Table()->setColumnWidth(col, PxX(colWidth_[static_cast<size_t>(col)]));
}

int32_t MSFlexGrid::GetColAlignment(int32_t col) {
    CheckCell(0, col, "ColAlignment");
    return colAlignment_[static_cast<size_t>(col)];
}

void MSFlexGrid::SetColAlignment(int32_t col, int32_t alignment) {
    CheckCell(0, col, "ColAlignment");
    if (alignment < 0 || alignment > flexAlignGeneral)
        RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".ColAlignment");
    if (colAlignment_[static_cast<size_t>(col)] == alignment) return;
    colAlignment_[static_cast<size_t>(col)] = alignment;
    Repaint();
}

#define ZARO_CELL_MEMBER(Member, field)                                                   \
    int32_t MSFlexGrid::Get##Member() {                                             \
        CheckCell(row_, col_, #Member);                                              \
        return DelegateOf(Table()).At(row_, col_).field;                               \
    }                                                                                \
    void MSFlexGrid::Set##Member(int32_t v) {                                       \
        CheckCell(row_, col_, #Member);                                              \
        DelegateOf(Table()).At(row_, col_).field = v;                                  \
        Repaint();                                                                   \
    }
ZARO_CELL_MEMBER(CellAlignment, alignment)
ZARO_CELL_MEMBER(CellPictureAlignment, pictureAlignment)
ZARO_CELL_MEMBER(CellBackColor, backColor)
ZARO_CELL_MEMBER(CellForeColor, foreColor)
#undef ZARO_CELL_MEMBER

PictureRef MSFlexGrid::GetCellPicture() { return PictureAt(row_, col_); }

void MSFlexGrid::SetCellPicture(const PictureRef& p) {
    CheckCell(row_, col_, "CellPicture");
    DelegateOf(Table()).At(row_, col_).picture = p;
    Repaint();
}

PictureRef MSFlexGrid::PictureAt(int32_t row, int32_t col) {
    CheckCell(row, col, "CellPicture");
    return DelegateOf(Table()).At(row, col).picture;
}

void MSFlexGrid::SetBackColor(int32_t c) {
    backColor_ = c;
    Repaint();
}

void MSFlexGrid::SetHighLight(int32_t v) {
    highLight_ = v;
    Repaint();
}

int32_t MSFlexGrid::GetColPos(int32_t col) {
    CheckCell(0, col, "ColPos");
    QTableWidget* t = Table();
    return TwipsX(t->frameWidth() + t->columnViewportPosition(col));
}

int32_t MSFlexGrid::GetCellTop() {
    QTableWidget* t = Table();
    return TwipsY(t->frameWidth() + t->rowViewportPosition(row_));
}

int32_t MSFlexGrid::GetCellWidth() { return TwipsX(Table()->columnWidth(col_)); }
int32_t MSFlexGrid::GetCellHeight() { return TwipsY(Table()->rowHeight(row_)); }

int32_t MSFlexGrid::GetRowHeight(int32_t row) {
    CheckCell(row, 0, "RowHeight");
    return rowHeight_[static_cast<size_t>(row)];
}

void MSFlexGrid::SetRowHeight(int32_t row, int32_t height) {
    CheckCell(row, 0, "RowHeight");
    if (height < 0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".RowHeight");
    rowHeight_[static_cast<size_t>(row)] = height;
    Table()->setRowHeight(row, PxY(height));
}

void MSFlexGrid::CellRect(int32_t row, int32_t col, int& x, int& y, int& w, int& h) {
    QTableWidget* t = Table();
    x = t->columnViewportPosition(col);
    y = t->rowViewportPosition(row);
    w = t->columnWidth(col);
    h = t->rowHeight(row);
}

bool MSFlexGrid::OnKeyDown(int16_t, int16_t) {
    return true;  // the grid moves on nothing by itself: its KeyUp handler does
}

void MSFlexGrid::OnMouseDown(int x, int y) {
    QTableWidget* t = Table();
    const int row = t->rowAt(y), col = t->columnAt(x);
    // A fixed cell is no current cell: a click on a heading leaves Row and Col.
    if (row >= 1 && col >= 1) MoveTo(row, col);
}

}  // namespace OVT_ZARO::QtKit
