// The binding of dialog objects to toolkit dialogs: creation, callbacks, and the ways a dialog
// and its object end.
#include "dialog/BaseADMDialog.h"

#include "platform/driver.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// What a probe saw; outside the probe so that it can be read after the probe was deleted.
struct ProbeLog {
    int inits = 0, notifies = 0, destroys = 0, deletions = 0;
    std::string notifier;
    ADMInt32 result = 0;
};

class Probe : public BaseADMDialog {
public:
    Probe(ProbeLog& log, ASErr fail_before_procs = 0, ASErr fail_after_procs = 0)
        : log_(log), fail_before_(fail_before_procs), fail_after_(fail_after_procs) {}
    ~Probe() override { ++log_.deletions; }

    ASErr Init() override {
        ++log_.inits;
        if (fail_before_ != 0) {
            return fail_before_;
        }
        const ASErr err = BaseADMDialog::Init();
        return fail_after_ != 0 ? fail_after_ : err;
    }
    void Notify(IADMNotifier notifier) override {
        ++log_.notifies;
        BaseADMDialog::Notify(notifier);
        log_.notifier = notifier->type;
        log_.result = notifier->result;
    }
    void Destroy() override { ++log_.destroys; }
    ADMDialogRef open() { return Create(nullptr, "probe", 0, kADMFloatingDialogStyle, 0); }

private:
    ProbeLog& log_;
    ASErr fail_before_, fail_after_;
};

class DialogWrapper : public ::testing::Test {
protected:
    void SetUp() override { platform::reset(); }
    void TearDown() override { platform::reset(); }
    static std::size_t windows() { return platform::liveCounts().windows; }
    ProbeLog log;
};

TEST_F(DialogWrapper, CreateBindsAndTheCloseBoxReachesNotify) {
    Probe probe(log);
    ADMDialogRef made = probe.open();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(probe.dialog, made);
    EXPECT_EQ(sADMDialog->GetUserData(made), &probe);
    EXPECT_EQ(log.inits, 1);
    sADMDialog->Show(made, true);
    ASSERT_TRUE(platform::pressCloseBox(platform::windows().at(0)).ok());
    EXPECT_EQ(log.notifies, 1);
    EXPECT_EQ(log.notifier, kADMCloseHitNotifier);
    EXPECT_EQ(log.result, kADMEventNotHandled);  // the base leaves it to default handling
    EXPECT_EQ(log.destroys, 0);
}

TEST_F(DialogWrapper, DeletingAnObjectDestroysItsDialogSilentlyAndADestroyedDialogDeletesItsObject) {
    auto* probe = new Probe(log);
    ASSERT_NE(probe->open(), nullptr);
    delete probe;
    EXPECT_EQ(windows(), 0u);
    EXPECT_EQ(log.destroys + log.notifies, 0);
    log = ProbeLog{};
    auto* dropped = new Probe(log);
    sADMDialog->Destroy(dropped->open());
    EXPECT_EQ(log.destroys, 1);
    EXPECT_EQ(log.deletions, 1);
}

TEST_F(DialogWrapper, LongLivedObjectSurvivesItsWindowAndBindsAgain) {
    Probe probe(log);
    probe.deleteOnDestroy = false;
    sADMDialog->Destroy(probe.open());
    EXPECT_EQ(log.destroys, 1);
    EXPECT_EQ(probe.dialog, nullptr);
    EXPECT_EQ(windows(), 0u);

    ADMDialogRef again = probe.open();
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(probe.dialog, again);
    EXPECT_EQ(sADMDialog->GetUserData(again), &probe);
    platform::closeWindow(platform::windows().at(0));  // closed by the system this time
    EXPECT_EQ(log.destroys, 2);
    EXPECT_EQ(probe.dialog, nullptr);
    EXPECT_EQ(log.deletions, 0);
}

TEST_F(DialogWrapper, FailingInitReturnsNullAndLeavesNoDialog) {
    Probe early(log, 7);  // fails before the destroy proc is installed
    EXPECT_EQ(early.open(), nullptr);
    EXPECT_EQ(early.dialog, nullptr);
    EXPECT_EQ(log.destroys, 0);

    Probe kept(log, 0, 7);
    kept.deleteOnDestroy = false;
    EXPECT_EQ(kept.open(), nullptr);
    EXPECT_EQ(kept.dialog, nullptr);
    EXPECT_EQ(log.destroys, 1);

    // The clean-up may delete the object inside Create; Create must not touch it afterwards.
    auto* dropped = new Probe(log, 0, 7);
    EXPECT_EQ(dropped->open(), nullptr);
    EXPECT_EQ(log.destroys, 2);
    EXPECT_EQ(log.deletions, 1);
    EXPECT_EQ(windows(), 0u);
}

}  // namespace
