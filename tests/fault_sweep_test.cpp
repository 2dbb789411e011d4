// Every host call that one moment of the plug-in's life makes is made to fail in turn, each time
// in a fresh host: whatever fails, the plug-in must leave the host whole. No hook that must catch
// lets an exception out, every undo group is closed, every suite, stream and collection taken is
// given back, no value becomes NaN or infinite, and either nothing changed or one undo restores
// the project exactly.
#include "failing_allocation.h"
#include "fault_sweep_scenarios.h"
#include "fault_sweep_snapshot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <string>
#include <tuple>
#include <vector>

namespace sweep {
namespace {

struct RunResult {
    bool prepared = true;
    long calls = 0;                   // host calls the swept action made
    std::vector<std::string> failed;  // the calls the host made fail
    std::vector<std::string> problems;
    int allowed_escapes = 0;  // from hooks that catch nothing
    bool changed = false;
};

void append(std::vector<std::string>& to, const std::vector<std::string>& more) {
    to.insert(to.end(), more.begin(), more.end());
}

std::string joined(const std::vector<std::string>& lines) {
    std::string out;
    for (const std::string& line : lines) {
        out += "  " + line + "\n";
    }
    return out;
}

// After the run the plug-in is unloaded without faults; then nothing at all may be left.
std::vector<std::string> shutDownProblems(host::Host& h, const Excuse& excuse) {
    const std::size_t escapes = h.escapedExceptions().size();
    h.unloadPlugin();
    std::vector<std::string> problems;
    append(problems, suiteProblems(Span::shutdown, Holdings{}, holdingsOf(h), excuse));
    append(problems, handleProblems(Span::shutdown, holdingsOf(h), excuse));
    if (h.escapedExceptions().size() != escapes) {
        problems.push_back("an exception escaped while unloading: " + h.escapedExceptions().back().what);
    }
    return problems;
}

std::vector<std::string> projectProblems(host::Host& h, const std::string& before, bool* changed) {
    std::vector<std::string> problems;
    for (const std::string& where : nonFiniteValues(h.project())) {
        problems.push_back("not finite: " + where);
    }
    *changed = projectSnapshot(h.project()) != before;
    if (*changed) {
        if (!h.undo()) {
            problems.push_back("the project changed but there is nothing to undo");
        } else if (projectSnapshot(h.project()) != before) {
            problems.push_back("one undo does not restore the project");
        }
    }
    return problems;
}

// Prepares the scenario, makes call `k` of its action fail with `err` (k = 0: none), checks.
RunResult runScenario(const Scenario& scenario, long k, A_Err err) {
    RunResult run;
    SweepSession session(scenario.kind);
    if (!scenario.prepare(session)) {
        run.prepared = false;
        return run;
    }
    host::Host& h = session.host();
    const Holdings before = holdingsOf(h);
    const std::string project_before = projectSnapshot(h.project());
    const std::size_t groups_before = h.undoGroups().size();
    const std::size_t escapes_before = h.escapedExceptions().size();
    const long calls_before = h.totalCalls();
    if (k > 0) {
        h.failNthCall(k, err);
    }

    scenario.act(session);

    h.clearFaults();
    run.calls = h.totalCalls() - calls_before;
    run.failed = h.failedCalls();
    const Excuse excuse = excuseFor(run.failed, scenario.span);
    const Holdings after = holdingsOf(h);
    append(run.problems, suiteProblems(scenario.span, before, after, excuse));
    append(run.problems, handleProblems(scenario.span, after, excuse));
    append(run.problems, escapeProblems(h, escapes_before, &run.allowed_escapes));
    if (h.strayReleases() != 0) {
        run.problems.push_back(std::to_string(h.strayReleases()) + " releases of suites not held");
    }
    append(run.problems, undoProblems(h, groups_before, excuse));
    append(run.problems, projectProblems(h, project_before, &run.changed));
    if (scenario.span != Span::shutdown) {
        append(run.problems, shutDownProblems(h, excuse));
    }
    const platform::LiveCounts live = platform::liveCounts();
    if (live.windows != 0 || live.controls != 0) {
        run.problems.push_back("after unloading " + std::to_string(live.windows) + " windows and " +
                               std::to_string(live.controls) + " controls are left");
    }
    return run;
}

class FaultSweep : public ::testing::TestWithParam<std::tuple<std::size_t, A_Err>> {};

TEST_P(FaultSweep, EveryHostCallFailsInTurn) {
    const auto [index, err] = GetParam();
    const Scenario scenario = scenarios()[index];

    const RunResult clean = runScenario(scenario, 0, err);
    ASSERT_TRUE(clean.prepared) << scenario.name << ": the starting point cannot be reached";
    ASSERT_TRUE(clean.failed.empty());
    ASSERT_TRUE(clean.problems.empty()) << scenario.name << " without faults:\n" << joined(clean.problems);
    ASSERT_GT(clean.calls, 0);

    int changed = 0;
    int escapes = 0;
    for (long k = 1; k <= clean.calls; ++k) {
        const RunResult run = runScenario(scenario, k, err);
        ASSERT_TRUE(run.prepared);
        // The first k - 1 calls are those of the clean run, so call k is always reached.
        ASSERT_EQ(1u, run.failed.size()) << scenario.name << ": call " << k << " was never made";
        EXPECT_TRUE(run.problems.empty()) << scenario.name << ", call " << k << " of " << clean.calls << " ("
                                          << run.failed[0] << ") failing with " << err << ":\n"
                                          << joined(run.problems);
        changed += run.changed ? 1 : 0;
        escapes += run.allowed_escapes;
    }
    std::printf(
        "[  sweep   ] %-36s error %3d: %4ld faults injected, %4d runs changed the project and were undone, "
        "%d exceptions out of hooks that catch nothing\n",
        scenario.name.c_str(), static_cast<int>(err), clean.calls, changed, escapes);
}

// A scenario's name as a test name: anything but letters and digits becomes '_'.
std::string identifier(std::size_t scenario) {
    std::string name = scenarios()[scenario].name;
    const auto other = [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); };
    std::replace_if(name.begin(), name.end(), other, '_');
    return name;
}

std::string testName(const ::testing::TestParamInfo<FaultSweep::ParamType>& info) {
    return identifier(std::get<0>(info.param)) + "_error" + std::to_string(std::get<1>(info.param));
}

INSTANTIATE_TEST_SUITE_P(Scenarios, FaultSweep,
                         ::testing::Combine(::testing::Range<std::size_t>(0, scenarios().size()),
                                            ::testing::Values(A_Err{7}, A_Err{A_Err_BAD_CALLBACK_PARAM})),
                         testName);

// Besides the host's error codes, the one exception that can meet the plug-in is a failed
// allocation. Made to happen at each allocation of the module's own code in turn, in the moments
// run by hooks that must catch, it never escapes a hook, and the program goes on.
class AllocationSweep : public ::testing::TestWithParam<std::size_t> {};

TEST_P(AllocationSweep, EveryAllocationOfThePlugInFailsInTurn) {
    const Scenario scenario = scenarios()[GetParam()];
    long allocations = 0;
    {
        SweepSession session(scenario.kind);
        ASSERT_TRUE(scenario.prepare(session));
        failing_allocation::watch(ORBISETT_MODULE_PATH);
        scenario.act(session);
        allocations = failing_allocation::count();
        failing_allocation::stop();
    }
    ASSERT_GT(allocations, 0);
    int allowed = 0;
    for (long k = 0; k < allocations; ++k) {
        SweepSession session(scenario.kind);
        ASSERT_TRUE(scenario.prepare(session));
        host::Host& h = session.host();
        const std::size_t escapes_before = h.escapedExceptions().size();
        failing_allocation::watch(ORBISETT_MODULE_PATH, k);
        EXPECT_NO_THROW(scenario.act(session)) << scenario.name << ", allocation " << k;
        failing_allocation::stop();
        ASSERT_TRUE(failing_allocation::failed()) << scenario.name << ": allocation " << k << " was never made";
        const std::vector<std::string> problems = escapeProblems(h, escapes_before, &allowed);
        EXPECT_TRUE(problems.empty()) << scenario.name << ", allocation " << k << " of " << allocations << ":\n"
                                      << joined(problems);
    }
    std::printf("[  sweep   ] %-36s %5ld allocations failed in turn, %d exceptions out of hooks that catch nothing\n",
                scenario.name.c_str(), allocations, allowed);
}

// The moments whose hooks must catch: start-up, opening, idle refresh and the menu update.
INSTANTIATE_TEST_SUITE_P(Scenarios, AllocationSweep, ::testing::Range<std::size_t>(0, 7),
                         [](const ::testing::TestParamInfo<std::size_t>& info) { return identifier(info.param); });

// The sweep's own checks must see what they are there to see.
TEST(SweepChecks, OneBitInOneKeyOrTheSelectionOrderChangesTheSnapshotAndNonFiniteKeysAreNamed) {
    host::Project p;
    const host::Id comp = p.addComp("Main", 100, 100);
    const host::Id a = p.addLayer(comp, "A", AEGP_ObjectType_AV, true);
    const host::Id b = p.addLayer(comp, "B", AEGP_ObjectType_AV, true);
    p.layer(a)->prop(host::Prop::position).insertKey(A_Time{1, 30}, host::Vec3{0.1, 0, 0});
    p.select(comp, {a, b});
    std::string before = projectSnapshot(p);
    p.layer(a)->prop(host::Prop::position).keys[0].value.x = std::nextafter(0.1, 1.0);
    EXPECT_NE(before, projectSnapshot(p));
    before = projectSnapshot(p);
    p.select(comp, {b, a});
    EXPECT_NE(before, projectSnapshot(p));
    EXPECT_TRUE(nonFiniteValues(p).empty());
    p.layer(b)->prop(host::Prop::scale).insertKey(A_Time{0, 1}, host::Vec3{100, INFINITY, 100});
    EXPECT_EQ(std::vector<std::string>{"B scale"}, nonFiniteValues(p));
}

TEST(SweepChecks, KeptSuitesAndHandlesAreFoundUnlessAllowedOrTheirReleaseWasRefused) {
    const Holdings before{{{"PF AE App Suite/2", 1}}, 1, 0};
    const Holdings after{{{"PF AE App Suite/2", 1}, {"AEGP Layer Suite/5", 1}}, 1, 0};
    EXPECT_EQ(1u, suiteProblems(Span::within, before, after, Excuse{}).size());
    EXPECT_TRUE(suiteProblems(Span::within, before, after, excuseFor({"ReleaseSuite"}, Span::within)).empty());
    EXPECT_EQ(2u, suiteProblems(Span::shutdown, before, after, Excuse{}).size());
    // Start-up may keep only the panel and app suites.
    const Holdings started{{{"PF AE App Suite/2", 1}, {"AEGP Workspace Panel Suite/1", 1}}, 0, 0};
    EXPECT_TRUE(suiteProblems(Span::startup, Holdings{}, started, Excuse{}).empty());
    const Holdings more{{{"PF AE App Suite/2", 2}}, 0, 0};
    EXPECT_EQ(1u, suiteProblems(Span::startup, Holdings{}, more, Excuse{}).size());
    // Only the held selection collection may stay open.
    EXPECT_TRUE(handleProblems(Span::within, Holdings{{}, 1, 0}, Excuse{}).empty());
    EXPECT_EQ(1u, handleProblems(Span::within, Holdings{{}, 2, 0}, Excuse{}).size());
    EXPECT_EQ(1u, handleProblems(Span::shutdown, Holdings{{}, 1, 0}, Excuse{}).size());
    EXPECT_EQ(1u, handleProblems(Span::within, Holdings{{}, 0, 1}, Excuse{}).size());
    EXPECT_TRUE(
        handleProblems(Span::within, Holdings{{}, 0, 1}, excuseFor({"AEGP_DisposeStream"}, Span::within)).empty());
}

}  // namespace
}  // namespace sweep
