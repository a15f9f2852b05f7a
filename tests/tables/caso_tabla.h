// One table as the shared table suite sees it: what the table must answer
// (Esperado, kept as data beside the table in expected_<tabla>.h) and a
// uniform handle on its entity, list and adapter (CasoTabla), so that one
// test body runs over all ten tables and each table adds tests only for its
// deviations.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ZARODatos/platform/XML.h"
#include "ZARODatos/tables/Tables.h"

// The expectations of a table name only what that table has.
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"

namespace zaro_tablas {

using namespace OVT_ZARO;

struct Esperado {
    std::string Tabla, ClaseEntidad, ClaseLista, ClaseAdapter;
    int32_t NumCampos = 0;
    std::vector<std::string> Nombres;     // GetNombreCampo(1 ..) over the whole index table
    std::string CampoVacio;               // the field GetValor("") answers; empty: the argument itself
    std::vector<std::string> Requeridos;  // CamposOk, in its order
    std::vector<std::string> Clave;       // the adapter's key, in its order
    // da<tabla>, <tabla>Update, <tabla>IEntidad_SetValor, <tabla>IEntidad_SetValorIndice, <tabla>Entidad,
    // " ent<tabla>"
    std::array<std::string, 6> Fuentes;
    std::string FuenteToXML;
    // The statements for the sample entity.
    std::string SelectSQL, OrderBy, Insert, Update, Delete, Existe, Entidad, CrearTabla;
    bool CrearTablaCrea = true;              // false: the database refuses the CREATE TABLE
    std::vector<std::string> TablaDelSitio;  // what a site runs to have a usable table
    int32_t ErrorUpdate = 0;                 // the database's error for Update of the sample; 0: accepted
    std::vector<std::string> FueraDeAdd;     // fields the list's Add takes no argument for
    std::vector<std::string> NoLeidos;       // written by Insert and Update, never read
};

// Copies one field's member from one entity to another of the same table.
inline void CopiarCampo(const CampoDef& c, IEntidad& de, IEntidad& a) {
    switch (c.Tipo) {
        case TipoCampo::Entero: a.*c.Miembro.Entero = de.*c.Miembro.Entero; break;
        case TipoCampo::Doble: a.*c.Miembro.Doble = de.*c.Miembro.Doble; break;
        case TipoCampo::Fecha: a.*c.Miembro.Fecha = de.*c.Miembro.Fecha; break;
        case TipoCampo::Texto: a.*c.Miembro.Texto = de.*c.Miembro.Texto; break;
    }
}

// The entity of a table seen through the description the template works on.
class CasoTabla {
public:
    explicit CasoTabla(const Esperado& e) : esp(e) {}
    virtual ~CasoTabla() = default;

    const Esperado& esp;

    virtual const TablaDef& Def() const = 0;
    virtual std::shared_ptr<AdapterBase> NuevoAdapter() const = 0;
    virtual std::shared_ptr<IEntidad> NuevaEntidad() const = 0;
    virtual std::shared_ptr<IEntidad> Muestra() const = 0;
    // The sample's key with every other field at its default.
    virtual std::shared_ptr<IEntidad> SoloClave() const = 0;
    virtual std::shared_ptr<IListaEntidades> NuevaLista() const = 0;
    virtual int32_t Count(IListaEntidades& l) const = 0;
    virtual std::shared_ptr<IEntidad> Item(IListaEntidades& l, int32_t i) const = 0;

    virtual std::shared_ptr<IEntidad> AddCompleto(IListaEntidades& l, IEntidad& m) const = 0;
    virtual std::shared_ptr<IEntidad> AddRequeridos(IListaEntidades& l, IEntidad& m) const = 0;
    virtual std::shared_ptr<IEntidad> ItemClave(IListaEntidades& l, IEntidad& m) const = 0;
    virtual std::shared_ptr<IEntidad> AddEntidad(IListaEntidades& l, std::shared_ptr<IEntidad> e) const = 0;

