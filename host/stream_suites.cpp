// "AEGP Stream Suite" 4 and "AEGP Keyframe Suite" 1: reading layer properties at a time, and
// writing values and keyframes through open streams.
#include "host/suite_call.h"
#include "host/suite_tables.h"

#include <cmath>

namespace host::detail {

namespace {

bool validTimeMode(AEGP_LTimeMode mode) { return mode == AEGP_LTimeMode_LayerTime || mode == AEGP_LTimeMode_CompTime; }

// The open stream behind a handle, with its layer still alive; `body` gets both.
template <typename Body>
A_Err onStream(const char* function, AEGP_StreamRefH stream, bool valid, Body&& body) {
    return hostCall(function, valid, [&](State& s) {
        auto it = s.streams.find(handleId(stream, Tag::stream));
        if (it == s.streams.end()) {
            return A_Err_PARAMETER;
        }
        const LayerPlace place = s.project.find(it->second.layer);
        return place.comp == nullptr ? A_Err_PARAMETER : body(s, it->second, place);
    });
}

A_Err getNewLayerStream(AEGP_PluginID, AEGP_LayerH layer, AEGP_LayerStream which_stream, AEGP_StreamRefH* stream) {
    Prop prop{};
    const bool valid = given(stream) && propFromStream(which_stream, &prop);
    return onLayer("AEGP_GetNewLayerStream", layer, valid, [&](State& s, const LayerPlace& place) {
        const Id id = newId();
        s.streams[id] = Stream{place.layer()->id, prop};
        *stream = makeHandle<AEGP_StreamRefH>(id, Tag::stream);
        return A_Err_NONE;
    });
}

A_Err disposeStream(AEGP_StreamRefH stream) {
    return hostCall("AEGP_DisposeStream", [&](State& s) {
        return s.streams.erase(handleId(stream, Tag::stream)) != 0 ? A_Err_NONE : A_Err_PARAMETER;
    });
}

A_Err getLayerStreamValue(AEGP_LayerH layer, AEGP_LayerStream which_stream, AEGP_LTimeMode time_mode,
                          const A_Time* time, A_Boolean, AEGP_StreamVal* value, AEGP_StreamType* stream_type) {
    Prop prop{};
    const bool valid = given(time, value) && validTimeMode(time_mode) && propFromStream(which_stream, &prop);
    return onLayer("AEGP_GetLayerStreamValue", layer, valid, [&](State&, const LayerPlace& place) {
        const Vec3 v = place.layer()->prop(prop).valueAt(*time);
        if (isOneD(prop)) {
            value->one_d = v.x;
        } else {
            value->three_d = AEGP_ThreeDVal{v.x, v.y, v.z};
        }
        if (stream_type != nullptr) {
            *stream_type = streamTypeOf(prop);
        }
        return A_Err_NONE;
    });
}

A_Err setStreamValue(AEGP_PluginID, AEGP_StreamRefH stream, AEGP_StreamValue* value) {
    // A value that names another stream is a caller's mix-up, not something to guess about.
    const bool valid = given(value) && (value->streamH == nullptr || value->streamH == stream);
    return onStream("AEGP_SetStreamValue", stream, valid, [&](State& s, Stream& open, const LayerPlace& place) {
        const Vec3 v = isOneD(open.prop) ? Vec3{value->val.one_d, 0, 0}
                                         : Vec3{value->val.three_d.x, value->val.three_d.y, value->val.three_d.z};
        if (!std::isfinite(v.x) || !std::isfinite(v.y) || !std::isfinite(v.z)) {
            return A_Err_PARAMETER;
        }
        Property& property = place.layer()->prop(open.prop);
        noteWrite(s, open.layer);
        if (property.keys.empty()) {
            property.value = v;
        } else {
            // With keyframes, typing a value sets the key at the current time.
            property.setKey(place.comp->time, v);
        }
        return A_Err_NONE;
    });
}

A_Err getStreamNumKFs(AEGP_StreamRefH stream, A_long* num_keyframes) {
    return onStream("AEGP_GetStreamNumKFs", stream, given(num_keyframes),
                    [&](State&, Stream& open, const LayerPlace& place) {
                        *num_keyframes = static_cast<A_long>(place.layer()->prop(open.prop).keys.size());
                        return A_Err_NONE;
                    });
}

A_Err insertKeyframe(AEGP_StreamRefH stream, AEGP_LTimeMode time_mode, const A_Time* time,
                     AEGP_KeyframeIndex* key_index) {
    const bool valid = given(time) && validTimeMode(time_mode) && time->scale != 0;
    return onStream("AEGP_InsertKeyframe", stream, valid, [&](State& s, Stream& open, const LayerPlace& place) {
        Property& property = place.layer()->prop(open.prop);
        noteWrite(s, open.layer);
        const int index = property.insertKey(*time, property.valueAt(*time));
        if (key_index != nullptr) {
            *key_index = index;
        }
        return A_Err_NONE;
    });
}

const AEGP_StreamSuite4 kStreamSuite{getNewLayerStream, disposeStream, getLayerStreamValue, setStreamValue};
const AEGP_KeyframeSuite1 kKeyframeSuite{getStreamNumKFs, insertKeyframe};

const ServedSuite kServed[] = {{kAEGPStreamSuite, kAEGPStreamSuiteVersion4, &kStreamSuite},
                               {kAEGPKeyframeSuite, kAEGPKeyframeSuiteVersion1, &kKeyframeSuite}};

}  // namespace

std::span<const ServedSuite> streamAndKeyframeSuites() { return kServed; }

}  // namespace host::detail
