// The Qt SQL contender of the peer benchmark (Qt 6, driver QMYSQL): a
// forward-only QSqlQuery per statement, values through QVariant.
//   bench_peer_qt --socket S --database D --dir DIR   (then lines "<work> <chunk>" on input)
#include <QCoreApplication>
#include <QDate>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <string>
#include <vector>

#include "peers.h"

using peers::Fila;

namespace {

std::string Texto(const QVariant& v) { return v.isNull() ? std::string() : v.toString().toStdString(); }

void Llenar(const QSqlQuery& q, Fila& f) {
    f.COD_TRANSACC = q.value(0).toInt();
    const QDate d = q.value(1).toDate();
    f.y = d.isValid() ? d.year() : 0;
    f.mo = d.isValid() ? d.month() : 0;
    f.d = d.isValid() ? d.day() : 0;
    f.HORA_REAL = Texto(q.value(2));
    f.CD_OP = q.value(3).toInt();
    f.TIPO_OPERACION = q.value(4).toInt();
    f.CD_ARTICULO = Texto(q.value(5));
    f.IDARTICOLGS1 = Texto(q.value(6));
    f.TIPO_FAMILIA = q.value(7).toInt();
    f.TIPO_SUBFAMILIA = q.value(8).toInt();
    f.PRECIOMAX = q.value(9).toDouble();
    f.DESC_ARTICULO = Texto(q.value(10));
    f.DESC_CORTA = Texto(q.value(11));
}

void Exec(QSqlQuery& q, const std::string& text) {
    if (!q.exec(QString::fromStdString(text))) peers::Fallo("qt: " + q.lastError().text().toStdString());
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const peers::Args a = peers::LeerArgs(argc, argv, 1);
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QMYSQL");
        db.setConnectOptions(QString::fromStdString("UNIX_SOCKET=" + a.socket));
        db.setUserName("root");
        db.setDatabaseName(QString::fromStdString(a.database));
        if (!db.open()) peers::Fallo("qt open: " + db.lastError().text().toStdString());
        QSqlQuery q(db);
        q.setForwardOnly(true);
        const std::string readSql = peers::Leer(a.dir + "/read.sql")[0];
        const auto lookupSql = peers::Leer(a.dir + "/lookup.sql");
        const auto keys = peers::Claves(a);
        const auto insertSql = peers::Leer(a.dir + "/insert.sql");
        peers::Servir([&](const std::string& work, int chunk) -> std::string {
            if (work == "read") {
                std::vector<Fila> filas;
                Exec(q, readSql);
                while (q.next()) {
                    Fila f;
                    Llenar(q, f);
                    filas.push_back(std::move(f));
                }
                q.finish();
                peers::Cuenta c;
                for (const Fila& f : filas) c.Anadir(f);
                return c.Texto();
            }
            if (work == "lookup") {
                peers::Cuenta c;
                Fila f;
                const auto [from, to] = peers::Trozo(chunk, lookupSql.size());
                for (std::size_t i = from; i < to; ++i) {
                    Exec(q, lookupSql[i]);
                    if (!q.next()) peers::Fallo("qt lookup: no row");
                    Llenar(q, f);
                    q.finish();
                    if (f.CD_ARTICULO != keys[i]) peers::Fallo("qt lookup: wrong row for " + keys[i]);
                    c.Anadir(f);
                }
                return c.Texto();
            }
            if (work == "insert" || work == "plain") {
                const bool check = work == "insert";
                const auto [from, to] = peers::Trozo(chunk, insertSql.size() / 2);
                for (std::size_t i = 2 * from; i < 2 * to; i += 2) {
                    if (check) {
                        Exec(q, insertSql[i]);
                        if (!q.next() || q.value(0).toLongLong() != 0) peers::Fallo("qt insert: the row exists");
                        q.finish();
                    }
                    Exec(q, insertSql[i + 1]);
                    if (q.numRowsAffected() != 1) peers::Fallo("qt insert: no row inserted");
                }
                return "ok";
            }
            peers::Fallo("unknown work " + work);
        });
        q = QSqlQuery();
        db.close();
    }
    QSqlDatabase::removeDatabase(QSqlDatabase::defaultConnection);
    return 0;
}
