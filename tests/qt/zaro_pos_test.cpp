// zaro-pos on the Qt kit, offscreen: the demo day recorded by `zaro demo` on
// the test server, the window driven as a user drives it, its edits saved
// and read back, its screenshots in four states compared with the golden
// images kept in tests/qt/golden (ZARO_UPDATE_GOLDEN=1 writes them anew),
// and the program's own --screenshot.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "ZARODatos.h"
#include "ZARODatosQt/QtControls.h"
#include "support/mariadb_server.h"
#include "support/roads.h"
#include "zaro-pos/window.h"

using namespace OVT_ZARO;
namespace fs = std::filesystem;

namespace {

const zaro_test::Road& Servidor() {
    static const zaro_test::Road road = zaro_test::AllRoads()[1];
    return road;
}

int Ejecutar(const std::string& orden) { return std::system((orden + " > /dev/null 2>&1").c_str()); }

// The demo day on the test server, recorded once by the host tool.
void DiaDeDemo() {
    static bool hecho = false;
    if (hecho) return;
    auto cn = zaro_test::OpenRoad(Servidor());
    zaro_test::DropAllTables(*cn);
    const std::string salida = zaro_test::ProgramTempFolder() + "/demo-out";
    ASSERT_EQ(Ejecutar(std::string(ZARO_BINARY_DIR) + "/zaro demo --connect \"" + Servidor().connectionString +
                       "\" --out " + salida),
              0);
    hecho = true;
}

// The share of pixels of a screenshot that differ from its golden image by
// more than a little in any channel; 1 for another size or a missing golden.
double Diferencia(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return 1.0;
    const QImage x = a.convertToFormat(QImage::Format_RGB32), y = b.convertToFormat(QImage::Format_RGB32);
    long distintos = 0;
    for (int j = 0; j < x.height(); ++j) {
        const auto* p = reinterpret_cast<const QRgb*>(x.constScanLine(j));
        const auto* q = reinterpret_cast<const QRgb*>(y.constScanLine(j));
        for (int i = 0; i < x.width(); ++i) {
            const int d = std::max({std::abs(qRed(p[i]) - qRed(q[i])), std::abs(qGreen(p[i]) - qGreen(q[i])),
                                    std::abs(qBlue(p[i]) - qBlue(q[i]))});
            if (d > 48) ++distintos;
        }
    }
    return double(distintos) / (double(x.width()) * x.height());
}

// Saves the screenshot beside the build and compares it with its golden image.
void ComoLaDorada(QWidget& w, const std::string& nombre) {
    QApplication::processEvents();
    const QImage img = w.grab().toImage();
    const fs::path dir = fs::path(ZARO_BINARY_DIR) / "qt-screenshots";
    fs::create_directories(dir);
    img.save(QString::fromStdString((dir / (nombre + ".png")).string()), "PNG");
    const fs::path dorada = fs::path(ZARO_SOURCE_DIR) / "tests/qt/golden" / (nombre + ".png");
    if (const char* u = std::getenv("ZARO_UPDATE_GOLDEN"); u && std::string(u) == "1") {
        img.save(QString::fromStdString(dorada.string()), "PNG");
        return;
    }
    QImage esperada;
    ASSERT_TRUE(esperada.load(QString::fromStdString(dorada.string()))) << "no golden image " << dorada;
    // Within a small tolerance: a caret that blinks, a pixel of anti-aliasing.
    EXPECT_LT(Diferencia(img, esperada), 0.005) << nombre << ": see " << (dir / (nombre + ".png"));
}

struct ZaroPos : ::testing::Test {
    std::shared_ptr<QtKit::QtScreen> pantalla = std::make_shared<QtKit::QtScreen>();
    ConnectionRef cn;
    std::unique_ptr<zaro_pos::PosWindow> ventana;
    std::unique_ptr<QtKit::QtUser> userArticulos, userTickets;