    virtual bool CamposOk(AdapterBase& da, IEntidad& e, std::string& mensajes) const = 0;
    virtual bool Existe(AdapterBase& da, IEntidad& e, ConexionArg c = {}) const = 0;
    virtual void Insert(AdapterBase& da, IEntidad& e, ConexionArg c = {}) const = 0;
    virtual void Update(AdapterBase& da, IEntidad& e, ConexionArg c = {}) const = 0;
    virtual void Delete(AdapterBase& da, IEntidad& clave, ConexionArg c = {}) const = 0;
    virtual std::shared_ptr<IEntidad> Entidad(AdapterBase& da, IEntidad& clave, ConexionArg c = {}) const = 0;
    virtual std::shared_ptr<IListaEntidades> Listar(AdapterBase& da, IEntidad& clave, ConexionArg c = {}) const = 0;
    virtual std::shared_ptr<ADODB::Recordset> rsListar(AdapterBase& da, IEntidad& clave,
                                                       ConexionArg c = {}) const = 0;
    virtual std::shared_ptr<IListaEntidades> ListarTodo(AdapterBase& da) const = 0;
    virtual std::shared_ptr<IListaEntidades> Listar_SQLQuery(AdapterBase& da, const std::string& sql) const = 0;
    virtual std::string ExportarTexto(AdapterBase& da, IListaEntidades& l, const std::string& sep) const = 0;
    virtual std::shared_ptr<IListaEntidades> ImportarTexto(AdapterBase& da, const std::string& texto,
                                                           const std::string& sep) const = 0;
    virtual void GrabarDatos(AdapterBase& da, IListaEntidades& l) const = 0;
    virtual std::shared_ptr<XML::IXMLDOMElement> ToXML(IEntidad& e, const std::string& nombre) const = 0;
};

template <class DA, class E, class L>
class Caso : public CasoTabla {
public:
    using Ent = std::shared_ptr<E>;
    using Lst = std::shared_ptr<L>;
    std::function<void(E&)> muestra;
    std::function<Ent(L&, const E&)> addCompleto, addRequeridos, itemClave;
    std::function<void(DA&, const E&, ConexionArg)> borrar;
    std::function<Ent(DA&, const E&, ConexionArg)> entidad;
    std::function<Lst(DA&, const E&, ConexionArg)> listar;
    std::function<std::shared_ptr<ADODB::Recordset>(DA&, const E&, ConexionArg)> rslistar;

    using CasoTabla::CasoTabla;

    static E& Ent_(IEntidad& e) { return dynamic_cast<E&>(e); }
    static L& Lst_(IListaEntidades& l) { return dynamic_cast<L&>(l); }
    static DA& Da(AdapterBase& da) { return dynamic_cast<DA&>(da); }

    const TablaDef& Def() const override { return E::Def(); }
    std::shared_ptr<AdapterBase> NuevoAdapter() const override { return std::make_shared<DA>(); }
    std::shared_ptr<IEntidad> NuevaEntidad() const override { return std::make_shared<E>(); }
    std::shared_ptr<IEntidad> Muestra() const override {
        auto e = std::make_shared<E>();
        muestra(*e);
        return e;
    }
    std::shared_ptr<IEntidad> SoloClave() const override {
        E m;
        muestra(m);
        auto e = std::make_shared<E>();
        for (int16_t pos : E::Def().PorClave) CopiarCampo(E::Def().Campos[static_cast<size_t>(pos)], m, *e);
        return e;
    }
    std::shared_ptr<IListaEntidades> NuevaLista() const override { return std::make_shared<L>(); }
    int32_t Count(IListaEntidades& l) const override { return Lst_(l).Count(); }
    std::shared_ptr<IEntidad> Item(IListaEntidades& l, int32_t i) const override { return Lst_(l).Item(i); }

