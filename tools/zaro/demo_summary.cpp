// The day's summaries, computed in memory with the library's list queries.
#include <map>
#include <set>
#include <tuple>

#include "demo.h"

namespace zaro::demo {

namespace {

std::string Text(int32_t n) { return std::to_string(n); }

// The count and amounts of the tickets of one type of sale.
struct TicketFigures {
    int32_t count = 0;
    double gross = 0, net = 0, discount = 0;
};

TicketFigures FiguresOf(colticket& tickets, int32_t tipoVenta) {
    auto of = tickets.Where("TIPO_VENTA", Text(tipoVenta));
    return {of->Count(), of->ObtenerSuma("ImpBruto_T"), of->ObtenerSuma("ImpNeto_T"),
            of->ObtenerSuma("ImpDescuento_T")};
}

// The articles and amounts of the lines of one group.
struct LineFigures {
    double units = 0, gross = 0, net = 0, discount = 0;
};

LineFigures FiguresOf(colticket_articulo& lineas) {
    return {lineas.ObtenerSuma("UDS"), lineas.ObtenerSuma("ImpBruto_A"), lineas.ObtenerSuma("ImpNeto_A"),
            lineas.ObtenerSuma("imp_descuento_A")};
}

// Where the figures of each type of sale go in a summary row (cancellations
// have a count and a gross amount only).
struct SummaryFields {
    int32_t tipoVenta;
    int32_t entresumen_diario::*count;
    double entresumen_diario::*gross;
    double entresumen_diario::*net;
    double entresumen_diario::*discount;
};
using R = entresumen_diario;
const SummaryFields kSummaryFields[] = {
    {kVenta, &R::N_VENTAS, &R::IMPBRUTO_V, &R::IMPNETO_V, &R::IMPDESCUENTO_V},
    {kDevolucion, &R::N_DEVOLUCIONES, &R::IMPBRUTO_D, &R::IMPNETO_D, &R::IMPDESCUENTO_D},
    {kAnulacion, &R::N_ANULACIONES, &R::IMPBRUTO_A, &R::IMPNETO_A, &R::IMPDESCUENTO_A},
    {kAnulacionDevolucion, &R::N_A_DEVOLUCION, &R::IMPBRUTO_AD, &R::IMPNETO_AD, &R::IMPDESCUENTO_AD},
    {kCancelacion, &R::N_CANCELACIONES, &R::IMPBRUTO_C, nullptr, nullptr},
};

// Where the figures of the lines of each type of sale go in a detail row.
struct DetailFields {
    int32_t tipoVenta;
    double entresumen_diario_detalle::*units;
    double entresumen_diario_detalle::*gross;
    double entresumen_diario_detalle::*net;
    double entresumen_diario_detalle::*discount;
};
using D = entresumen_diario_detalle;
const DetailFields kDetailFields[] = {
    {kVenta, &D::ARTICULOS_V, &D::IMPBRUTO_VSFZ, &D::IMPNETO_VSFZ, &D::IMPDESCUENTO_VSFZ},
    {kDevolucion, &D::ARTICULOS_D, &D::IMPBRUTO_DSFZ, &D::IMPNETO_DSFZ, &D::IMPDESCUENTO_DSFZ},
    {kAnulacion, &D::ARTICULOS_A, &D::IMPBRUTO_ASFZ, &D::IMPNETO_ASFZ, &D::IMPDESCUENTO_ASFZ},
    {kAnulacionDevolucion, &D::ARTICULOS_AD, &D::IMPBRUTO_ADSFZ, &D::IMPNETO_ADSFZ, &D::IMPDESCUENTO_ADSFZ},
};

// The time an operator closed the day, which the summaries carry.
std::string ClosingTime(colfin_dia& fines, int32_t operador) {
    auto fin = fines.Where("CD_OP", Text(operador));
    return fin->Count() ? fin->Item(1)->HORA_REAL : std::string();
}

// The company and restaurant of the day: those of its first ticket.
std::pair<int32_t, int32_t> Site(colticket& tickets) {
    if (tickets.Count() == 0) return {0, 0};
    auto first = tickets.Item(1);
    return {first->idEmpresa, first->idRestaurante};
}

}  // namespace

std::shared_ptr<colresumen_diario> SummaryByOperator(Day& day) {
    auto resumen = std::make_shared<colresumen_diario>();
    const auto [empresa, restaurante] = Site(*day.tickets);
    auto inicios = day.inicios->OrderBy("CD_OP");
    for (const auto& inicio : *inicios) {
        const int32_t operador = inicio->CD_OP;
        const int32_t tpv = operador;  // the sample site: an operator's code is its till's number
        auto suyos = day.tickets->Where("idTPV", Text(tpv));
        auto r = resumen->Add(kCodResumen, day.dia, tpv, operador, day.dia, ClosingTime(*day.fines, operador));
        // The first ticket number from the sorted list: ObtenerMinimo starts
        // from 0 and so would answer 0. The maximum of positive numbers is right.
        auto ordenados = suyos->OrderBy("CD_TICKET");
        r->CD_TICKET_I = ordenados->Count() ? ordenados->Item(1)->CD_TICKET : 0;
        r->CD_TICKET_F = static_cast<int32_t>(suyos->ObtenerMaximo("CD_TICKET"));
        for (const SummaryFields& f : kSummaryFields) {
            const TicketFigures t = FiguresOf(*suyos, f.tipoVenta);
            (*r).*f.count = t.count;
            (*r).*f.gross = t.gross;
            if (f.net) (*r).*f.net = t.net;
            if (f.discount) (*r).*f.discount = t.discount;
        }
        r->NUM_REG_01 = suyos->Count();
        // Written by Insert and Update, though no list of the library reads them.
        r->idEmpresa = empresa;
        r->idRestaurante = restaurante;
        r->idTPV = tpv;
    }
    return resumen;
}

std::shared_ptr<colresumen_diario_detalle> DetailByFamily(Day& day) {
    // The type of sale of each line is its ticket's: the lines of one type
    // are picked with WhereDelegado, whose handler looks the ticket up.
    std::map<std::tuple<int32_t, int32_t, int32_t, int32_t>, int32_t> tipoDeTicket;
    for (const auto& t : *day.tickets)
        tipoDeTicket[{t->idEmpresa, t->idRestaurante, t->idTPV, t->idTicket}] = t->TIPO_VENTA;
    int32_t buscado = 0;
    const int handler = day.lineas->DelegadoEvaluaElementoWhere.Attach(
        [&](std::string&, std::shared_ptr<entticket_articulo>& linea, bool& conservar) {
            auto it = tipoDeTicket.find({linea->idEmpresa, linea->idRestaurante, linea->idTPV, linea->idTicket});
            conservar = it != tipoDeTicket.end() && it->second == buscado;  // an answer on every call
        });
    std::map<int32_t, std::shared_ptr<colticket_articulo>> porTipo;
    for (const DetailFields& f : kDetailFields) {
        buscado = f.tipoVenta;
        porTipo[buscado] = day.lineas->WhereDelegado("tipo de venta " + Text(buscado));
    }
    day.lineas->DelegadoEvaluaElementoWhere.Detach(handler);

    // One detail row per till, family, subfamily and tax type that the day's lines hold.
    std::set<std::tuple<int32_t, int32_t, int32_t, int32_t>> grupos;
    for (const auto& l : *day.lineas) grupos.insert({l->idTPV, l->TIPO_FAMILIA, l->TIPO_SUBFAMILIA, l->TIPO_FISCAL});
    const auto [empresa, restaurante] = Site(*day.tickets);
    auto detalle = std::make_shared<colresumen_diario_detalle>();
    for (const auto& [tpv, familia, subfamilia, fiscal] : grupos) {
        auto delGrupo = [&](colticket_articulo& lineas) {
            return FiguresOf(*lineas.Where("idTPV", Text(tpv))
                                  ->Where("TIPO_FAMILIA", Text(familia))
                                  ->Where("TIPO_SUBFAMILIA", Text(subfamilia))
                                  ->Where("TIPO_FISCAL", Text(fiscal)));
        };
        auto d = detalle->Add(kCodDetalle, day.dia, tpv, familia, subfamilia, fiscal, ClosingTime(*day.fines, tpv));
        for (const DetailFields& f : kDetailFields) {
            const LineFigures l = delGrupo(*porTipo[f.tipoVenta]);
            (*d).*f.units = l.units;
            (*d).*f.gross = l.gross;
            (*d).*f.net = l.net;
            (*d).*f.discount = l.discount;
        }
        d->idEmpresa = empresa;
        d->idRestaurante = restaurante;
        d->idTPV = tpv;
    }
    return detalle;
}

}  // namespace zaro::demo
