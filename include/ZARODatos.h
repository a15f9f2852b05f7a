// ZARODatos: everything a host needs, in one header.
//
//   Platform   Variant, Date, Error, Collection, conversions under the host's
//              locale, screen services, ADODB (Connection, Recordset, Fields),
//              the XML document, the screen controls (the control model, the
//              headless kit, the user driver) and the picture strip Form1.
//   Core       IEntidad, IListaEntidades, IDataAdapter, BasTroquel, the
//              library's version.
//   Access     the adapter and typed-list templates.
//   Tables     ent/col/da of the ten tables, their one list (LasTablas) and
//              the registry DataAdapters.
//   Generic    entElemento, entidadGenerica, entEntidadSimple and their lists.
//   Binding    Columna, coleccionColumnas, ControlListHelper and
//              ControlListDefinition: lists loaded into list boxes, grids and
//              spreads, and a flex grid edited cell by cell.
#pragma once

#include "ZARODatos/platform/ADODB.h"
#include "ZARODatos/platform/ByRef.h"
#include "ZARODatos/platform/Collection.h"
#include "ZARODatos/platform/Controls.h"
#include "ZARODatos/platform/Conversions.h"
#include "ZARODatos/platform/Date.h"
#include "ZARODatos/platform/Error.h"
#include "ZARODatos/platform/Event.h"
#include "ZARODatos/platform/HeadlessControls.h"
#include "ZARODatos/platform/Pictures.h"
#include "ZARODatos/platform/Screen.h"
#include "ZARODatos/platform/Strings.h"
#include "ZARODatos/platform/UserDriver.h"
#include "ZARODatos/platform/Variant.h"
#include "ZARODatos/platform/XML.h"

#include "ZARODatos/core/BasTroquel.h"
#include "ZARODatos/core/Contracts.h"
#include "ZARODatos/core/TableEntity.h"
#include "ZARODatos/core/Version.h"

#include "ZARODatos/access/EntityList.h"
#include "ZARODatos/access/TableAdapter.h"
#include "ZARODatos/access/TypedList.h"

#include "ZARODatos/tables/DataAdapters.h"
#include "ZARODatos/tables/Tables.h"

#include "ZARODatos/generic/Elementos.h"
#include "ZARODatos/generic/EntidadSimple.h"
#include "ZARODatos/generic/Generica.h"

#include "ZARODatos/binding/Columna.h"
#include "ZARODatos/binding/ControlListDefinition.h"
#include "ZARODatos/binding/ControlListHelper.h"
