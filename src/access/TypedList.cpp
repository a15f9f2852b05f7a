#include "ZARODatos/access/TypedList.h"

#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Error.h"

namespace OVT_ZARO::detail {

bool ClaveCoincide(IEntidad& e, const CampoDef& c, int32_t v) {
    if (c.Tipo == TipoCampo::Entero) return e.*c.Miembro.Entero == v;
    if (c.Tipo == TipoCampo::Doble) return e.*c.Miembro.Doble == v;
    RaisePlatform(ErrNum::TypeMismatch);
}

bool ClaveCoincide(IEntidad& e, const CampoDef& c, double v) {
    if (c.Tipo == TipoCampo::Doble) return e.*c.Miembro.Doble == v;
    if (c.Tipo == TipoCampo::Entero) return e.*c.Miembro.Entero == v;
    RaisePlatform(ErrNum::TypeMismatch);
}

bool ClaveCoincide(IEntidad& e, const CampoDef& c, Date v) {
    // Compared as doubles: a date with another time of day does not match.
    if (c.Tipo == TipoCampo::Fecha) return (e.*c.Miembro.Fecha).Serial() == v.Serial();
    RaisePlatform(ErrNum::TypeMismatch);
}

bool ClaveCoincide(IEntidad& e, const CampoDef& c, const std::string& v) {
    if (c.Tipo == TipoCampo::Texto) return TextEquals(e.*c.Miembro.Texto, v);
    RaisePlatform(ErrNum::TypeMismatch);
}

const CampoDef& CampoDeArgumento(const TablaDef& t, const std::vector<int16_t>& orden, size_t i) {
    const int pos = orden.at(i);
    if (pos < 0) RaisePlatform(ErrNum::InvalidCall);
    return t.Campos[static_cast<size_t>(pos)];
}

}  // namespace OVT_ZARO::detail
