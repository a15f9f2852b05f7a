#include "ZARODatos/generic/Generica.h"

#include <algorithm>
#include <limits>

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"
#include "generic/Bloque.h"
#include "generic/Comun.h"

namespace OVT_ZARO {

using namespace generico;

namespace {
// The source of every re-raise of entidadGenerica: its IEntidad_Nombre.
const std::string kFuente = "entidadGenerica";
}  // namespace

// ---- entidadGenerica ------------------------------------------------------

coleccionElementos& entidadGenerica::CamposListos() {
    if (!Campos) Campos = std::make_shared<coleccionElementos>();
    return *Campos;
}

Variant entidadGenerica::GetValor(ByRef<std::string> Campo) {
    try {
        const entElementoRef* e = CamposListos().Buscar(*Campo);
        if (!e) return Variant(kError);  // reading an unknown name makes no field
        return (*e)->Valor;
    } catch (...) {
        Reraise(kFuente);
    }
}

void entidadGenerica::SetValor(ByRef<std::string> Campo, ByRef<Variant> Valor) {
    try {
        coleccionElementos& campos = CamposListos();
        if (const entElementoRef* e = campos.Buscar(*Campo)) (*e)->Valor = *Valor;
        else campos.Add(Campo, Valor);
    } catch (...) {
        Reraise(kFuente);
    }
}

// A bad position fails in Item first; the test for no element behind it only
// serves a list that holds one.
Variant entidadGenerica::GetValorIndice(ByRef<int16_t> IndiceCampo) {
    try {
        entElementoRef e = CamposListos().Item(int32_t{*IndiceCampo});
        if (!e) return Variant(kError);
        return e->Valor;
    } catch (...) {
        Reraise(kFuente);
    }
}

void entidadGenerica::SetValorIndice(ByRef<int16_t> IndiceCampo, ByRef<Variant> Valor) {
    try {
        entElementoRef e = CamposListos().Item(int32_t{*IndiceCampo});
        if (e) e->Valor = *Valor;
    } catch (...) {
        Reraise(kFuente);
    }
}

std::string entidadGenerica::GetNombreCampo(ByRef<int16_t> IndiceCampo) {
    try {
        entElementoRef e = CamposListos().Item(int32_t{*IndiceCampo});
        if (!e) return kError;
        return e->Nombre;
    } catch (...) {
        Reraise(kFuente);
    }
}

int32_t entidadGenerica::NumCampos() { return CamposListos().Count(); }

void entidadGenerica::CargarEntidad(ADODB::Fields& Registro) {
    try {
        coleccionElementos& campos = CamposListos();
        const int32_t n = Registro.Count();
        if (campos.Count() == 0) campos.Reservar(static_cast<size_t>(n));
        for (int32_t i = 0; i < n; ++i) {
            ADODB::Field& columna = Registro.Item(i);
            const std::string& nombre = columna.Name();
            const entElementoRef* e = campos.Buscar(nombre);
            Variant valor = BasTroquel::ValorDeCampo(columna);
            // Two columns of one name end in one field with the later value.
            if (e) (*e)->Valor = std::move(valor);
            else campos.Anadir(nombre, std::move(valor));
        }
    } catch (...) {
        RelanzarCarga(kFuente, kFuente);
    }
}

void entidadGenerica::CargarFilaNueva(ADODB::Fields& Registro, const std::vector<int32_t>& destino,
                                      int32_t numCampos, generico::Bloque& bloque) {
    try {
        coleccionElementos& campos = CamposListos();
        campos.Reservar(static_cast<size_t>(numCampos));
        const int32_t n = static_cast<int32_t>(destino.size());
        for (int32_t i = 0; i < n; ++i) {
            ADODB::Field& columna = Registro.Item(i);
            Variant valor = BasTroquel::ValorDeCampo(columna);
            const int32_t d = destino[static_cast<size_t>(i)];
            if (d == campos.Count()) {
                auto e = std::allocate_shared<entElemento>(AsignadorDeBloque<entElemento>(&bloque));
                e->Nombre = columna.Name();
                e->Valor = std::move(valor);
                campos.Anexar(e);
            } else {
                campos.Item(d + 1)->Valor = std::move(valor);
            }
        }
    } catch (...) {
        RelanzarCarga(kFuente, kFuente);
    }
}

// Each field is one step: a field that fails is skipped and the next one
// runs. The index runs as a 16-bit integer, so at most 32767 fields.
void entidadGenerica::CargarDe(IEntidad& Entidad) {
    int32_t n = 0;
    try { n = Entidad.NumCampos(); } catch (...) {}
    n = std::min<int32_t>(n, std::numeric_limits<int16_t>::max());
    for (int16_t i = 1; i <= n; ++i) {
        try {
            Variant valor = Entidad.GetValorIndice(i);
            std::string nombre = Entidad.GetNombreCampo(i);
            SetValor(nombre, valor);
        } catch (...) {
        }
        if (i == std::numeric_limits<int16_t>::max()) break;
    }
}

void entidadGenerica::CargarDe(const std::shared_ptr<IEntidad>& Entidad) {
    // No object: every step fails and is skipped.
    if (Entidad) CargarDe(*Entidad);
}

void entidadGenerica::CargarEn(IEntidad& Entidad) {
    int32_t n = 0;
    try { n = NumCampos(); } catch (...) {}
    n = std::min<int32_t>(n, std::numeric_limits<int16_t>::max());
    for (int16_t i = 1; i <= n; ++i) {
        try {
            Variant valor = GetValorIndice(i);
            std::string nombre = GetNombreCampo(i);
            // A name the other entity lacks raises there and is dropped here.
            Entidad.SetValor(nombre, valor);
        } catch (...) {
        }
        if (i == std::numeric_limits<int16_t>::max()) break;
    }
}

void entidadGenerica::CargarEn(const std::shared_ptr<IEntidad>& Entidad) {
    if (Entidad) CargarEn(*Entidad);
}

std::shared_ptr<XML::IXMLDOMElement> entidadGenerica::ToXML(ByRef<std::string> NombreElementoXML) {
    return generico::ToXML(*this, NombreElementoXML);
}

// ---- coleccionGenerica ----------------------------------------------------

void coleccionGenerica::Cargar(ByRef<std::shared_ptr<ADODB::Recordset>> rs) {
    // No handling of its own: a failure passes through, the rows so far stay.
    if (!*rs) RaisePlatform(ErrNum::ObjectNotSet);
    ADODB::Recordset& registros = **rs;
    const int32_t filas = registros.RecordCount();
    if (filas > 0) Reservar(static_cast<size_t>(Count()) + static_cast<size_t>(filas));
    // Every row is loaded as CargarEntidad loads a new entity. The columns'
    // names do not change from row to row, so which field each column goes
    // to (two columns of one name to one field) is worked out once, by the
    // same comparison that CargarEntidad makes.
    std::vector<int32_t> destino;
    int32_t numCampos = 0;
    bool preparado = false;
    while (!registros.EOF_()) {
        ADODB::Fields& registro = registros.Fields();
        if (!preparado) {
            std::vector<std::string_view> nombres;
            for (int32_t i = 0; i < registro.Count(); ++i) {
                const std::string& nombre = registro.Item(i).Name();
                const bool llano = EsNombreLlano(nombre);
                int32_t d = 0;
                while (d < numCampos && !MismoNombre(nombre, llano, nombres[static_cast<size_t>(d)])) ++d;
                if (d == numCampos) {
                    nombres.push_back(nombre);
                    ++numCampos;
                }
                destino.push_back(d);
            }
            preparado = true;
        }
        // The entity, its list of fields and the fields share one block.
        const size_t capacidad = TamanoEnBloque<entidadGenerica>() + TamanoEnBloque<coleccionElementos>() +
                                 static_cast<size_t>(numCampos) * TamanoEnBloque<entElemento>();
        Bloque* bloque = Bloque::Crear(capacidad);
        try {
            auto e = std::allocate_shared<entidadGenerica>(AsignadorDeBloque<entidadGenerica>(bloque));
            e->Campos = std::allocate_shared<coleccionElementos>(AsignadorDeBloque<coleccionElementos>(bloque));
            e->CargarFilaNueva(registro, destino, numCampos, *bloque);
            Anexar(e);
        } catch (...) {
            bloque->Soltar();
            throw;
        }
        bloque->Soltar();
        registros.MoveNext();
    }
    // Behind the loop the recordset always stands at its end, so this rewind
    // never happens and the recordset stays at its end. Kept in this order.
    if (!registros.EOF_() && !registros.BOF()) registros.MoveFirst();
}

entidadGenericaRef coleccionGenerica::Add(ByRef<entidadGenericaRef> Objeto) {
    Anexar(*Objeto);
    return *Objeto;
}

}  // namespace OVT_ZARO
