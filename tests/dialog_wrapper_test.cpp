// The binding of dialog objects to toolkit dialogs: creation, callbacks, and the two ways a
// dialog and its object can end.
#include "dialog/BaseADMDialog.h"

#include "platform/driver.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// What a probe saw; kept outside the probe so it can be read after the probe was deleted.
struct ProbeLog {
    int inits = 0;
    int notifies = 0;
    int destroys = 0;
    int deletions = 0;
    std::string last_notifier;
    ADMInt32 last_result = 0;
};

class Probe : public BaseADMDialog {
public:
    explicit Probe(ProbeLog& log, ASErr fail_before_procs = 0, ASErr fail_after_procs = 0)
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
        log_.last_notifier = notifier->type;
        BaseADMDialog::Notify(notifier);
        log_.last_result = notifier->result;
    }
    void Destroy() override { ++log_.destroys; }

    ADMDialogRef open() { return Create(nullptr, "probe", 0, kADMFloatingDialogStyle, 0); }

private:
    ProbeLog& log_;
    ASErr fail_before_;
    ASErr fail_after_;
};

class DialogWrapper : public ::testing::Test {
protected:
    void SetUp() override { platform::reset(); }
    void TearDown() override { platform::reset(); }

    static WindowRef only_window() {
        const auto all = platform::windows();
        return all.size() == 1 ? all.front() : nullptr;
    }
};

TEST_F(DialogWrapper, CreateBindsTheObjectBeforeReturning) {
    ProbeLog log;
    Probe probe(log);
    ADMDialogRef made = probe.open();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(probe.dialog, made);
    EXPECT_EQ(sADMDialog->GetUserData(made), &probe);
    EXPECT_EQ(log.inits, 1);
    EXPECT_NE(only_window(), nullptr);
}

TEST_F(DialogWrapper, DeletingABoundObjectDestroysItsDialogWithoutCallingBack) {
    ProbeLog log;
    auto* probe = new Probe(log);
    ASSERT_NE(probe->open(), nullptr);
    ASSERT_EQ(platform::liveCounts().windows, 1u);
    delete probe;
    EXPECT_EQ(platform::liveCounts().windows, 0u);
    EXPECT_EQ(log.destroys, 0);
    EXPECT_EQ(log.notifies, 0);
    EXPECT_EQ(log.deletions, 1);
}

TEST_F(DialogWrapper, CloseBoxReachesNotifyAndIsLeftToDefaultHandling) {
    ProbeLog log;
    Probe probe(log);
    ASSERT_NE(probe.open(), nullptr);
    sADMDialog->Show(probe.dialog, true);
    WindowRef window = only_window();
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(platform::pressCloseBox(window).ok());
    EXPECT_EQ(log.notifies, 1);
    EXPECT_EQ(log.last_notifier, kADMCloseHitNotifier);
    EXPECT_EQ(log.last_result, kADMEventNotHandled);
    EXPECT_EQ(log.destroys, 0);  // the close box only hides
    EXPECT_NE(probe.dialog, nullptr);
}

TEST_F(DialogWrapper, LongLivedObjectSurvivesItsWindowAndBindsAgain) {
    ProbeLog log;
    Probe probe(log);
    probe.deleteOnDestroy = false;
    ADMDialogRef first = probe.open();
    ASSERT_NE(first, nullptr);
    sADMDialog->Destroy(first);
    EXPECT_EQ(log.destroys, 1);
    EXPECT_EQ(log.deletions, 0);
    EXPECT_EQ(probe.dialog, nullptr);
    EXPECT_EQ(platform::liveCounts().windows, 0u);

    ADMDialogRef second = probe.open();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(probe.dialog, second);
    EXPECT_EQ(sADMDialog->GetUserData(second), &probe);
    EXPECT_EQ(log.inits, 2);
}

TEST_F(DialogWrapper, WindowClosedBySystemCallsDestroyOnceAndUnbinds) {
    ProbeLog log;
    Probe probe(log);
    probe.deleteOnDestroy = false;
    ASSERT_NE(probe.open(), nullptr);
    platform::closeWindow(only_window());
    EXPECT_EQ(log.destroys, 1);
    EXPECT_EQ(probe.dialog, nullptr);
}

TEST_F(DialogWrapper, DestroyedDialogDeletesObjectWhenAsked) {
    ProbeLog log;
    auto* probe = new Probe(log);
    ADMDialogRef made = probe->open();
    ASSERT_NE(made, nullptr);
    sADMDialog->Destroy(made);
    EXPECT_EQ(log.destroys, 1);
    EXPECT_EQ(log.deletions, 1);
    EXPECT_EQ(platform::liveCounts().windows, 0u);
}

TEST_F(DialogWrapper, InitFailingBeforeProcsReturnsNullAndLeavesObjectUnbound) {
    ProbeLog log;
    Probe probe(log, /*fail_before_procs=*/7);
    EXPECT_EQ(probe.open(), nullptr);
    EXPECT_EQ(probe.dialog, nullptr);
    EXPECT_EQ(log.destroys, 0);  // no destroy proc was installed yet
    EXPECT_EQ(platform::liveCounts().windows, 0u);
}

TEST_F(DialogWrapper, InitFailingAfterProcsRunsDestroyAndLeavesDialogNull) {
    ProbeLog log;
    Probe probe(log, 0, /*fail_after_procs=*/7);
    probe.deleteOnDestroy = false;
    EXPECT_EQ(probe.open(), nullptr);
    EXPECT_EQ(probe.dialog, nullptr);
    EXPECT_EQ(log.destroys, 1);
    EXPECT_EQ(log.deletions, 0);
}

TEST_F(DialogWrapper, InitFailingAfterProcsMayDeleteTheObjectDuringCreate) {
    ProbeLog log;
    auto* probe = new Probe(log, 0, 7);
    EXPECT_EQ(probe->open(), nullptr);
    EXPECT_EQ(log.destroys, 1);
    EXPECT_EQ(log.deletions, 1);
    EXPECT_EQ(platform::liveCounts().windows, 0u);
}

TEST_F(DialogWrapper, ProcsWithoutObjectDoNothing) {
    // A dialog that carries no object (as after the destructor detached it).
    EXPECT_NE(BaseADMDialog::InitProc(nullptr), 0);
    BaseADMDialog::NotifyProc(nullptr, nullptr);
    BaseADMDialog::DestroyProc(nullptr);
}

}  // namespace
