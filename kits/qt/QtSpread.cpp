// The spread over a QTableWidget of typed cells, and the data grid over a
// QTableView of a static Recordset's rows.
#include <QAbstractTableModel>
#include <QHeaderView>
#include <QTableView>
#include <QTableWidget>
#include <cmath>

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "kits/qt/Comun.h"

namespace OVT_ZARO::QtKit {

namespace {
constexpr double kDefaultWidth = 9.0;  // characters
}

QWidget* fpSpread::MakeWidget(QWidget* parent) {
    auto* t = new QTableWidget(parent);
    t->horizontalHeader()->hide();
    t->verticalHeader()->hide();
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->setSelectionMode(QAbstractItemView::SingleSelection);
    t->setWordWrap(false);
    return t;
}

void fpSpread::Prepare() {
    maxRows_ = maxCols_ = -1;
    SetMaxCols(0);
    SetMaxRows(0);
}

std::vector<QWidget*> fpSpread::EventSources() { return {widget_, Table()->viewport()}; }

QTableWidget* fpSpread::Table() const { return static_cast<QTableWidget*>(&Alive(widget_, *this)); }

void fpSpread::SetMaxRows(int32_t rows) {
    if (rows < 0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".MaxRows");
    if (rows == maxRows_) return;
    formats_.resize(static_cast<size_t>(rows + 1), std::vector<CellFormat>(static_cast<size_t>(std::max(maxCols_, 0) + 1)));
    values_.resize(static_cast<size_t>(rows + 1), std::vector<Variant>(static_cast<size_t>(std::max(maxCols_, 0) + 1)));
    const int32_t before = Table()->rowCount();
    Table()->setRowCount(rows + 1);
    for (int32_t r = before; r <= rows; ++r) {
        Table()->setRowHeight(r, PxY(285));
        if (r > 0) Table()->setItem(r, 0, new QTableWidgetItem(QString::number(r)));
    }
    maxRows_ = rows;
    activeRow_ = std::min(activeRow_, std::max(maxRows_, 1));
}

void fpSpread::SetMaxCols(int32_t cols) {
    if (cols < 0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".MaxCols");
    if (cols == maxCols_) return;
    for (auto& row : formats_) row.resize(static_cast<size_t>(cols + 1));
    for (auto& row : values_) row.resize(static_cast<size_t>(cols + 1));
    colWidth_.resize(static_cast<size_t>(cols + 1), kDefaultWidth);
    const int32_t before = Table()->columnCount();
    Table()->setColumnCount(cols + 1);
    for (int32_t c = before; c <= cols; ++c) SetColWidth(c, colWidth_[static_cast<size_t>(c)]);
    maxCols_ = cols;
    activeCol_ = std::min(activeCol_, std::max(maxCols_, 1));
}

void fpSpread::Check(int32_t col, int32_t row) const {
    if (row < 0 || row > maxRows_ || col < 0 || col > maxCols_)
        RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".Cell");
}

fpSpread::CellFormat& fpSpread::Addressed() {
    Check(col_, row_);
    return formats_[static_cast<size_t>(row_)][static_cast<size_t>(col_)];
}

double fpSpread::GetColWidth(int32_t col) {
    if (col < 0 || col > maxCols_) RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".ColWidth");
    return colWidth_[static_cast<size_t>(col)];
}

void fpSpread::SetColWidth(int32_t col, double width) {
    if (col < 0 || col >= static_cast<int32_t>(colWidth_.size()))
        RaisePlatform(ErrNum::InvalidPropertyIndex, TypeName() + ".ColWidth");
    if (!(width >= 0)) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".ColWidth");
    colWidth_[static_cast<size_t>(col)] = width;
    // A unit of width is a character of the spread's font.
    const int px = static_cast<int>(std::lround(width * Table()->fontMetrics().averageCharWidth())) + 6;
    Table()->setColumnWidth(col, width == 0 ? 0 : px);
}

#define ZARO_TYPE_MEMBER(Member, field, T)                                     \
    T fpSpread::Get##Member() { return Addressed().field; }             \
    void fpSpread::Set##Member(T v) {                                   \
        Addressed().field = v;                                           \
        Display(col_, row_);                                                \
    }
ZARO_TYPE_MEMBER(CellType, type, int32_t)
ZARO_TYPE_MEMBER(TypeHAlign, hAlign, int32_t)
ZARO_TYPE_MEMBER(TypeFloatSeparator, separator, bool)
ZARO_TYPE_MEMBER(TypeFloatDecimalPlaces, decimals, int32_t)
#undef ZARO_TYPE_MEMBER

