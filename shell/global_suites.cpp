#include "shell/global_suites.h"

SPBasicSuite* sSPBasic = nullptr;
AEGP_PanelSuite1* sAEGPPanelSuite = nullptr;
PFAppSuite2* sPFAppSuite = nullptr;

namespace adm {

namespace {

template <typename Suite>
void acquire(const char* name, int32_t version, Suite** out) {
    const void* suite = nullptr;
    if (sSPBasic != nullptr && sSPBasic->AcquireSuite(name, version, &suite) == A_Err_NONE) {
        *out = static_cast<Suite*>(const_cast<void*>(suite));
    }
}

template <typename Suite>
void release(const char* name, int32_t version, Suite** held) {
    if (*held != nullptr) {
        sSPBasic->ReleaseSuite(name, version);  // a failed release changes nothing for us
        *held = nullptr;
    }
}

}  // namespace

void acquireSuites() {
    acquire(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1, &sAEGPPanelSuite);
    acquire(kPFAppSuite, kPFAppSuiteVersion2, &sPFAppSuite);
}

void releaseSuites() {
    release(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1, &sAEGPPanelSuite);
    release(kPFAppSuite, kPFAppSuiteVersion2, &sPFAppSuite);
}

}  // namespace adm
