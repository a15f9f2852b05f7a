#include "window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace zaro_pos {

using namespace OVT_ZARO;

namespace {
QString Q(const std::string& s) { return QString::fromStdString(s); }

// The numbers the article lookup keys on: a site table beside the article
// master (a list entry's key is a number, the article codes are text).
const char kCodigos[] =
    "CREATE TABLE IF NOT EXISTS zaro_pos_codigo (num int NOT NULL AUTO_INCREMENT PRIMARY KEY, "
    "CD_ARTICULO varchar(15) NOT NULL, UNIQUE KEY (CD_ARTICULO))";
const char kLookup[] =
    "select c.num, a.DESC_CORTA from articulo a join zaro_pos_codigo c on c.CD_ARTICULO = a.CD_ARTICULO";
constexpr int32_t kColorFila = 12648447;
constexpr int32_t kIndicador = 300;  // the indicator column: the warning picture and the mark of a row not saved

coleccionColumnasRef ArticleColumns() {
    auto c = std::make_shared<coleccionColumnas>();
    c->Add("CD_ARTICULO", "Código", 0, 0, "", Texto);  // the key, hidden
    c->Add("DESC_ARTICULO", "Descripción", 3300, 0, "", Texto);
    c->Add("DESC_CORTA", "Descripción corta", 2100, 0, "", Texto);
    c->Add("TIPO_FAMILIA", "Familia", 900, 0, "", Entero);
    c->Add("TIPO_SUBFAMILIA", "Subfamilia", 1050, 0, "", Entero);
    c->Add("PRECIOMAX", "Precio", 1000, 0, "", NumDecimal);
    c->Add("TIPO_OPERACION", "Activo", 750, 0, "", Check);
    return c;
}
}  // namespace

PosWindow::PosWindow(ConnectionRef cn, QWidget* parent)
    : QMainWindow(parent), cn_(std::move(cn)), helper_(std::make_shared<ControlListHelper>()) {
    setWindowTitle("zaro-pos — datos de ventas");
    tabs_ = new QTabWidget(this);
    setCentralWidget(tabs_);
    statusBar()->setSizeGripEnabled(false);
    BuildArticles();
    BuildTickets();

    // What the host hears of the edits: the rows to save, and the article
    // code behind a number picked in the lookup.
    helper_->CeldaModificada.Attach([this](ControlRef& control, ColumnaRef& columna, IEntidadRef& entidad,
                                           int32_t&, int32_t& row, Variant&, Variant& nuevo) {
        const bool articulo = control == articles_.grid;
        auto& pendientes = articulo ? pendingArticles_ : pendingLines_;
        if (!IsPending(entidad)) pendientes.push_back(entidad);
        if (!articulo && columna->Nombre == "CD_ARTICULO") {
            try {
                const std::string codigo = CodeOfNumber(nuevo);
                entidad->SetValor(std::string("CD_ARTICULO"), Variant(codigo));
                control->SetTextMatrix(row, 1, codigo);
            } catch (const Error& e) {
                ShowError(e);
            }
        }
        MarkRow(control, row, true);
        UpdateCounts();
    });
    helper_->PintandoLinea.Attach([this](ControlRef& control, IEntidadRef& entidad, int32_t& linea) {
        if (control == articles_.grid || control == tickets_.grid) MarkRow(control, linea, IsPending(entidad));
    });
    Reload();
}

PosWindow::~PosWindow() {
    // The forms' widgets belong to the tabs; the forms go first, with their handlers.
    articles_.form.reset();
    tickets_.form.reset();
}

bool PosWindow::IsPending(const IEntidadRef& e) const {
    return std::find(pendingArticles_.begin(), pendingArticles_.end(), e) != pendingArticles_.end() ||
           std::find(pendingLines_.begin(), pendingLines_.end(), e) != pendingLines_.end();
}

