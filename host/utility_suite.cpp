// "AEGP Utility Suite" 3: reports to the user and undo groups.
#include "host/suite_call.h"
#include "host/suite_tables.h"

namespace host::detail {

namespace {

A_Err reportInfo(AEGP_PluginID plugin_id, const A_char* info_string) {
    return hostCall("AEGP_ReportInfo", given(info_string), [&](State& s) {
        s.reports.push_back(Report{plugin_id, info_string});
        return A_Err_NONE;
    });
}

A_Err startUndoGroupCall(const A_char* undo_name) {
    return hostCall("AEGP_StartUndoGroup", given(undo_name), [&](State& s) {
        startUndoGroup(s, undo_name);
        return A_Err_NONE;
    });
}

A_Err endUndoGroupCall() {
    return hostCall("AEGP_EndUndoGroup", [](State& s) { return endUndoGroup(s); });
}

const AEGP_UtilitySuite3 kSuite{reportInfo, startUndoGroupCall, endUndoGroupCall};

const ServedSuite kServed[] = {{kAEGPUtilitySuite, kAEGPUtilitySuiteVersion3, &kSuite}};

}  // namespace

std::span<const ServedSuite> utilitySuites() { return kServed; }

}  // namespace host::detail
