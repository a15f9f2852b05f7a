// The adapter template: the class da<tabla> of every table.
//
// An adapter holds a Connection its caller opened (it never opens or closes
// one), turns entities into SQL text by the literal rules, runs it, and logs
// what it ran in LogSQL. Statements are text: strings between apostrophes
// with every apostrophe replaced by the acute accent "´"; numbers through
// NormalizarNumero; dates as 'yyyy-mm-dd' (the zero date is 1899-12-30).
// There are no parameters and no transactions.
//
// Failure styles, visible at each operation:
//   CamposOk          catches; raises again with the source "CamposOk".
//   Existe, Insert,   no handler: their own errors (1, "da<tabla>") and the
//   Delete            database's pass through unchanged.
//   Update            catches; raises again with the source "<tabla>Update".
//   rsListar_SQLQuery, Listar_SQLQuery, LeerEntidad (Entidad), ImportarTexto,
//   ExportarTexto, GrabarDatos: catch; raise again with the source "da<tabla>".
//   Listar, rsListar, ListarWhere, rsListarWhere: no handler.
//   CrearTabla        turns every failure into false.
// Ownership: the caller owns the Connection and every returned Recordset.
// Thread: one thread at a time.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ZARODatos/access/TypedList.h"
#include "ZARODatos/core/TableEntity.h"
#include "ZARODatos/platform/Collection.h"

namespace OVT_ZARO {

class AdapterBase : public IDataAdapter {
public:
    ConnectionRef Conexion;        // initially none
    std::string ConnectionString;  // stored, never read
    CollectionRef LogSQL;          // the statements that ran; made by the first one
    std::string OrderBy;           // added to a query that has no ordering of its own

    // The prepared select text, rebuilt with every write of Tabla.
    const std::string& SelectSQL() const { return selectSQL_; }
    // The table name of every statement. Writing it rebuilds SelectSQL and
    // OrderBy (dropping a custom OrderBy); entities keep their own Tabla.
    const std::string& Tabla() const { return tabla_; }
    void Tabla(const std::string& valor);

    // All reads meet here: adds the ordering, opens a static, read-only
    // Recordset on the statement and logs it. No connection: error 1
    // "No se ha establecido una conexin".
    std::shared_ptr<ADODB::Recordset> rsListar_SQLQuery(ByRef<std::string> sqlQueryText, ConexionArg adConexion = {});
    // SelectSQL with a condition; " where " goes in front of strWhere (written
    // back) unless it is blank or holds the word where anywhere. Logs the
    // query and then SelectSQL itself.
    std::shared_ptr<ADODB::Recordset> rsListarWhere(ByRef<std::string> strWhere, ConexionArg adConexion = {});

    // Creates the table on Conexion: replaces an existing table only when it
    // is empty. True when it created the table; false on every failure.
    bool CrearTabla();

    std::string TypeName() const override { return std::string(def_.ClaseAdapter); }

protected:
    explicit AdapterBase(const TablaDef& def);

    bool CamposOkDe(IEntidad& e, std::string& strMensajes);
    bool ExisteDe(IEntidad& e, ConexionArg adConexion);
    void InsertDe(IEntidad& e, ConexionArg adConexion);
    void UpdateDe(IEntidad& e, ConexionArg adConexion);
    // tablaArgumento: a key argument named Tabla that hides the adapter's table.
    void DeleteDe(const std::vector<Variant>& claves, ConexionArg adConexion, const std::string* tablaArgumento);
    std::string ConsultaEntidad(const std::vector<Variant>& claves) const;
    std::string ConsultaListar(const std::vector<Variant>& claves, const std::string* tablaArgumento) const;
    std::string ConsultaWhere(std::string& strWhere) const;
    void AnexarFilaTexto(std::string& texto, IEntidad& e, const std::string& separador) const;
    std::vector<std::string_view> PartirTexto(std::string_view texto, std::string_view separador) const;
    // Calls f with each piece of texto split at separador (the whole text
    // when the separator is empty).
    template <class F>
    static void RecorrerCeldas(std::string_view texto, std::string_view separador, F&& f) {
        if (separador.empty()) return f(texto);
        size_t inicio = 0;
        for (size_t fin; (fin = texto.find(separador, inicio)) != std::string_view::npos;
             inicio = fin + separador.size())
            f(texto.substr(inicio, fin - inicio));
        f(texto.substr(inicio));
    }
    void Registrar(const std::string& sql);
    void Registrar(std::string&& sql);
    // The connection of an operation: adConexion, else Conexion (written back
    // to adConexion); neither raises 1 with the given description.
    ConnectionRef& ElegirConexion(ConexionArg& adConexion, const char* descripcion);

    const TablaDef& def_;

private:
    void ConstruirSelect();
    std::string tabla_;
    std::string selectSQL_;
};

template <class E, class L>
class TableAdapter : public AdapterBase {
public:
    using EntityRef = std::shared_ptr<E>;
    using ListRef = std::shared_ptr<L>;

    TableAdapter() : AdapterBase(E::Def()) {}

    // Checks the required fields in field order; each failing one adds a
    // tab, "El campo [<name>] es obligatorio." and CR LF; on failure CR LF CR LF
    // goes in front.
    bool CamposOk(E& Entidad, ByRef<std::string> strMensajes) { return CamposOkDe(Entidad, *strMensajes); }
    // True when a row with the entity's key exists (select count(*)).
    bool Existe(E& Entidad, ConexionArg adConexion = {}) { return ExisteDe(Entidad, adConexion); }
    // Inserts every field; an existing key raises 1 "El registro ya existe."
    // with the key lines. The existence check always runs on Conexion.
    void Insert(E& Entidad, ConexionArg adConexion = {}) { InsertDe(Entidad, adConexion); }
    // Updates the fields of the set list of the row with the entity's key.
    void Update(E& Entidad, ConexionArg adConexion = {}) { UpdateDe(Entidad, adConexion); }

