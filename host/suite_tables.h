// The host's suite tables, one getter per suite version it serves.
#pragma once

#include "host_api.h"

namespace host::detail {

const AEGP_RegisterSuite1* registerSuite1();
const AEGP_CommandSuite1* commandSuite1();
const AEGP_UtilitySuite3* utilitySuite3();
const AEGP_CollectionSuite1* collectionSuite1();
const AEGP_CompSuite4* compSuite4();
const AEGP_ItemSuite3* itemSuite3();
const AEGP_LayerSuite5* layerSuite5();
const AEGP_LayerSuite8* layerSuite8();
const AEGP_LayerSuite10* layerSuite10();
const AEGP_StreamSuite4* streamSuite4();
const AEGP_KeyframeSuite1* keyframeSuite1();
const AEGP_PanelSuite1* panelSuite1();
const PFAppSuite2* appSuite2();

}  // namespace host::detail