void PosWindow::BuildArticles() {
    Articles& a = articles_;
    a.form = QtKit::Form::Create("frmArticulos", 13200, 6300);
    a.grid = a.form->Add<QtKit::MSFlexGrid>("grdArticulos");
    a.text = a.form->Add<QtKit::TextBox>("txtEdicion");
    a.list = a.form->Add<QtKit::ListBox>("lstBusqueda");
    a.calendar = a.form->Add<QtKit::MonthView>("mvwFecha");
    a.grid->SetLeft(120);
    a.grid->SetTop(120);
    a.grid->SetWidth(12900);
    a.grid->SetHeight(5400);
    for (const ControlRef& c : std::vector<ControlRef>{a.text, a.list, a.calendar}) c->SetVisible(false);

    auto* pagina = new QWidget;
    auto* columna = new QVBoxLayout(pagina);
    columna->addWidget(a.form->Widget(), 1);
    auto* barra = new QHBoxLayout;
    a.newCode = new QLineEdit;
    a.newCode->setPlaceholderText("Código nuevo");
    a.newCode->setMaximumWidth(160);
    auto* nuevo = new QPushButton("Añadir artículo");
    auto* guardar = new QPushButton("Guardar");
    guardar->setObjectName("btnGuardarArticulos");
    a.pending = new QLabel;
    barra->addWidget(a.newCode);
    barra->addWidget(nuevo);
    barra->addStretch(1);
    barra->addWidget(a.pending);
    barra->addWidget(guardar);
    columna->addLayout(barra);
    tabs_->addTab(pagina, "Artículos");
    QObject::connect(nuevo, &QPushButton::clicked, this, [this] {
        AddArticle(articles_.newCode->text().trimmed().toStdString());
        articles_.newCode->clear();
    });
    QObject::connect(guardar, &QPushButton::clicked, this, [this] { SaveArticles(); });
}

void PosWindow::BuildTickets() {
    Tickets& t = tickets_;
    t.form = QtKit::Form::Create("frmTickets", 13200, 6300);
    t.tickets = t.form->Add<QtKit::ListBox>("lstTickets");
    t.grid = t.form->Add<QtKit::MSFlexGrid>("grdLineas");
    t.text = t.form->Add<QtKit::TextBox>("txtEdicion");
    t.list = t.form->Add<QtKit::ListBox>("lstArticulos");
    t.calendar = t.form->Add<QtKit::MonthView>("mvwFecha");
    t.tickets->SetLeft(120);
    t.tickets->SetTop(120);
    t.tickets->SetWidth(3600);
    t.tickets->SetHeight(5400);
    t.grid->SetLeft(3840);
    t.grid->SetTop(120);
    t.grid->SetWidth(9180);
    t.grid->SetHeight(5400);
    for (const ControlRef& c : std::vector<ControlRef>{t.text, t.list, t.calendar}) c->SetVisible(false);
    // A ticket picked in the list: its lines in the grid.
    t.tickets->Click.Attach([this] { LoadLines(); });

    auto* pagina = new QWidget;
    auto* columna = new QVBoxLayout(pagina);
    t.day = new QLabel;
    columna->addWidget(t.day);
    columna->addWidget(t.form->Widget(), 1);
    auto* barra = new QHBoxLayout;
    auto* guardar = new QPushButton("Guardar líneas");
    guardar->setObjectName("btnGuardarLineas");
    t.pending = new QLabel;
    barra->addStretch(1);
    barra->addWidget(t.pending);
    barra->addWidget(guardar);
    columna->addLayout(barra);
    tabs_->addTab(pagina, "Tickets");
    QObject::connect(guardar, &QPushButton::clicked, this, [this] { SaveLines(); });
}

void PosWindow::Reload() {
    try {
        PrepareLookup();
        LoadArticles();
        LoadTickets();
        ShowMessage(std::to_string(articles_.rows->Count()) + " artículos · " +
                    std::to_string(tickets_.tickets->GetListCount()) + " tickets del " + CStr(Variant(day_)));
    } catch (const Error& e) {
        ShowError(e);
    }
    UpdateCounts();
}

