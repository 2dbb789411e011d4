// Writing layer properties through streams: plain values, values on properties with keyframes,
// and inserting keyframes.
#include "host_fixture.h"

using host::Prop;
using host::Vec3;

namespace {

using HostWriting = HostFixture;

TEST_F(HostWriting, WithoutKeysTheStaticValueChangesOneDValuesInTheirRotation) {
    AEGP_StreamRefH s = openStream(a, AEGP_LayerStream_POSITION);
    ASSERT_EQ(A_Err_NONE, writeStream(s, 1.5, -2, 300));
    const host::Property& p = h.project().layer(a)->prop(Prop::position);
    EXPECT_EQ(p.value, (Vec3{1.5, -2, 300}));
    EXPECT_TRUE(p.keys.empty());
    streams()->AEGP_DisposeStream(s);
    EXPECT_EQ(0u, h.openStreams());
    s = openStream(a, AEGP_LayerStream_ROTATE_Y);
    AEGP_StreamValue v{};
    v.streamH = s;
    v.val.one_d = -30;
    ASSERT_EQ(A_Err_NONE, streams()->AEGP_SetStreamValue(1, s, &v));
    EXPECT_EQ(-30, h.project().layer(a)->prop(Prop::rotate_y).value.x);
    EXPECT_EQ(0, h.project().layer(a)->prop(Prop::rotate_x).value.x);
    streams()->AEGP_DisposeStream(s);
}

TEST_F(HostWriting, WithKeysTheKeyAtTheCurrentTimeIsSetOrAdded) {
    host::Property& p = h.project().layer(a)->prop(Prop::scale);
    p.insertKey(A_Time{0, 30}, Vec3{50, 50, 50});
    AEGP_StreamRefH s = openStream(a, AEGP_LayerStream_SCALE);
    // Current time 10/30 has no key: one is added there; the static value is not used.
    ASSERT_EQ(A_Err_NONE, writeStream(s, 80, 80, 80));
    ASSERT_EQ(2u, p.keys.size());
    EXPECT_EQ(10, p.keys[1].time.value);
    EXPECT_EQ(p.keys[1].value, (Vec3{80, 80, 80}));
    EXPECT_EQ(p.value, (Vec3{100, 100, 100}));
    // Now there is one: it is overwritten.
    ASSERT_EQ(A_Err_NONE, writeStream(s, 90, 90, 90));
    ASSERT_EQ(2u, p.keys.size());
    EXPECT_EQ(p.keys[1].value, (Vec3{90, 90, 90}));
    streams()->AEGP_DisposeStream(s);
    // What a plug-in does for "insert a key, then write": one key at the current time.
    s = openStream(b, AEGP_LayerStream_ORIENTATION);
    const A_Time now{10, 30};
    ASSERT_EQ(A_Err_NONE, keys()->AEGP_InsertKeyframe(s, AEGP_LTimeMode_CompTime, &now, nullptr));
    ASSERT_EQ(A_Err_NONE, writeStream(s, 0, 90, 0));
    const host::Property& orientation = h.project().layer(b)->prop(Prop::orientation);
    ASSERT_EQ(1u, orientation.keys.size());
    EXPECT_EQ(orientation.keys[0].value, (Vec3{0, 90, 0}));
    streams()->AEGP_DisposeStream(s);
}

TEST_F(HostWriting, InsertKeyframeHoldsTheValueThereAndBadStreamsAndValuesAreRefused) {
    host::Property& p = h.project().layer(a)->prop(Prop::position);
    p.insertKey(A_Time{0, 30}, Vec3{0, 0, 0});
    p.insertKey(A_Time{20, 30}, Vec3{20, 40, 60});
    AEGP_StreamRefH s = openStream(a, AEGP_LayerStream_POSITION);
    AEGP_KeyframeIndex index = -1;
    const A_Time at{5, 30};
    ASSERT_EQ(A_Err_NONE, keys()->AEGP_InsertKeyframe(s, AEGP_LTimeMode_CompTime, &at, &index));
    EXPECT_EQ(1, index);
    EXPECT_EQ(p.keys[1].value, (Vec3{5, 10, 15}));
    // An existing key is kept as it is.
    const A_Time end{20, 30};
    ASSERT_EQ(A_Err_NONE, keys()->AEGP_InsertKeyframe(s, AEGP_LTimeMode_CompTime, &end, &index));
    EXPECT_EQ(2, index);
    A_long n = 0;
    ASSERT_EQ(A_Err_NONE, keys()->AEGP_GetStreamNumKFs(s, &n));
    EXPECT_EQ(3, n);
    EXPECT_EQ(p.keys[2].value, (Vec3{20, 40, 60}));
    streams()->AEGP_DisposeStream(s);
    // Bad streams and values are refused.
    EXPECT_EQ(A_Err_PARAMETER, streams()->AEGP_GetNewLayerStream(1, h.layerHandle(a), AEGP_LayerStream_OPACITY, &s));
    EXPECT_EQ(A_Err_PARAMETER,
              streams()->AEGP_GetNewLayerStream(1, h.layerHandle(a), AEGP_LayerStream_POSITION, nullptr));
    EXPECT_EQ(0u, h.openStreams());
    s = openStream(a, AEGP_LayerStream_POSITION);
    AEGP_StreamRefH other = openStream(b, AEGP_LayerStream_POSITION);
    AEGP_StreamValue v{};
    v.streamH = other;  // a value naming another stream
    EXPECT_EQ(A_Err_PARAMETER, streams()->AEGP_SetStreamValue(1, s, &v));
    EXPECT_EQ(A_Err_PARAMETER, writeStream(s, 1.0 / 0.0, 0, 0));
    EXPECT_EQ(A_Err_PARAMETER, streams()->AEGP_SetStreamValue(1, s, nullptr));
    EXPECT_EQ(h.project().layer(a)->prop(Prop::position).value, (Vec3{0, 0, 0}));
    // A stream of a layer that is gone.
    h.project().comp(comp)->layers.erase(h.project().comp(comp)->layers.begin());
    EXPECT_EQ(A_Err_PARAMETER, writeStream(s, 1, 2, 3));
    EXPECT_EQ(A_Err_PARAMETER, keys()->AEGP_GetStreamNumKFs(s, &n));
    EXPECT_EQ(2u, h.openStreams());
    streams()->AEGP_DisposeStream(s);
    streams()->AEGP_DisposeStream(other);
    EXPECT_EQ(0u, h.openStreams());
    EXPECT_EQ(A_Err_PARAMETER, streams()->AEGP_DisposeStream(s));
}

}  // namespace