    std::shared_ptr<IEntidad> AddCompleto(IListaEntidades& l, IEntidad& m) const override {
        return addCompleto(Lst_(l), Ent_(m));
    }
    std::shared_ptr<IEntidad> AddRequeridos(IListaEntidades& l, IEntidad& m) const override {
        return addRequeridos(Lst_(l), Ent_(m));
    }
    std::shared_ptr<IEntidad> ItemClave(IListaEntidades& l, IEntidad& m) const override {
        return itemClave(Lst_(l), Ent_(m));
    }
    std::shared_ptr<IEntidad> AddEntidad(IListaEntidades& l, std::shared_ptr<IEntidad> e) const override {
        Ent t = std::dynamic_pointer_cast<E>(e);
        return Lst_(l).AddEntidad(t);
    }

    bool CamposOk(AdapterBase& da, IEntidad& e, std::string& mensajes) const override {
        return Da(da).CamposOk(Ent_(e), mensajes);
    }
    bool Existe(AdapterBase& da, IEntidad& e, ConexionArg c) const override { return Da(da).Existe(Ent_(e), c); }
    void Insert(AdapterBase& da, IEntidad& e, ConexionArg c) const override { Da(da).Insert(Ent_(e), c); }
    void Update(AdapterBase& da, IEntidad& e, ConexionArg c) const override { Da(da).Update(Ent_(e), c); }
    void Delete(AdapterBase& da, IEntidad& clave, ConexionArg c) const override { borrar(Da(da), Ent_(clave), c); }
    std::shared_ptr<IEntidad> Entidad(AdapterBase& da, IEntidad& clave, ConexionArg c) const override {
        return entidad(Da(da), Ent_(clave), c);
    }
    std::shared_ptr<IListaEntidades> Listar(AdapterBase& da, IEntidad& clave, ConexionArg c) const override {
        return listar(Da(da), Ent_(clave), c);
    }
    std::shared_ptr<ADODB::Recordset> rsListar(AdapterBase& da, IEntidad& clave, ConexionArg c) const override {
        return rslistar(Da(da), Ent_(clave), c);
    }
    std::shared_ptr<IListaEntidades> ListarTodo(AdapterBase& da) const override { return Da(da).Listar(); }
    std::shared_ptr<IListaEntidades> Listar_SQLQuery(AdapterBase& da, const std::string& sql) const override {
        std::string q = sql;
        return Da(da).Listar_SQLQuery(q);
    }
    std::string ExportarTexto(AdapterBase& da, IListaEntidades& l, const std::string& sep) const override {
        std::string s = sep;
        return Da(da).ExportarTexto(Lst_(l), s);
    }
    std::shared_ptr<IListaEntidades> ImportarTexto(AdapterBase& da, const std::string& texto,
                                                   const std::string& sep) const override {
        std::string t = texto, s = sep;
        return Da(da).ImportarTexto(t, s);
    }
    void GrabarDatos(AdapterBase& da, IListaEntidades& l) const override { Da(da).GrabarDatos(Lst_(l)); }
    std::shared_ptr<XML::IXMLDOMElement> ToXML(IEntidad& e, const std::string& nombre) const override {
        std::string n = nombre;
        return Ent_(e).ToXML(n);
    }
};

template <class DA, class E, class L, class M, class A1, class A2, class IK, class D, class En, class Li, class RL>
std::unique_ptr<CasoTabla> HacerCaso(const Esperado& esp, M muestra, A1 addCompleto, A2 addRequeridos, IK itemClave,
                                     D borrar, En entidad, Li listar, RL rslistar) {
    auto c = std::make_unique<Caso<DA, E, L>>(esp);
    c->muestra = muestra;
    c->addCompleto = addCompleto;
    c->addRequeridos = addRequeridos;
    c->itemClave = itemClave;
    c->borrar = borrar;
    c->entidad = entidad;
    c->listar = listar;
    c->rslistar = rslistar;
    return c;
}

// The ten tables, in the order of DataAdapters.Tablas.
const std::vector<const CasoTabla*>& Casos();
// One of them by its table name.
const CasoTabla& CasoDe(const std::string& tabla);

// The fields of two entities of one table, field by field: the names of those that differ.
std::vector<std::string> CamposDistintos(const CasoTabla& caso, IEntidad& a, IEntidad& b);

}  // namespace zaro_tablas
