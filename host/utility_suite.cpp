// "AEGP Utility Suite" 3: reports to the user and undo groups.
#include "host/host_state.h"
#include "host/suite_tables.h"

namespace host::detail {

namespace {

A_Err reportInfo(AEGP_PluginID plugin_id, const A_char* info_string) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_ReportInfo", err);
    if (s == nullptr) {
        return err;
    }
    if (info_string == nullptr) {
        return A_Err_PARAMETER;
    }
    s->reports.push_back(Report{plugin_id, info_string});
    return A_Err_NONE;
}

A_Err startUndoGroupCall(const A_char* undo_name) {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_StartUndoGroup", err);
    if (s == nullptr) {
        return err;
    }
    if (undo_name == nullptr) {
        return A_Err_PARAMETER;
    }
    startUndoGroup(*s, undo_name);
    return A_Err_NONE;
}

A_Err endUndoGroupCall() {
    A_Err err = A_Err_NONE;
    State* s = enter("AEGP_EndUndoGroup", err);
    if (s == nullptr) {
        return err;
    }
    return endUndoGroup(*s);
}

const AEGP_UtilitySuite3 kSuite{reportInfo, startUndoGroupCall, endUndoGroupCall};

}  // namespace

const AEGP_UtilitySuite3* utilitySuite3() { return &kSuite; }

}  // namespace host::detail
