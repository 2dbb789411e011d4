// One LayerInfo record read from the host: time, scale, position, index, effective orientation,
// source size and displayed size.
#include "common/adobe/AssistantDlg.h"

#include "controls/placement_rules.h"
#include "math/saturate.h"
#include "shell/global_suites.h"

namespace {

A_Err read_stream(AEGP_SuiteHandler& suites, AEGP_LayerH layer, AEGP_LayerStream which, const A_Time& time,
                  AEGP_StreamVal* value) {
    return suites.StreamSuite4()->AEGP_GetLayerStreamValue(layer, which, AEGP_LTimeMode_CompTime, &time, false, value,
                                                           nullptr);
}

// The orientation a viewer sees: Orientation with the three rotations added.
A_Err read_orientation(AEGP_SuiteHandler& suites, AEGP_LayerH layer, const A_Time& time, AEGP_ThreeDVal* out) {
    AEGP_StreamVal orientation{};
    A_Err err = read_stream(suites, layer, AEGP_LayerStream_ORIENTATION, time, &orientation);
    if (err != A_Err_NONE) {
        return err;
    }
    const AEGP_LayerStream rotations[] = {AEGP_LayerStream_ROTATE_X, AEGP_LayerStream_ROTATE_Y,
                                          AEGP_LayerStream_ROTATION};
    A_FpLong* components[] = {&orientation.three_d.x, &orientation.three_d.y, &orientation.three_d.z};
    for (int i = 0; i < 3; ++i) {
        AEGP_StreamVal rotation{};
        err = read_stream(suites, layer, rotations[i], time, &rotation);
        if (err != A_Err_NONE) {
            return err;
        }
        *components[i] += rotation.one_d;
    }
    *out = orientation.three_d;
    return A_Err_NONE;
}

// Truncated toward zero, the quotient taken first as the host's own display does.
A_long scaled(A_long pixels, A_FpLong percent) { return math::saturate<A_long>(pixels * (percent / 100.0)); }

}  // namespace

A_Err AssistantDlg::get_layer_scale(AEGP_LayerH layer, AEGP_StreamValue* out) {
    AEGP_SuiteHandler suites(sSPBasic);
    A_Time time{0, 1};
    A_Err err = suites.LayerSuite5()->AEGP_GetLayerCurrentTime(layer, AEGP_LTimeMode_CompTime, &time);
    if (err != A_Err_NONE) {
        return err;
    }
    return read_stream(suites, layer, AEGP_LayerStream_SCALE, time, &out->val);
}

A_Err AssistantDlg::get_layer_dimensions(AEGP_LayerH layer, int* width, int* height) {
    AEGP_SuiteHandler suites(sSPBasic);
    AEGP_ItemH source = nullptr;
    A_Err err = suites.LayerSuite5()->AEGP_GetLayerSourceItem(layer, &source);
    if (err != A_Err_NONE) {
        return err;
    }
    if (source != nullptr) {
        A_long w = 0;
        A_long h = 0;
        err = suites.ItemSuite3()->AEGP_GetItemDimensions(source, &w, &h);
        if (err == A_Err_NONE) {
            *width = w;
            *height = h;
        }
        return err;
    }
    // Layers without a source (text, shape) take a size from elsewhere.
    const controls::Extent extent =
        controls::sourcelessExtent(!is_text_layer_use_comp_size(), {max_width, max_height}, {comp_width, comp_height});
    *width = extent.width;
    *height = extent.height;
    return A_Err_NONE;
}

A_Err AssistantDlg::collect_info(AEGP_LayerH layer, LayerInfo* out) {
    AEGP_SuiteHandler suites(sSPBasic);
    // Filled in a zeroed copy so that a read that stops half way leaves `out` untouched.
    LayerInfo record{};
    A_Err err = suites.LayerSuite5()->AEGP_GetLayerCurrentTime(layer, AEGP_LTimeMode_CompTime, &record.time);
    if (err == A_Err_NONE) {
        err = get_layer_scale(layer, &record.scale);
    }
    if (err == A_Err_NONE) {
        err = read_stream(suites, layer, AEGP_LayerStream_POSITION, record.time, &record.position.val);
    }
    if (err == A_Err_NONE) {
        err = suites.LayerSuite5()->AEGP_GetLayerIndex(layer, &record.index);
    }
    if (err == A_Err_NONE) {
        err = read_orientation(suites, layer, record.time, &record.orientation.val.three_d);
    }
    int width = 0;
    int height = 0;
    if (err == A_Err_NONE) {
        err = get_layer_dimensions(layer, &width, &height);
    }
    if (err != A_Err_NONE) {
        return err;
    }
    record.dims = A_LPoint{width, height};
    record.size = A_LPoint{scaled(width, record.scale.val.three_d.x), scaled(height, record.scale.val.three_d.y)};
    record.layer = layer;
    record.clone = false;
    *out = record;
    return A_Err_NONE;
}
