// What the fault sweep found, each pinned down on its own through the built module: the dialog
// gives its selection collection back however it ends, and a refused suite never escapes into
// the window system.
#include "fault_sweep_scenarios.h"
#include "fault_sweep_snapshot.h"

#include <gtest/gtest.h>

namespace sweep {
namespace {

TEST(SweepFindings, ASnapshotTakenByTheMenuUpdateAloneIsGivenBackAtUnload) {
    SweepSession session(HostKind{false, true});
    host::Host& h = session.host();
    ASSERT_EQ(A_Err_NONE, session.load());
    h.updateMenus();  // no window yet, but the selection is read
    ASSERT_EQ(1u, h.openCollections());
    h.unloadPlugin();
    EXPECT_EQ(0u, h.openCollections());
    EXPECT_TRUE(h.allSuitesReleased());
}

TEST(SweepFindings, ASuiteRefusedWhileThePanelGoesIsSurvivedAndTheCollectionGivenBackLater) {
    SweepSession session(HostKind{true, true});
    host::Host& h = session.host();
    ASSERT_TRUE(dialogOpen(session));
    ASSERT_EQ(1u, h.openCollections());
    h.failNthCall(1, 7);  // the collection suite, asked for while the panel's view is disposed
    ASSERT_TRUE(h.disposePanel(kPanelName));
    ASSERT_EQ(std::vector<std::string>{"AcquireSuite"}, h.failedCalls());
    EXPECT_TRUE(h.escapedExceptions().empty());
    EXPECT_EQ(1u, h.openCollections());
    h.unloadPlugin();
    EXPECT_EQ(0u, h.openCollections());
    EXPECT_TRUE(h.allSuitesReleased());
}

TEST(SweepFindings, ASuiteRefusedDuringApplyEndsThePressAndTheNextPressWorks) {
    SweepSession session(HostKind{false, true});
    host::Host& h = session.host();
    ASSERT_TRUE(dialogOpen(session));
    const std::string before = projectSnapshot(h.project());
    h.withholdSuite(kAEGPStreamSuite, kAEGPStreamSuiteVersion4);
    EXPECT_NO_THROW(EXPECT_TRUE(session.click(BUTTON_APPLY)));
    ASSERT_EQ(1u, h.undoGroups().size());
    EXPECT_TRUE(h.undoBalanced());
    EXPECT_EQ(0u, h.openStreams());
    EXPECT_EQ(before, projectSnapshot(h.project()));

    h.offerSuite(kAEGPStreamSuite, kAEGPStreamSuiteVersion4);
    EXPECT_TRUE(session.click(BUTTON_APPLY));
    EXPECT_NE(before, projectSnapshot(h.project()));
}

}  // namespace
}  // namespace sweep