    ListRef ListarWhere(ByRef<std::string> strWhere, ConexionArg adConexion = {}) {
        std::string consulta = ConsultaWhere(*strWhere);
        return Listar_SQLQuery(consulta, adConexion);
    }

    // Every row of the query as an entity, in the query's order; an empty
    // list (never no object) when there is none.
    ListRef Listar_SQLQuery(ByRef<std::string> sqlQueryText, ConexionArg adConexion = {}) {
        try {
            auto rs = rsListar_SQLQuery(sqlQueryText, adConexion);
            auto lista = std::make_shared<L>();
            if (rs->RecordCount() > 0) lista->Reservar(static_cast<size_t>(rs->RecordCount()));
            ADODB::Fields& campos = rs->Fields();
            while (!rs->EOF_()) {
                auto e = std::make_shared<E>();
                e->CargarEntidad(campos);
                lista->Anexar(std::move(e));
                rs->MoveNext();
            }
            rs->Close();
            return lista;
        } catch (...) {
            Reraise(def_.FuenteAdapter);
        }
    }

    // One entity per line (CR LF) of Texto, its cells (split at the separator)
    // stored by SetValorIndice in index order. Empty lines give entities with
    // all defaults; an empty text gives an empty list.
    ListRef ImportarTexto(ByRef<std::string> Texto, ByRef<std::string> SeparadorColumnas) {
        try {
            auto lista = std::make_shared<L>();
            if (Texto->empty()) return lista;
            for (std::string_view linea : PartirTexto(*Texto, "\r\n")) {
                auto e = std::make_shared<E>();
                int32_t indice = 1;
                // Each cell goes to SetValorIndice of its index, as text.
                RecorrerCeldas(linea, *SeparadorColumnas, [&](std::string_view celda) {
                    int16_t i = CInt(Variant(indice++));
                    detail::EntidadOps::SetValorIndiceTexto(*e, def_, i, celda);
                });
                lista->AddEntidad(e);
            }
            return lista;
        } catch (...) {
            Reraise(def_.FuenteAdapter);
        }
    }

    // Fields 1 to NumCampos of each entity, each followed by the separator,
    // each row by CR LF, and one more CR LF at the end. A field named "bloq"
    // is written as 0.
    std::string ExportarTexto(L& Rows, ByRef<std::string> SeparadorColumnas) {
        try {
            std::string texto;
            bool primera = true;
            for (const EntityRef& e : Rows) {
                AnexarFilaTexto(texto, detail::Elemento(e), *SeparadorColumnas);
                // One growing string: room for all rows at the first row's length.
                if (primera) texto.reserve(texto.size() * static_cast<size_t>(Rows.Count()) * 5 / 4 + 2);
                primera = false;
            }
            texto += "\r\n";
            return texto;
        } catch (...) {
            Reraise(def_.FuenteAdapter);
        }
    }

    // Saves each entity that passes CamposOk (others are skipped silently):
    // Update when its row exists, Insert otherwise, on Conexion. Stops at the
    // first failure; rows saved before it stay saved.
    void GrabarDatos(L& Rows) {
        try {
            for (const EntityRef& fila : Rows) {
                E& e = detail::Elemento(fila);  // an element that is no object stops the saving with 91
                std::string mensajes;
                if (!CamposOk(e, mensajes)) continue;
                if (Existe(e)) Update(e);
                else Insert(e);
            }
        } catch (...) {
            Reraise(def_.FuenteAdapter);
        }
    }

protected:
    void BorrarPorClave(const std::vector<Variant>& claves, ConexionArg adConexion,
                        const std::string* tablaArgumento = nullptr) {
        DeleteDe(claves, adConexion, tablaArgumento);
    }

    EntityRef EntidadPorClave(const std::vector<Variant>& claves, ConexionArg adConexion) {
        std::string consulta = ConsultaEntidad(claves);
        return LeerEntidad(consulta, adConexion);
    }

    ListRef ListarPorClave(const std::vector<Variant>& claves, ConexionArg adConexion,
                           const std::string* tablaArgumento = nullptr) {
        std::string consulta = ConsultaListar(claves, tablaArgumento);
        return Listar_SQLQuery(consulta, adConexion);
    }

    std::shared_ptr<ADODB::Recordset> rsListarPorClave(const std::vector<Variant>& claves, ConexionArg adConexion,
                                                       const std::string* tablaArgumento = nullptr) {
        std::string consulta = ConsultaListar(claves, tablaArgumento);
        return rsListar_SQLQuery(consulta, adConexion);
    }

private:
    // The first row of the query as an entity, or no object.
    EntityRef LeerEntidad(std::string& consulta, ConexionArg adConexion) {
        try {
            auto rs = rsListar_SQLQuery(consulta, adConexion);
            EntityRef e;
            if (!(rs->BOF() || rs->EOF_())) {
                e = std::make_shared<E>();
                e->CargarEntidad(rs->Fields());
            }
            rs->Close();
            return e;
        } catch (...) {
            Reraise(def_.FuenteAdapter);
        }
    }
};

}  // namespace OVT_ZARO
