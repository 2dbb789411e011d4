// Duplicating layers (the layer suite and the host's duplicate command) and undo groups.
#include "host_fixture.h"

using host::Prop;
using host::Vec3;

namespace {

using HostDuplicate = HostFixture;

TEST_F(HostDuplicate, DuplicateLayerPutsTheCopyDirectlyAboveAndKeepsTheSelection) {
    host::Layer& lb = *h.project().layer(b);
    lb.prop(Prop::position).value = Vec3{1, 2, 3};
    lb.prop(Prop::rotate_z).insertKey(A_Time{0, 1}, Vec3{45, 0, 0});
    h.project().select(comp, {c, b});
    AEGP_LayerH copy = nullptr;
    ASSERT_EQ(A_Err_NONE, layers()->AEGP_DuplicateLayer(h.layerHandle(b), &copy));
    EXPECT_EQ((std::vector<std::string>{"A", "B", "B", "C"}), layerNames());
    EXPECT_EQ(h.layerId(copy), h.project().comp(comp)->layers[1].id);
    EXPECT_EQ((std::vector<host::Id>{c, b}), h.project().comp(comp)->selection);

    const host::Layer& dup = *h.project().layer(h.layerId(copy));
    EXPECT_EQ(b, dup.copy_of);
    EXPECT_EQ(AEGP_ObjectType_TEXT, dup.type);
    EXPECT_EQ(dup.prop(Prop::position).value, (Vec3{1, 2, 3}));
    ASSERT_EQ(1u, dup.prop(Prop::rotate_z).keys.size());
    EXPECT_EQ(45, dup.prop(Prop::rotate_z).keys[0].value.x);
}

TEST_F(HostDuplicate, CommandDuplicatesTheSelectionAndSelectsTheCopiesInACompositionOnly) {
    h.project().select(comp, {c, a});
    ASSERT_EQ(A_Err_NONE, commands()->AEGP_DoCommand(AEGP_Command_DUPLICATE));
    EXPECT_EQ((std::vector<std::string>{"A", "A", "B", "C", "C"}), layerNames());
    const host::Comp& cc = *h.project().comp(comp);
    ASSERT_EQ(2u, cc.selection.size());
    EXPECT_EQ(cc.layers[3].id, cc.selection[0]);  // the copy of C, first as C was
    EXPECT_EQ(cc.layers[0].id, cc.selection[1]);  // the copy of A
    EXPECT_EQ(c, cc.layers[3].copy_of);
    EXPECT_EQ(a, cc.layers[0].copy_of);
    // On its own the command is one undo step of the host.
    ASSERT_EQ(1u, h.undoGroups().size());
    EXPECT_TRUE(h.undo());
    EXPECT_EQ((std::vector<std::string>{"A", "B", "C"}), layerNames());
    h.project().select(comp, {a});
    h.project().active = footage;
    EXPECT_EQ(A_Err_NONE, h.doCommand(AEGP_Command_DUPLICATE));
    EXPECT_EQ(3u, h.project().comp(comp)->layers.size());
}

using HostUndo = HostFixture;

TEST_F(HostUndo, UndoRestoresValuesOrderSelectionAndRemovesCopies) {
    auto* ut = utility();
    auto* ls = layers();
    h.project().select(comp, {a, b});
    ASSERT_EQ(A_Err_NONE, ut->AEGP_StartUndoGroup("Orbisett"));
    AEGP_StreamRefH s = openStream(a, AEGP_LayerStream_POSITION);
    writeStream(s, 5, 6, 7);
    const A_Time now{10, 30};
    keys()->AEGP_InsertKeyframe(s, AEGP_LTimeMode_CompTime, &now, nullptr);
    streams()->AEGP_DisposeStream(s);
    AEGP_LayerH copy = nullptr;
    ls->AEGP_DuplicateLayer(h.layerHandle(b), &copy);
    ls->AEGP_ReorderLayer(h.layerHandle(c), 0);
    commands()->AEGP_DoCommand(AEGP_Command_DUPLICATE);  // nested in the open group
    ASSERT_EQ(A_Err_NONE, ut->AEGP_EndUndoGroup());
    EXPECT_EQ(6u, h.project().comp(comp)->layers.size());  // 3 + 1 duplicated + 2 by the command
    ASSERT_EQ(1u, h.undoGroups().size());
    EXPECT_EQ("Orbisett", h.undoGroups()[0].name);
    EXPECT_TRUE(h.undoGroups()[0].closed);
    // Only A's values were set; copying and reordering touch no property.
    EXPECT_EQ((std::vector<host::Id>{a}), h.undoGroups()[0].written);

    ASSERT_TRUE(h.undo());
    EXPECT_EQ((std::vector<std::string>{"A", "B", "C"}), layerNames());
    EXPECT_EQ(h.project().layer(a)->prop(Prop::position).value, (Vec3{0, 0, 0}));
    EXPECT_TRUE(h.project().layer(a)->prop(Prop::position).keys.empty());
    EXPECT_EQ((std::vector<host::Id>{a, b}), h.project().comp(comp)->selection);
    EXPECT_TRUE(h.undoGroups()[0].undone);
    // Survivors keep their handles; the copy's handle is dead.
    A_long index = -1;
    EXPECT_EQ(A_Err_NONE, ls->AEGP_GetLayerIndex(h.layerHandle(b), &index));
    EXPECT_EQ(1, index);
    EXPECT_EQ(A_Err_PARAMETER, ls->AEGP_GetLayerIndex(copy, &index));
    EXPECT_FALSE(h.undo());
}

TEST_F(HostUndo, GroupsNestOnlyTheOutermostIsAStepAndStepsUndoInReverseOrder) {
    auto* ut = utility();
    ut->AEGP_StartUndoGroup("outer");
    h.project().layer(a)->name = "first";
    ut->AEGP_StartUndoGroup("inner");
    h.project().layer(a)->name = "second";
    ut->AEGP_EndUndoGroup();
    EXPECT_EQ(1, h.undoDepth());
    EXPECT_FALSE(h.undo());  // not while a group is open
    ut->AEGP_EndUndoGroup();
    ASSERT_EQ(2u, h.undoGroups().size());
    EXPECT_EQ(0, h.undoGroups()[0].depth);
    EXPECT_EQ(1, h.undoGroups()[1].depth);
    EXPECT_TRUE(h.undoGroups()[1].closed);
    ASSERT_TRUE(h.undo());
    EXPECT_EQ("A", h.project().layer(a)->name);
    EXPECT_FALSE(h.undo());
    // Steps undo in reverse order.
    for (const char* name : {"one", "two"}) {
        ut->AEGP_StartUndoGroup(name);
        h.project().layer(a)->name = name;
        ut->AEGP_EndUndoGroup();
    }
    ASSERT_TRUE(h.undo());
    EXPECT_EQ("one", h.project().layer(a)->name);
    ASSERT_TRUE(h.undo());
    EXPECT_EQ("A", h.project().layer(a)->name);
}

TEST_F(HostUndo, AStepListsTheLayersItSetInTheOrderOfTheirFirstChange) {
    auto* ut = utility();
    auto set = [&](host::Id layer, AEGP_LayerStream which) {
        AEGP_StreamRefH s = openStream(layer, which);
        writeStream(s, 0, 0, 0);
        streams()->AEGP_DisposeStream(s);
    };
    set(c, AEGP_LayerStream_POSITION);  // outside any group: no step records it
    ut->AEGP_StartUndoGroup("outer");
    set(b, AEGP_LayerStream_SCALE);
    ut->AEGP_StartUndoGroup("inner");
    set(a, AEGP_LayerStream_POSITION);
    set(b, AEGP_LayerStream_POSITION);
    ut->AEGP_EndUndoGroup();
    ut->AEGP_EndUndoGroup();
    ut->AEGP_StartUndoGroup("next");
    set(c, AEGP_LayerStream_ORIENTATION);
    ut->AEGP_EndUndoGroup();
    ASSERT_EQ(3u, h.undoGroups().size());
    EXPECT_EQ((std::vector<host::Id>{b, a}), h.undoGroups()[0].written);
    EXPECT_TRUE(h.undoGroups()[1].written.empty());
    EXPECT_EQ((std::vector<host::Id>{c}), h.undoGroups()[2].written);
}

TEST_F(HostUndo, UnbalancedGroupsShow) {
    auto* ut = utility();
    EXPECT_TRUE(h.undoBalanced());
    EXPECT_EQ(A_Err_PARAMETER, ut->AEGP_EndUndoGroup());
    EXPECT_EQ(1, h.strayUndoEnds());
    EXPECT_FALSE(h.undoBalanced());
    ut->AEGP_StartUndoGroup("left open");
    EXPECT_EQ(1, h.undoDepth());
    ASSERT_EQ(1u, h.undoGroups().size());
    EXPECT_FALSE(h.undoGroups()[0].closed);
    EXPECT_EQ(A_Err_PARAMETER, ut->AEGP_StartUndoGroup(nullptr));
}

}  // namespace