void fpSpread::SetInteger(int32_t col, int32_t row, int32_t value) {
    Check(col, row);
    values_[static_cast<size_t>(row)][static_cast<size_t>(col)] = Variant(value);
    Display(col, row);
}

void fpSpread::SetFloat(int32_t col, int32_t row, double value) {
    Check(col, row);
    values_[static_cast<size_t>(row)][static_cast<size_t>(col)] = Variant(value);
    Display(col, row);
}

void fpSpread::SetText(int32_t col, int32_t row, const Variant& value) {
    Check(col, row);
    values_[static_cast<size_t>(row)][static_cast<size_t>(col)] =
        Variant(value.IsNull() ? std::string() : CStr(value));
    Display(col, row);
}

Variant fpSpread::CellValue(int32_t col, int32_t row) {
    Check(col, row);
    return values_[static_cast<size_t>(row)][static_cast<size_t>(col)];
}

std::string fpSpread::CellText(int32_t col, int32_t row) {
    Check(col, row);
    const QTableWidgetItem* it = Table()->item(row, col);
    return it ? S(it->text()) : std::string();
}

void fpSpread::Display(int32_t col, int32_t row) {
    // What a cell shows, by its type.
    const CellFormat& t = formats_[static_cast<size_t>(row)][static_cast<size_t>(col)];
    const Variant& v = values_[static_cast<size_t>(row)][static_cast<size_t>(col)];
    QString text;
    Qt::CheckState mark = Qt::Unchecked;
    bool hasMark = false;
    if (!v.IsEmpty()) {
        if (row > 0 && t.type == CellTypeFloat && v.IsNumber()) {
            std::string pattern = t.separator ? "#,##0" : "0";
            if (t.decimals > 0) pattern += "." + std::string(static_cast<size_t>(t.decimals), '0');
            text = Q(CStr(Format(v, pattern)));
        } else if (row > 0 && t.type == CellTypeCheckBox) {
            hasMark = true;
            mark = CDbl(v) != 0 ? Qt::Checked : Qt::Unchecked;
        } else {
            text = Q(CStr(v));
        }
    }
    QTableWidget* table = Table();
    QTableWidgetItem* it = table->item(row, col);
    if (!it) table->setItem(row, col, it = new QTableWidgetItem());
    it->setText(text);
    if (hasMark) it->setData(Qt::CheckStateRole, mark);
    const Qt::Alignment align = t.hAlign == 1 ? Qt::AlignRight : t.hAlign == 2 ? Qt::AlignHCenter : Qt::AlignLeft;
    it->setTextAlignment(align | Qt::AlignVCenter);
    if (row == 0 || col == 0) it->setBackground(QColor(0xE4, 0xE4, 0xE4));
}

void fpSpread::OnMouseDown(int x, int y) {
    QTableWidget* t = Table();
    const int row = t->rowAt(y), col = t->columnAt(x);
    if (row >= 1) activeRow_ = row;
    if (col >= 1) activeCol_ = col;
    if (row >= 1 && col >= 1) t->setCurrentCell(row, col);
}

// ---- Data grid ----------------------------------------------------------------------------