void PosWindow::PrepareLookup() {
    cn_->Execute(kCodigos);
    cn_->Execute("INSERT IGNORE INTO zaro_pos_codigo (CD_ARTICULO) SELECT CD_ARTICULO FROM articulo ORDER BY CD_ARTICULO");
}

void PosWindow::LoadArticles() {
    daarticulo da;
    da.Conexion = cn_;
    articles_.rows = da.Listar();
    pendingArticles_.clear();
    helper_->CargaMSFlexGrid(articles_.grid, articles_.rows, ArticleColumns(), true, articles_.text, articles_.list,
                             articles_.calendar, kColorFila);
    articles_.grid->SetColWidth(0, kIndicador);
}

void PosWindow::LoadTickets() {
    // The last trading day in the tickets.
    auto rs = cn_->Execute("select max(FECHA_REAL) from ticket");
    const Variant v = rs->Fields().Item(int32_t{0}).Value();
    day_ = v.IsDate() ? v.Get<Date>() : Date();
    const std::string dia = CStr(Format(Variant(day_), "yyyy-mm-dd"));
    auto lista = std::make_shared<coleccionGenerica>();
    lista->Cargar(cn_->Execute(
        "select idEmpresa, idRestaurante, idTPV, idTicket, concat(convert(concat('Caja ', idTPV, '   Ticket ', "
        "idTicket, '   ', substr(HORA_REAL, 1, 2), ':', substr(HORA_REAL, 3, 2)) using utf8mb4), '   ', "
        "format(ImpBruto_T, 2, 'es_ES'), ' €') as Descripcion from ticket where FECHA_REAL = '" + dia + "' order by HORA_REAL, idTPV, idTicket"));
    helper_->CargaListBox(tickets_.tickets, lista, std::string("Descripcion"));
    Screen()->SetMousePointer(vbDefault);  // an empty day leaves the hourglass: put it back
    tickets_.day->setText("Tickets del " + Q(CStr(Variant(day_))));
    pendingLines_.clear();
    if (tickets_.tickets->GetListCount() > 0) tickets_.tickets->SetListIndex(0);
}

void PosWindow::LoadLines() {
    try {
        IEntidadRef ticket = helper_->ValorSeleccionado(tickets_.tickets);
        if (!ticket) return;
        auto n = [&](const char* campo) { return CLng(ticket->GetValor(std::string(campo))); };
        daticket_articulo da;
        da.Conexion = cn_;
        tickets_.lines = da.Listar(n("idEmpresa"), n("idRestaurante"), n("idTPV"), n("idTicket"));
        auto c = std::make_shared<coleccionColumnas>();
        c->Add("CD_ARTICULO", "Código", 0, 0, "", Texto);  // the key of the lookup, hidden
        ColumnaRef d = c->Add("DESC_CORTA", "Artículo", 2700, 0, "", Texto);
        d->Conexion = cn_;
        d->OrigenDatos = kLookup;
        d->OrigenDatosCampoClave = "num";
        d->OrigenDatosCampoDescripcion = "DESC_CORTA";
        d->OrigenDatosCampoClaveTablaVista = "CD_ARTICULO";
        d->ImagenKey = "lupa";
        c->Add("UDS", "Uds", 900, 0, "", NumDecimal);
        c->Add("ImpVenta_A", "Importe", 1100, 0, "", NumDecimal);
        c->Add("FECHA_REAL", "Fecha", 1500, 0, "", Fecha)->ImagenKey = "calendar";
        c->Add("TIPO_UDS", "Unidad", 800, 0, "", Check);
        c->Add("idLinea", "Línea", 700, 2, "", TextoFijo);
        helper_->CargaMSFlexGrid(tickets_.grid, tickets_.lines, c, true, tickets_.text, tickets_.list,
                                 tickets_.calendar, kColorFila);
        tickets_.grid->SetColWidth(0, kIndicador);
    } catch (const Error& e) {
        ShowError(e);
    }
}

