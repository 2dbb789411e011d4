// The shell's process-wide suite pointers: the host's basic suite, and the two host suites held
// from start-up to shut-down (the workspace panel suite is null on hosts without panels).
#pragma once

#include "host_api.h"

extern SPBasicSuite* sSPBasic;
extern AEGP_PanelSuite1* sAEGPPanelSuite;
extern PFAppSuite2* sPFAppSuite;

namespace adm {

// Errors are ignored: a suite the host does not offer leaves its pointer null.
void acquireSuites();
void releaseSuites();

}  // namespace adm