// The rows of a static Recordset as text, read once when it is bound.
class RecordsetModel : public QAbstractTableModel {
public:
    explicit RecordsetModel(QObject* parent) : QAbstractTableModel(parent) {}
    void Load(const std::shared_ptr<ADODB::Recordset>& rs) {
        beginResetModel();
        headers_.clear();
        rows_.clear();
        if (rs && rs->State() == ADODB::adStateOpen) {
            for (ADODB::Field& f : rs->Fields()) headers_.push_back(Q(f.Name()));
            // A static Recordset is read to its end and put back on its first row.
            if (rs->RecordCount() >= 0 && !(rs->EOF_() && rs->BOF())) {
                rs->MoveFirst();
                while (!rs->EOF_()) {
                    QStringList row;
                    for (ADODB::Field& f : rs->Fields()) {
                        const Variant v = f.Value();
                        row << (v.IsNull() ? QString() : Q(CStr(v)));
                    }
                    rows_.push_back(row);
                    rs->MoveNext();
                }
                rs->MoveFirst();
            }
        }
        endResetModel();
    }
    int rowCount(const QModelIndex& = QModelIndex()) const override { return static_cast<int>(rows_.size()); }
    int columnCount(const QModelIndex& = QModelIndex()) const override { return static_cast<int>(headers_.size()); }
    QVariant data(const QModelIndex& i, int role) const override {
        if (role == Qt::DisplayRole) return rows_[static_cast<size_t>(i.row())].value(i.column());
        if (role == Qt::TextAlignmentRole && i.column() < static_cast<int>(align_.size()))
            return static_cast<int>(align_[static_cast<size_t>(i.column())] | Qt::AlignVCenter);
        return {};
    }
    QVariant headerData(int s, Qt::Orientation o, int role) const override {
        if (o == Qt::Horizontal && role == Qt::DisplayRole) return headers_.value(s);
        return {};
    }
    void SetCaption(int c, const QString& t) {
        headers_[c] = t;
        emit headerDataChanged(Qt::Horizontal, c, c);
    }
    void SetAlignment(int c, Qt::Alignment a) {
        if (align_.size() <= static_cast<size_t>(c)) align_.resize(static_cast<size_t>(c) + 1, Qt::AlignLeft);
        align_[static_cast<size_t>(c)] = a;
    }

private:
    QStringList headers_;
    std::vector<QStringList> rows_;
    std::vector<Qt::Alignment> align_;
};

namespace {
class QtDataGridColumn : public DataGridColumn {
public:
    QtDataGridColumn(DataGrid& g, RecordsetModel& m, int index, std::string field)
        : grid_(g), model_(m), index_(index), field_(std::move(field)), caption_(field_) {}
    std::string GetDataField() override { return field_; }
    bool GetVisible() override { return !grid_.View()->isColumnHidden(index_); }
    void SetVisible(bool v) override { grid_.View()->setColumnHidden(index_, !v); }
    double GetWidth() override { return width_; }
    void SetWidth(double w) override {
        width_ = w;
        grid_.View()->setColumnWidth(index_, grid_.PxX(static_cast<int32_t>(std::lround(w))));
    }
    std::string GetCaption() override { return caption_; }
    void SetCaption(const std::string& c) override {
        caption_ = c;
        model_.SetCaption(index_, Q(c));
    }
    int32_t GetAlignment() override { return alignment_; }
    void SetAlignment(int32_t a) override {
        alignment_ = a;
        model_.SetAlignment(index_, a == 1 ? Qt::AlignRight : a == 2 ? Qt::AlignHCenter : Qt::AlignLeft);
    }

private:
    DataGrid& grid_;
    RecordsetModel& model_;
    int index_;
    std::string field_, caption_;
    double width_ = 1440;
    int32_t alignment_ = 0;
};
}  // namespace

DataGrid::~DataGrid() = default;

QWidget* DataGrid::MakeWidget(QWidget* parent) {
    auto* v = new QTableView(parent);
    model_ = new RecordsetModel(v);
    v->setModel(model_);
    v->verticalHeader()->hide();
    v->setEditTriggers(QAbstractItemView::NoEditTriggers);
    v->setSelectionBehavior(QAbstractItemView::SelectRows);
    v->setSelectionMode(QAbstractItemView::SingleSelection);
    return v;
}

QTableView* DataGrid::View() const { return static_cast<QTableView*>(&Alive(widget_, *this)); }

void DataGrid::SetDataSource(const std::shared_ptr<ADODB::Recordset>& rs) {
    Alive(widget_, *this);
    source_ = rs;
    columns_.clear();
    row_ = -1;
    model_->Load(rs);
    for (int c = 0; c < model_->columnCount(); ++c)
        columns_.push_back(std::make_shared<QtDataGridColumn>(*this, *model_, c,
                                                               S(model_->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString())));
    if (rs && rs->State() == ADODB::adStateOpen && !(rs->EOF_() && rs->BOF())) row_ = 0;
    if (row_ == 0) View()->selectRow(0);
}

void DataGrid::SetRow(int32_t row) {
    if (!source_ || row < 0) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".Row");
    source_->MoveFirst();
    for (int32_t i = 0; i < row; ++i) {
        source_->MoveNext();
        if (source_->EOF_()) RaisePlatform(ErrNum::InvalidPropertyValue, TypeName() + ".Row");
    }
    row_ = row;
    View()->selectRow(row);
}

}  // namespace OVT_ZARO::QtKit
