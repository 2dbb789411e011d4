#include "common/adobe/StreamValue.h"

#include "shell/global_suites.h"

StreamValue::StreamValue(int plugin_id, AEGP_LayerH layer, int which_stream)
    : stream(nullptr), suites(sSPBasic), plugin_id(plugin_id) {
    AEGP_StreamRefH opened = nullptr;
    if (suites.StreamSuite4()->AEGP_GetNewLayerStream(plugin_id, layer, which_stream, &opened) == A_Err_NONE) {
        stream = opened;
    }
}

StreamValue::~StreamValue() {
    if (stream != nullptr) {
        suites.StreamSuite4()->AEGP_DisposeStream(stream);
    }
}

bool StreamValue::set_value(const AEGP_StreamValue& value) {
    AEGP_StreamValue written = value;
    written.streamH = stream;
    return suites.StreamSuite4()->AEGP_SetStreamValue(plugin_id, stream, &written) == A_Err_NONE;
}

bool StreamValue::insert_key(const A_Time& time, short time_mode, int* key_index) {
    AEGP_KeyframeIndex index = 0;
    const A_Err err =
        suites.KeyframeSuite1()->AEGP_InsertKeyframe(stream, time_mode, &time, key_index != nullptr ? &index : nullptr);
    if (err != A_Err_NONE) {
        return false;
    }
    if (key_index != nullptr) {
        *key_index = index;
    }
    return true;
}