std::string PosWindow::CodeOfNumber(const Variant& number) {
    ConnectionRef cn = cn_;
    std::string sql = "select CD_ARTICULO from zaro_pos_codigo where num = " + CStr(Variant(CLng(number)));
    std::string campo = "CD_ARTICULO";
    return CStr(BasTroquel::ObtenerValorSQL(cn, sql, campo));
}

void PosWindow::MarkRow(const ControlRef& grid, int32_t row, bool pending) {
    // The indicator column carries the mark of a row not saved; its picture is the warning's.
    if (row >= 1 && row < grid->GetRows()) grid->SetTextMatrix(row, 0, pending ? "*" : "");
}

void PosWindow::UpdateCounts() {
    articles_.pending->setText(pendingArticles_.empty() ? "Todo guardado"
                                                        : Q(std::to_string(pendingArticles_.size()) + " sin guardar"));
    tickets_.pending->setText(pendingLines_.empty() ? "Todo guardado"
                                                    : Q(std::to_string(pendingLines_.size()) + " sin guardar"));
}

void PosWindow::AddArticle(const std::string& code) {
    if (code.empty()) return;
    auto e = articles_.rows->Add(code);
    e->COD_TRANSACC = 8;
    e->TIPO_OPERACION = 1;
    pendingArticles_.push_back(e);
    helper_->CargaMSFlexGrid(articles_.grid, articles_.rows, ArticleColumns(), true, articles_.text, articles_.list,
                             articles_.calendar, kColorFila);
    articles_.grid->SetColWidth(0, kIndicador);
    UpdateCounts();
}

bool PosWindow::SaveArticles() {
    daarticulo da;
    da.Conexion = cn_;
    std::vector<IEntidadRef> quedan;
    for (const IEntidadRef& e : pendingArticles_) {
        auto& articulo = dynamic_cast<entarticulo&>(*e);
        try {
            if (da.Existe(articulo)) da.Update(articulo);
            else da.Insert(articulo);
        } catch (const Error& err) {
            ShowError(err);
            quedan.push_back(e);  // refused: it stays edited and marked
        }
    }
    const size_t guardadas = pendingArticles_.size() - quedan.size();
    pendingArticles_ = quedan;
    for (int32_t r = 1; r < articles_.grid->GetRows(); ++r) {
        IEntidadRef e = std::dynamic_pointer_cast<IEntidad>(articles_.rows->Item(r));
        MarkRow(articles_.grid, r, IsPending(e));
    }
    UpdateCounts();
    if (quedan.empty()) ShowMessage(std::to_string(guardadas) + " artículos guardados");
    return quedan.empty();
}

bool PosWindow::SaveLines() {
    daticket_articulo da;
    da.Conexion = cn_;
    std::vector<IEntidadRef> quedan;
    for (const IEntidadRef& e : pendingLines_) {
        auto& linea = dynamic_cast<entticket_articulo&>(*e);
        try {
            // Delete and Insert: the library's Update of a line writes its second
            // and third promotion without their opening quote.
            da.Delete(linea.idEmpresa, linea.idRestaurante, linea.idTPV, linea.idTicket, linea.idLinea);
            da.Insert(linea);
        } catch (const Error& err) {
            ShowError(err);
            quedan.push_back(e);
        }
    }
    const size_t guardadas = pendingLines_.size() - quedan.size();
    pendingLines_ = quedan;
    if (tickets_.lines)
        for (int32_t r = 1; r < tickets_.grid->GetRows() && r <= tickets_.lines->Count(); ++r)
            MarkRow(tickets_.grid, r, IsPending(tickets_.lines->Item(r)));
    UpdateCounts();
    if (quedan.empty()) ShowMessage(std::to_string(guardadas) + " líneas guardadas");
    return quedan.empty();
}

void PosWindow::ShowError(const Error& e) {
    ShowMessage("Error " + std::to_string(e.Number) + " (" + e.Source + "): " + e.Description);
}

void PosWindow::ShowMessage(const std::string& text) { statusBar()->showMessage(Q(text)); }

std::string PosWindow::Status() const { return statusBar()->currentMessage().toStdString(); }

}  // namespace zaro_pos
