#include "shell/suite_handler.h"

namespace {

struct SuiteName {
    const char* name;
    int32_t version;
};

// Indexed by AEGP_SuiteHandler::Slot.
constexpr SuiteName kSuiteNames[] = {
    {kAEGPRegisterSuite, kAEGPRegisterSuiteVersion1},
    {kAEGPCommandSuite, kAEGPCommandSuiteVersion1},
    {kAEGPUtilitySuite, kAEGPUtilitySuiteVersion3},
    {kAEGPCollectionSuite, kAEGPCollectionSuiteVersion1},
    {kAEGPCompSuite, kAEGPCompSuiteVersion4},
    {kAEGPItemSuite, kAEGPItemSuiteVersion3},
    {kAEGPLayerSuite, kAEGPLayerSuiteVersion5},
    {kAEGPLayerSuite, kAEGPLayerSuiteVersion8},
    {kAEGPLayerSuite, kAEGPLayerSuiteVersion10},
    {kAEGPStreamSuite, kAEGPStreamSuiteVersion4},
    {kAEGPKeyframeSuite, kAEGPKeyframeSuiteVersion1},
    {kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1},
    {kPFAppSuite, kPFAppSuiteVersion2},
};

}  // namespace

AEGP_SuiteHandler::AEGP_SuiteHandler(const SPBasicSuite* basic) : basic_(basic), suites_{} {
    if (basic_ == nullptr) {
        MissingSuiteError();
    }
}

AEGP_SuiteHandler::~AEGP_SuiteHandler() { ReleaseAllSuites(); }

const void* AEGP_SuiteHandler::LoadSuite(const char* name, int32_t version) const {
    const void* suite = nullptr;
    const SPErr err = basic_->AcquireSuite(name, version, &suite);
    if (err != A_Err_NONE || suite == nullptr) {
        MissingSuiteError();
    }
    return suite;
}

SPErr AEGP_SuiteHandler::ReleaseSuite(const char* name, int32_t version) const {
    return basic_->ReleaseSuite(name, version);
}

void AEGP_SuiteHandler::ReleaseAllSuites() {
    // The cached pointers stay set: the handler is on its way out.
    for (std::size_t i = 0; i < kSlotCount; ++i) {
        if (suites_[i] != nullptr) {
            ReleaseSuite(kSuiteNames[i].name, kSuiteNames[i].version);
        }
    }
}

void AEGP_SuiteHandler::MissingSuiteError() { throw static_cast<int>(A_Err_BAD_CALLBACK_PARAM); }

const void* AEGP_SuiteHandler::get(Slot slot) const {
    if (suites_[slot] == nullptr) {
        suites_[slot] = LoadSuite(kSuiteNames[slot].name, kSuiteNames[slot].version);
    }
    return suites_[slot];
}

#define ORBISETT_SUITE_ACCESSOR(type, accessor, slot) \
    type* AEGP_SuiteHandler::accessor() const { return static_cast<type*>(const_cast<void*>(get(slot))); }

ORBISETT_SUITE_ACCESSOR(AEGP_RegisterSuite1, RegisterSuite1, kRegister1)
ORBISETT_SUITE_ACCESSOR(AEGP_CommandSuite1, CommandSuite1, kCommand1)
ORBISETT_SUITE_ACCESSOR(AEGP_UtilitySuite3, UtilitySuite3, kUtility3)
ORBISETT_SUITE_ACCESSOR(AEGP_CollectionSuite1, CollectionSuite1, kCollection1)
ORBISETT_SUITE_ACCESSOR(AEGP_CompSuite4, CompSuite4, kComp4)
ORBISETT_SUITE_ACCESSOR(AEGP_ItemSuite3, ItemSuite3, kItem3)
ORBISETT_SUITE_ACCESSOR(AEGP_LayerSuite5, LayerSuite5, kLayer5)
ORBISETT_SUITE_ACCESSOR(AEGP_LayerSuite8, LayerSuite8, kLayer8)
ORBISETT_SUITE_ACCESSOR(AEGP_LayerSuite10, LayerSuite10, kLayer10)
ORBISETT_SUITE_ACCESSOR(AEGP_StreamSuite4, StreamSuite4, kStream4)
ORBISETT_SUITE_ACCESSOR(AEGP_KeyframeSuite1, KeyframeSuite1, kKeyframe1)
ORBISETT_SUITE_ACCESSOR(AEGP_PanelSuite1, PanelSuite1, kPanel1)
ORBISETT_SUITE_ACCESSOR(PFAppSuite2, AppSuite2, kApp2)

#undef ORBISETT_SUITE_ACCESSOR
