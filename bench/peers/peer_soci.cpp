// The SOCI contender of the peer benchmark (SOCI 4 with its MySQL backend):
// rows through rowset<row>, a single row into a row, counts into an integer.
//   bench_peer_soci --socket S --database D --dir DIR   (then lines "<work> <chunk>" on input)
#include <soci/mysql/soci-mysql.h>
#include <soci/soci.h>

#include <charconv>
#include <ctime>
#include <string>
#include <vector>

#include "peers.h"

using peers::Fila;

namespace {

int32_t Entero(const soci::row& r, std::size_t i) {
    if (r.get_indicator(i) == soci::i_null) return 0;
    switch (r.get_properties(i).get_data_type()) {
        case soci::dt_integer: return r.get<int>(i);
        case soci::dt_long_long: return static_cast<int32_t>(r.get<long long>(i));
        case soci::dt_unsigned_long_long: return static_cast<int32_t>(r.get<unsigned long long>(i));
        case soci::dt_double: return static_cast<int32_t>(r.get<double>(i));
        default: {
            const std::string s = r.get<std::string>(i);
            int32_t v = 0;
            std::from_chars(s.data(), s.data() + s.size(), v);
            return v;
        }
    }
}

double Doble(const soci::row& r, std::size_t i) {
    if (r.get_indicator(i) == soci::i_null) return 0;
    if (r.get_properties(i).get_data_type() == soci::dt_double) return r.get<double>(i);
    const std::string s = r.get<std::string>(i);
    double v = 0;
    std::from_chars(s.data(), s.data() + s.size(), v);
    return v;
}

void Texto(const soci::row& r, std::size_t i, std::string& out) {
    if (r.get_indicator(i) == soci::i_null) out.clear();
    else out = r.get<std::string>(i);
}

void Llenar(const soci::row& r, Fila& f) {
    f.COD_TRANSACC = Entero(r, 0);
    f.y = f.mo = f.d = 0;
    if (r.get_indicator(1) != soci::i_null) {
        const std::tm t = r.get<std::tm>(1);
        f.y = t.tm_year + 1900;
        f.mo = t.tm_mon + 1;
        f.d = t.tm_mday;
    }
    Texto(r, 2, f.HORA_REAL);
    f.CD_OP = Entero(r, 3);
    f.TIPO_OPERACION = Entero(r, 4);
    Texto(r, 5, f.CD_ARTICULO);
    Texto(r, 6, f.IDARTICOLGS1);
    f.TIPO_FAMILIA = Entero(r, 7);
    f.TIPO_SUBFAMILIA = Entero(r, 8);
    f.PRECIOMAX = Doble(r, 9);
    Texto(r, 10, f.DESC_ARTICULO);
    Texto(r, 11, f.DESC_CORTA);
}

}  // namespace

int main(int argc, char** argv) {
    const peers::Args a = peers::LeerArgs(argc, argv, 1);
    try {
        soci::session sql(soci::mysql,
                          "unix_socket=" + a.socket + " user=root db=" + a.database + " charset=utf8mb4");
        const std::string readSql = peers::Leer(a.dir + "/read.sql")[0];
        const auto lookupSql = peers::Leer(a.dir + "/lookup.sql");
        const auto keys = peers::Claves(a);
        const auto insertSql = peers::Leer(a.dir + "/insert.sql");
        peers::Servir([&](const std::string& work, int chunk) -> std::string {
            if (work == "read") {
                std::vector<Fila> filas;
                soci::rowset<soci::row> rs = (sql.prepare << readSql);
                for (const soci::row& r : rs) {
                    Fila f;
                    Llenar(r, f);
                    filas.push_back(std::move(f));
                }
                peers::Cuenta c;
                for (const Fila& f : filas) c.Anadir(f);
                return c.Texto();
            }
            if (work == "lookup") {
                peers::Cuenta c;
                Fila f;
                const auto [from, to] = peers::Trozo(chunk, lookupSql.size());
                for (std::size_t i = from; i < to; ++i) {
                    soci::row r;
                    sql << lookupSql[i], soci::into(r);
                    if (!sql.got_data()) peers::Fallo("soci lookup: no row");
                    Llenar(r, f);
                    if (f.CD_ARTICULO != keys[i]) peers::Fallo("soci lookup: wrong row for " + keys[i]);
                    c.Anadir(f);
                }
                return c.Texto();
            }
            if (work == "insert" || work == "plain") {
                const bool check = work == "insert";
                const auto [from, to] = peers::Trozo(chunk, insertSql.size() / 2);
                for (std::size_t i = 2 * from; i < 2 * to; i += 2) {
                    if (check) {
                        long long n = -1;
                        sql << insertSql[i], soci::into(n);
                        if (n != 0) peers::Fallo("soci insert: the row exists");
                    }
                    soci::statement st = (sql.prepare << insertSql[i + 1]);
                    st.execute(true);
                    if (st.get_affected_rows() != 1) peers::Fallo("soci insert: no row inserted");
                }
                return "ok";
            }
            peers::Fallo("unknown work " + work);
        });
    } catch (const std::exception& e) {
        peers::Fallo(std::string("soci: ") + e.what());
    }
    return 0;
}
