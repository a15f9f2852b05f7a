// The ticket payment's deviations: ID_REGISTRO is part of the key, which
// begins with ID_REGISTRO and TIPO_PAGO where the primary key ends with them.
#include <gtest/gtest.h>

#include "base_db.h"
#include "expected_ticket_pago.h"

using namespace zaro_tablas;

namespace {

entticket_pago Muestra() {
    entticket_pago e;
    MuestraTicketPago(e);
    return e;
}

}  // namespace

TEST(TicketPago, CamposOkFailsForIdRegistro0AndTipoPago0BothKeyFields) {
    daticket_pago da;
    entticket_pago e = Muestra();
    e.ID_REGISTRO = 0;
    e.TIPO_PAGO = 0;
    std::string mensajes;
    EXPECT_FALSE(da.CamposOk(e, mensajes));
    EXPECT_EQ(mensajes,
              "\r\n\r\n\tEl campo [ID_REGISTRO] es obligatorio.\r\n\tEl campo [TIPO_PAGO] es obligatorio.\r\n");
}

TEST(TicketPago, CamposOkAlsoRequiresCodTransaccAndFechaRealWhichAreNotInTheKey) {
    daticket_pago da;
    entticket_pago e = Muestra();
    e.COD_TRANSACC = 0;
    e.FECHA_REAL = Date();
    std::string mensajes;
    EXPECT_FALSE(da.CamposOk(e, mensajes));
    EXPECT_EQ(mensajes,
              "\r\n\r\n\tEl campo [COD_TRANSACC] es obligatorio.\r\n\tEl campo [FECHA_REAL] es obligatorio.\r\n");
}

TEST(TicketPago, CdClienteTakesAnyLengthInTheEntity) {
    entticket_pago e;
    e.SetValor("CD_CLIENTE", Variant("CLIENTE LARGO"));
    EXPECT_EQ(e.CD_CLIENTE, "CLIENTE LARGO");
}

TEST(TicketPago, ItemClaveTakesTheKeyAlphabeticallyWithoutRegardToCase) {
    colticket_pago l;
    // COD_TRANSACC, FECHA_REAL, ID_REGISTRO, TIPO_PAGO, idEmpresa, idRestaurante, idTPV, idTicket
    auto e = l.Add(1, Date::FromParts(2026, 3, 1), 2, 3, 4, 5, 6, 7);
    // ID_REGISTRO, idEmpresa, idRestaurante, idTicket, idTPV, TIPO_PAGO
    EXPECT_EQ(l.ItemClave(2, 4, 5, 7, 6, 3), e);
    EXPECT_EQ(l.ItemClave(2, 3, 4, 5, 6, 7), nullptr);
}

class TicketPagoDb : public PorRoad {
protected:
    void SetUp() override {
        PorRoad::SetUp();
        da = Adapter<daticket_pago>();
        ASSERT_TRUE(da->CrearTabla());
    }
    entticket_pago Pago(int32_t registro, int32_t tipo, int32_t empresa, int32_t restaurante, int32_t tpv,
                        int32_t ticket) {
        entticket_pago e = Muestra();
        e.ID_REGISTRO = registro;
        e.TIPO_PAGO = tipo;
        e.idEmpresa = empresa;
        e.idRestaurante = restaurante;
        e.idTPV = tpv;
        e.idTicket = ticket;
        return e;
    }
    std::shared_ptr<daticket_pago> da;
};

INSTANTIATE_TEST_SUITE_P(Roads, TicketPagoDb, ::testing::ValuesIn(zaro_test::AllRoads()), zaro_test::RoadName);

TEST_P(TicketPagoDb, ListarWithOnlyIdTicketReturnsThePaymentsOfThatNumberEverywhereInKeyOrder) {
    for (entticket_pago e : {Pago(2, 1, 1, 1, 1, 50), Pago(1, 2, 2, 1, 1, 50), Pago(1, 1, 1, 2, 3, 50),
                             Pago(1, 1, 1, 1, 1, 51)})
        da->Insert(e);
    auto l = da->Listar(0, 0, 0, 0, 0, 50);
    ASSERT_EQ(l->Count(), 3);
    EXPECT_EQ(Log(*da).back(), EsperadoTicketPago().SelectSQL + " where  ticket_pago.idTicket = 50 " +
                                   EsperadoTicketPago().OrderBy);
    // Ordered by ID_REGISTRO, TIPO_PAGO and then the ticket key.
    EXPECT_EQ(l->Item(1)->idRestaurante, 2);
    EXPECT_EQ(l->Item(2)->idEmpresa, 2);
    EXPECT_EQ(l->Item(3)->ID_REGISTRO, 2);
}

TEST_P(TicketPagoDb, ALongerCdClienteIsForTheDatabaseToDecide) {
    entticket_pago e = Muestra();
    e.CD_CLIENTE = "CLIENTE LARGO";
    // The column holds three characters; the database refuses a longer text.
    Error err = Capturar([&] { da->Insert(e); });
    EXPECT_EQ(err.Number, 1406);
    EXPECT_EQ(Filas("ticket_pago"), 0);
}

TEST_P(TicketPagoDb, TwoPaymentsOfOneTypeDifferOnlyInIdRegistroWhichUpdateCanNotChange) {
    entticket_pago a = Pago(1, 5, 1, 1, 1, 60);
    entticket_pago b = Pago(2, 5, 1, 1, 1, 60);
    da->Insert(a);
    da->Insert(b);
    EXPECT_EQ(Filas("ticket_pago"), 2);
    entticket_pago c = a;
    c.ID_REGISTRO = 2;  // now addresses the second payment
    c.ImpBruto_P = 9.5;
    da->Update(c);
    const std::string update = Log(*da).back();
    EXPECT_EQ(update.substr(0, update.find(" where ")).find("ID_REGISTRO"), std::string::npos);
    EXPECT_EQ(da->Entidad(1, 5, 1, 1, 1, 60)->ImpBruto_P, a.ImpBruto_P);
    EXPECT_EQ(da->Entidad(2, 5, 1, 1, 1, 60)->ImpBruto_P, 9.5);
}