    void SetUp() override {
        SetScreen(pantalla);
        DiaDeDemo();
        cn = zaro_test::OpenRoad(Servidor());
        cn->Execute("DROP TABLE IF EXISTS zaro_pos_codigo");
        ventana = std::make_unique<zaro_pos::PosWindow>(cn);
        ventana->resize(920, 560);
        ventana->show();
        ventana->activateWindow();
        QApplication::setActiveWindow(ventana.get());
        QApplication::processEvents();
        userArticulos = std::make_unique<QtKit::QtUser>(ventana->ArticlesTab().form);
        userTickets = std::make_unique<QtKit::QtUser>(ventana->TicketsTab().form);
    }
    void TearDown() override {
        ventana.reset();
        SetScreen(nullptr);
    }
    void Pestana(int i) {
        ventana->Tabs()->setCurrentIndex(i);
        QApplication::processEvents();
    }
};

TEST_F(ZaroPos, ShowsTheArticleMasterAndTheDaysTicketsInFourStates) {
    auto& a = ventana->ArticlesTab();
    EXPECT_EQ(a.grid->GetRows(), 20);  // 19 articles and the heading
    EXPECT_EQ(a.grid->GetTextMatrix(1, 1), "BEB001");
    EXPECT_EQ(a.grid->GetColWidth(1), 0);  // the code, kept as a hidden key
    EXPECT_EQ(a.grid->GetTextMatrix(1, 6), "1,60");
    EXPECT_EQ(ventana->Status(), "19 artículos · 45 tickets del 14/03/2026");
    ComoLaDorada(*ventana, "zaro-pos-loaded");

    // Editing a number: the overlay over the price cell, the new value typed.
    userArticulos->DoubleClickCell(a.grid, 2, 6);
    userArticulos->Type("2,35");
    QApplication::processEvents();
    EXPECT_TRUE(a.text->GetVisible());
    EXPECT_EQ(a.text->GetText(), "2,35");
    ComoLaDorada(*ventana, "zaro-pos-editing");
    userArticulos->Escape();

    // The lookup of a ticket line's article, open and narrowed.
    Pestana(1);
    auto& t = ventana->TicketsTab();
    ASSERT_GT(t.tickets->GetListCount(), 40);
    userTickets->ClickItem(t.tickets, 1);
    ASSERT_GE(t.grid->GetRows(), 3);
    userTickets->DoubleClickCell(t.grid, 1, 2);
    userTickets->Type("boc");
    QApplication::processEvents();
    EXPECT_TRUE(t.list->GetVisible());
    EXPECT_EQ(t.list->GetListCount(), 2);  // the two sandwiches
    ComoLaDorada(*ventana, "zaro-pos-lookup");
    userTickets->Escape();

    // The calendar under a date cell.
    userTickets->DoubleClickCell(t.grid, 2, 5);
    QApplication::processEvents();
    EXPECT_TRUE(t.calendar->GetVisible());
    EXPECT_EQ(t.calendar->GetValue(), Date::FromParts(2026, 3, 14));
    ComoLaDorada(*ventana, "zaro-pos-calendar");
}

TEST_F(ZaroPos, APriceEditedInPlaceIsSavedThroughTheAdapter) {
    auto& a = ventana->ArticlesTab();
    userArticulos->DoubleClickCell(a.grid, 2, 6);
    userArticulos->Type("2,35");
    userArticulos->Enter();
    EXPECT_EQ(ventana->PendingArticles(), 1u);
    EXPECT_EQ(a.grid->GetTextMatrix(2, 0), "*");
    EXPECT_EQ(a.pending->text().toStdString(), "1 sin guardar");
    EXPECT_TRUE(ventana->SaveArticles());
    EXPECT_EQ(ventana->PendingArticles(), 0u);
    EXPECT_EQ(a.grid->GetTextMatrix(2, 0), "");
    daarticulo da;
    da.Conexion = cn;
    EXPECT_DOUBLE_EQ(da.Entidad("BEB002")->PRECIOMAX, 2.35);
    EXPECT_EQ(ventana->Status(), "1 artículos guardados");
    // Back as it was, for the other tests.
    a.rows->Item(2)->PRECIOMAX = 1.9;
    da.Update(*a.rows->Item(2));
}

TEST_F(ZaroPos, ARefusedSaveShowsTheErrorAndKeepsTheRowEditedAndMarked) {
    auto& a = ventana->ArticlesTab();
    userArticulos->DoubleClickCell(a.grid, 3, 3);  // DESC_CORTA: varchar(25)
    userArticulos->Type("Una descripción demasiado larga para su columna");
    userArticulos->Enter();
    EXPECT_FALSE(ventana->SaveArticles());
    EXPECT_EQ(ventana->Status().rfind("Error 1406 (", 0), 0u) << ventana->Status();
    EXPECT_NE(ventana->Status().find("DESC_CORTA"), std::string::npos) << ventana->Status();
    EXPECT_EQ(ventana->PendingArticles(), 1u);
    EXPECT_EQ(a.grid->GetTextMatrix(3, 0), "*");
    EXPECT_EQ(a.rows->Item(3)->DESC_CORTA, "Una descripción demasiado larga para su columna");
}

TEST_F(ZaroPos, AnArticlePickedInALineLookupKeepsItsCodeAndIsSaved) {
    Pestana(1);
    auto& t = ventana->TicketsTab();
    userTickets->ClickItem(t.tickets, 0);
    const auto linea = t.lines->Item(1);
    userTickets->DoubleClickCell(t.grid, 1, 2);
    userTickets->Type("jam");
    userTickets->Down();
    userTickets->Enter();
    EXPECT_EQ(linea->DESC_CORTA, "Bocadillo jamón");
    EXPECT_EQ(linea->CD_ARTICULO, "COM001");  // the number the list carried, turned back into the code
    EXPECT_EQ(t.grid->GetTextMatrix(1, 1), "COM001");
    EXPECT_EQ(ventana->PendingLines(), 1u);
    EXPECT_TRUE(ventana->SaveLines());
    daticket_articulo da;
    da.Conexion = cn;
    auto leida = da.Entidad(linea->idEmpresa, linea->idRestaurante, linea->idTPV, linea->idTicket, linea->idLinea);
    ASSERT_NE(leida, nullptr);
    EXPECT_EQ(leida->CD_ARTICULO, "COM001");
    EXPECT_EQ(leida->DESC_CORTA, "Bocadillo jamón");
}

TEST(ZaroPosProgram, WritesAScreenshotOfItsMainWindowAndExits) {
    const std::string dir = zaro_test::ProgramTempFolder() + "/pos-embedded";
    ASSERT_EQ(Ejecutar(std::string(ZARO_BINARY_DIR) + "/zaro demo --db " + dir + "/data --out " + dir + "/out"), 0);
    const std::string png = dir + "/pos.png";
    ASSERT_EQ(Ejecutar(std::string(ZARO_BINARY_DIR) + "/zaro-pos --db " + dir + "/data --screenshot " + png), 0);
    QImage img;
    ASSERT_TRUE(img.load(QString::fromStdString(png)));
    EXPECT_EQ(img.width(), 920);
    EXPECT_EQ(img.height(), 560);
    EXPECT_EQ(Ejecutar(std::string(ZARO_BINARY_DIR) + "/zaro-pos --no-such-option"), 1 << 8);
}

}  // namespace
