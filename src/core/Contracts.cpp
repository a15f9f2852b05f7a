#include "ZARODatos/core/Contracts.h"

namespace OVT_ZARO {

// The contract classes themselves do nothing and raise nothing.
Variant IEntidad::GetValor(ByRef<std::string>) { return {}; }
Variant IEntidad::GetValorIndice(ByRef<int16_t>) { return {}; }
int32_t IEntidad::NumCampos() { return 0; }
std::string IEntidad::GetNombreCampo(ByRef<int16_t>) { return {}; }
void IEntidad::CargarEntidad(ADODB::Fields&) {}
void IEntidad::SetValor(ByRef<std::string>, ByRef<Variant>) {}
void IEntidad::SetValorIndice(ByRef<int16_t>, ByRef<Variant>) {}
std::string IEntidad::Nombre() { return {}; }
std::string IEntidad::Tabla() { return {}; }

std::string IListaEntidades::Nombre() { return {}; }
std::string IListaEntidades::Tabla() { return {}; }
std::shared_ptr<IEntidad> IListaEntidades::NewEntidad() { return nullptr; }

}  // namespace OVT_ZARO
