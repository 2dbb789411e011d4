// Per-operation cache of host suites: each suite is acquired on first use and released when the
// handler goes, so an operation never holds a suite longer than it runs.
#pragma once

#include "host_api.h"

#include <cstddef>

class AEGP_SuiteHandler {
public:
    explicit AEGP_SuiteHandler(const SPBasicSuite* basic);
    ~AEGP_SuiteHandler();

    AEGP_SuiteHandler(const AEGP_SuiteHandler&) = delete;
    AEGP_SuiteHandler& operator=(const AEGP_SuiteHandler&) = delete;

    AEGP_RegisterSuite1* RegisterSuite1() const;
    AEGP_CommandSuite1* CommandSuite1() const;
    AEGP_UtilitySuite3* UtilitySuite3() const;
    AEGP_CollectionSuite1* CollectionSuite1() const;
    AEGP_CompSuite4* CompSuite4() const;
    AEGP_ItemSuite3* ItemSuite3() const;
    AEGP_LayerSuite5* LayerSuite5() const;
    AEGP_LayerSuite8* LayerSuite8() const;
    AEGP_LayerSuite10* LayerSuite10() const;
    AEGP_StreamSuite4* StreamSuite4() const;
    AEGP_KeyframeSuite1* KeyframeSuite1() const;
    AEGP_PanelSuite1* PanelSuite1() const;
    PFAppSuite2* AppSuite2() const;

    // Never returns null: a suite the host does not give is thrown as A_Err_BAD_CALLBACK_PARAM.
    const void* LoadSuite(const char* name, int32_t version) const;
    SPErr ReleaseSuite(const char* name, int32_t version) const;
    void ReleaseAllSuites();
    [[noreturn]] static void MissingSuiteError();

private:
    enum Slot : std::size_t {
        kRegister1,
        kCommand1,
        kUtility3,
        kCollection1,
        kComp4,
        kItem3,
        kLayer5,
        kLayer8,
        kLayer10,
        kStream4,
        kKeyframe1,
        kPanel1,
        kApp2,
        kSlotCount
    };

    const void* get(Slot slot) const;

    const SPBasicSuite* basic_;
    mutable const void* suites_[kSlotCount];
};
