// The ten tables of the library, each with its entity, list and adapter.
#pragma once

#include "ZARODatos/tables/articulo.h"
#include "ZARODatos/tables/definicion_campos.h"
#include "ZARODatos/tables/dia.h"
#include "ZARODatos/tables/resumen_diario.h"
#include "ZARODatos/tables/resumen_diario_detalle.h"
#include "ZARODatos/tables/ticket.h"
#include "ZARODatos/tables/ticket_articulo.h"
#include "ZARODatos/tables/ticket_impuesto.h"
#include "ZARODatos/tables/ticket_pago.h"
