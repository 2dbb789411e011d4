// What a plug-in must leave behind after a host call failed under it: the suites, streams and
// collections it holds, the hooks it let exceptions out of, and the undo groups it opened.
// Every check returns the problems it found as sentences, so that a failing run can say what
// went wrong at which call.
#pragma once

#include "host/host.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace sweep {

// Which part of the plug-in's life a scenario covers decides what it may hold afterwards.
enum class Span {
    startup,   // from nothing; afterwards at most the two suites held until shut-down
    within,    // while loaded; afterwards exactly what it held before
    shutdown,  // to nothing
};

// What the plug-in holds of the host at one moment.
struct Holdings {
    std::map<std::string, int> suites;  // suite key -> acquires not yet released (only non-zero)
    std::size_t collections = 0;
    std::size_t streams = 0;
};

inline Holdings holdingsOf(const host::Host& h) {
    Holdings out;
    for (const std::string& key : h.unreleasedSuites()) {
        const std::size_t slash = key.rfind('/');
        const std::string name = key.substr(0, slash);
        const int32_t version = std::stoi(key.substr(slash + 1));
        out.suites[key] = h.acquireCount(name, version) - h.releaseCount(name, version);
    }
    out.collections = h.openCollections();
    out.streams = h.openStreams();
    return out;
}

// The suites the plug-in keeps from start-up to shut-down.
inline const std::set<std::string>& longHeldSuites() {
    static const std::set<std::string> keys = {
        host::suiteKey(kAEGPWorkspacePanelSuite, kAEGPWorkspacePanelSuiteVersion1),
        host::suiteKey(kPFAppSuite, kPFAppSuiteVersion2),
    };
    return keys;
}

// A release that the host itself refused leaves its object with the host; the plug-in did its
// part by asking. So does a refused suite when shutting down, where there is no later chance to
// dispose of the selection collection. The one failed call of a run excuses at most one object.
struct Excuse {
    int suites = 0;
    std::size_t collections = 0;
    std::size_t streams = 0;
    bool open_group = false;
};

inline Excuse excuseFor(const std::vector<std::string>& failed_calls, Span span) {
    Excuse e;
    for (const std::string& call : failed_calls) {
        e.suites += call == "ReleaseSuite" ? 1 : 0;
        e.collections += call == "AEGP_DisposeCollection" || (span == Span::shutdown && call == "AcquireSuite") ? 1 : 0;
        e.streams += call == "AEGP_DisposeStream" ? 1 : 0;
        e.open_group = e.open_group || call == "AEGP_EndUndoGroup";
    }
    return e;
}

inline std::vector<std::string> suiteProblems(Span span, const Holdings& before, const Holdings& after,
                                              const Excuse& excuse) {
    std::vector<std::string> problems;
    std::set<std::string> keys;
    for (const auto& [key, held] : before.suites) {
        keys.insert(key);
    }
    for (const auto& [key, held] : after.suites) {
        keys.insert(key);
    }
    int excess = 0;
    for (const std::string& key : keys) {
        const int was = before.suites.count(key) ? before.suites.at(key) : 0;
        const int is = after.suites.count(key) ? after.suites.at(key) : 0;
        int low = was;
        int high = was;
        if (span == Span::startup) {
            low = 0;
            high = longHeldSuites().count(key) ? 1 : 0;
        } else if (span == Span::shutdown) {
            low = high = 0;
        }
        if (is < low) {
            problems.push_back("released " + key + " that it held before (" + std::to_string(was) + " -> " +
                               std::to_string(is) + ")");
        }
        if (is > high) {
            excess += is - high;
            if (excess > excuse.suites) {
                problems.push_back("still holds " + key + " (" + std::to_string(was) + " -> " + std::to_string(is) +
                                   ")");
            }
        }
    }
    return problems;
}

inline std::vector<std::string> handleProblems(Span span, const Holdings& after, const Excuse& excuse) {
    std::vector<std::string> problems;
    // While loaded the dialog keeps one selection collection, the last one it read.
    const std::size_t collections = (span == Span::within ? 1 : 0) + excuse.collections;
    if (after.collections > collections) {
        problems.push_back(std::to_string(after.collections) + " collections open, at most " +
                           std::to_string(collections) + " allowed");
    }
    if (after.streams > excuse.streams) {
        problems.push_back(std::to_string(after.streams) + " streams open");
    }
    return problems;
}

// Hooks that must let nothing escape; the entry point, the panel hook and the death hook catch
// nothing, so what they let through is counted but not held against them.
inline bool mustCatch(const std::string& hook) { return hook == "command" || hook == "update menu" || hook == "idle"; }

inline std::vector<std::string> escapeProblems(const host::Host& h, std::size_t from, int* allowed) {
    std::vector<std::string> problems;
    const auto& escaped = h.escapedExceptions();
    for (std::size_t i = from; i < escaped.size(); ++i) {
        if (mustCatch(escaped[i].hook)) {
            problems.push_back("exception escaped from the " + escaped[i].hook + " hook: " + escaped[i].what);
        } else if (allowed != nullptr) {
            ++*allowed;
        }
    }
    return problems;
}

// Ends the group the plug-in could not end because the host refused its EndUndoGroup, as the
// host would on its own next event; false when that is not what happened.
inline bool endRefusedGroup(host::Host& h) {
    const void* table = nullptr;
    SPBasicSuite* basic = h.basicSuite();
    if (basic->AcquireSuite(kAEGPUtilitySuite, kAEGPUtilitySuiteVersion3, &table) != 0 || table == nullptr) {
        return false;
    }
    const A_Err err = static_cast<const AEGP_UtilitySuite3*>(table)->AEGP_EndUndoGroup();
    basic->ReleaseSuite(kAEGPUtilitySuite, kAEGPUtilitySuiteVersion3);
    return err == A_Err_NONE;
}

inline std::vector<std::string> undoProblems(host::Host& h, std::size_t groups_before, const Excuse& excuse) {
    std::vector<std::string> problems;
    if (h.strayUndoEnds() != 0) {
        problems.push_back(std::to_string(h.strayUndoEnds()) + " undo groups ended that were never started");
    }
    int outermost = 0;
    const auto& groups = h.undoGroups();
    for (std::size_t i = groups_before; i < groups.size(); ++i) {
        outermost += groups[i].depth == 0 ? 1 : 0;
    }
    if (outermost > 1) {
        problems.push_back(std::to_string(outermost) + " undo steps for one action");
    }
    if (h.undoDepth() != 0) {
        if (excuse.open_group && h.undoDepth() == 1) {
            if (!endRefusedGroup(h)) {
                problems.push_back("could not end the group the host refused to end");
            }
        } else {
            problems.push_back(std::to_string(h.undoDepth()) + " undo groups left open");
        }
    }
    return problems;
}

}  // namespace sweep
