// zaro-pos: the back office of a restaurant's sales data on the embedded
// database of ./zaro-data (the one `zaro demo` fills), or a server.
//
//   zaro-pos [--db DIR] [--connect "STRING"] [--screenshot FILE] [--tab N]
#include <QApplication>
#include <QFont>
#include <QLocale>
#include <QTabWidget>
#include <QPixmap>
#include <cstdio>
#include <cstring>
#include <string>

#include "window.h"

namespace {
const char kUso[] =
    "Usage: zaro-pos [--db DIR] [--connect \"STRING\"] [--screenshot FILE] [--tab N]\n"
    "  --db DIR           the embedded database in DIR (default ./zaro-data, which `zaro demo` fills)\n"
    "  --connect STRING   a server, by a connection string (Server=...;Port=...;User=...;Database=...)\n"
    "  --screenshot FILE  renders the main window offscreen into FILE (PNG) and exits\n"
    "  --tab N            opens on tab N (0 Artículos, 1 Tickets)\n";
}

int main(int argc, char** argv) {
    std::string db = "zaro-data", connect, screenshot, tab;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        auto valor = [&](std::string& out) {
            if (i + 1 >= argc) {
                std::fprintf(stderr, "zaro-pos: %s needs a value\n%s", a.c_str(), kUso);
                std::exit(1);
            }
            out = argv[++i];
        };
        if (a == "--db") valor(db);
        else if (a == "--connect") valor(connect);
        else if (a == "--screenshot") valor(screenshot);
        else if (a == "--tab") valor(tab);
        else if (a == "--help" || a == "-h") {
            std::fputs(kUso, stdout);
            return 0;
        } else {
            std::fprintf(stderr, "zaro-pos: unknown option %s\n%s", a.c_str(), kUso);
            return 1;
        }
    }
    if (!screenshot.empty()) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    QApplication::setFont(QFont("DejaVu Sans", 9));
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));  // the calendar's month and day names
    OVT_ZARO::SetScreen(std::make_shared<OVT_ZARO::QtKit::QtScreen>());
    auto cn = std::make_shared<OVT_ZARO::ADODB::Connection>();
    try {
        // The same database as zaro's: the embedded one in DIR, as `zaro demo` fills it.
        cn->Open(connect.empty() ? "DataDir=\"" + db + "\"" : connect);
    } catch (const OVT_ZARO::Error& e) {
        std::fprintf(stderr, "zaro-pos: %d %s: %s\n", e.Number, e.Source.c_str(), e.Description.c_str());
        return 2;
    }
    int estado = 0;
    {
        zaro_pos::PosWindow ventana(cn);
        ventana.resize(920, 560);
        if (!tab.empty()) ventana.Tabs()->setCurrentIndex(std::atoi(tab.c_str()));
        ventana.show();
        if (!screenshot.empty()) {
            QApplication::processEvents();
            if (!ventana.grab().save(QString::fromStdString(screenshot), "PNG")) {
                std::fprintf(stderr, "zaro-pos: could not write %s\n", screenshot.c_str());
                estado = 2;
            }
        } else {
            estado = QApplication::exec();
        }
    }
    OVT_ZARO::SetScreen(nullptr);
    return estado;
}
