// BasTroquel: the library's shared module of free functions.
//
// Running SQL, reading a single value, reading a column with a default, the
// number text rule that every SQL literal and every numeric SetValor passes
// through, XML output of an entity, and the sort of a bound control's rows. The functions keep no state.
// Failure styles: EjecutarSQL and ObtenerValorSQL pass a failure on with its
// number, source and description; LeerCampo, ValorPorDefecto and
// NormalizarNumero turn failure into their default; ValorDeCampo carries on
// past it; EntidadToXML raises again with the source "EntidadToXML".
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "ZARODatos/core/Contracts.h"
#include "ZARODatos/platform/Collection.h"

namespace OVT_ZARO::XML {
class IXMLDOMElement;
}

namespace OVT_ZARO::BasTroquel {

// Raises the error being handled with its number and description and Origen
// as source. Would return bandera if the raise did not leave it.
// REQUIRES: called inside a catch handler.
int16_t RelanzarError(ByRef<std::string> Origen, ByRef<int16_t> bandera);

// Runs the statement with options -1 and drops any Recordset that comes back.
void EjecutarSQL(ByRef<ConnectionRef> conexion, ByRef<std::string> sql);

// A single-value query: the named field (the first when nombre is empty) of
// the first row, Null included; with no row, the integer 0 for a field of
// type 3, 5 or 131 and the empty string otherwise. Sets the screen's mouse
// pointer to the wait shape while it runs and restores it. Not logged.
Variant ObtenerValorSQL(ByRef<ConnectionRef> conexion, ByRef<std::string> sql, ByRef<std::string> nombre);

// A field's value with null replaced by the integer 0 (numeric, date and
// boolean types) or the empty string (text and any other type).
Variant ValorDeCampo(ADODB::Field& campo);

// defecto for an empty or null value or the empty string; a byte array and
// every other value (0 included) as it is.
Variant ValorPorDefecto(const Variant& valor, const Variant& defecto);

// The column nombre of Registro through ValorPorDefecto; any failure, a
// missing column among them, gives defecto.
Variant LeerCampo(ADODB::Fields& Registro, std::string_view nombre, const Variant& defecto);

// Removes every ".", turns every "," into "." and returns the result if it
// reads as a number under the host's locale, otherwise "0".
std::string NormalizarNumero(std::string_view texto);

// An element named NombreElementoXML (or the entity's Nombre when empty,
// written back to the argument) with one child per field 1 to NumCampos
// holding the field's default string form.
std::shared_ptr<XML::IXMLDOMElement> EntidadToXML(IEntidad& Entidad, ByRef<std::string> NombreElementoXML);

// Appends texto to an SQL text under the library's apostrophe rule: every
// "'" is written as "´", so that a text can neither end nor extend the
// literal it stands in. What every string literal of the adapters, and the
// filter text of a lookup, pass through.
void AnexarTextoSQL(std::string& sql, std::string_view texto);

// A new Collection, without keys, of the same entities sorted by the field
// Campo: a bubble sort over positions that stops at the first pass without a
// swap, swapping only on strictly greater (less when Descendente), so ties
// keep their order; values compare by binary comparison (capitals before
// small letters, a number below a text). Carries on past every failure and
// never raises; no collection gives an empty one.
CollectionRef OrdenarColeccion(ByRef<ObjectRef> coleccion, const std::string& Campo, ByRef<bool> Descendente);

// The number a SetValor of an integer or double field stores: the value's
// text through NormalizarNumero, read with "." as the decimal point.
double NumeroNormalizado(const Variant& valor);
// The same for a text.
double NumeroNormalizadoTexto(std::string_view texto);

}  // namespace OVT_ZARO::BasTroquel
