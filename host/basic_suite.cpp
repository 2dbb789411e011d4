// The basic suite: suites served by name and version, counted per acquire and release, and
// refused when withheld.
#include "host/suite_call.h"
#include "host/suite_tables.h"

#include <cstdlib>
#include <cstring>
#include <vector>

namespace host {

namespace detail {

namespace {

const std::vector<ServedSuite>& servedSuites() {
    static const std::vector<ServedSuite> all = [] {
        std::vector<ServedSuite> suites;
        for (std::span<const ServedSuite> file :
             {registerSuites(), commandSuites(), utilitySuites(), collectionSuites(), compAndItemSuites(),
              layerSuites(), streamAndKeyframeSuites(), panelSuites(), appSuites()}) {
            suites.insert(suites.end(), file.begin(), file.end());
        }
        return suites;
    }();
    return all;
}

}  // namespace

const void* suiteTable(std::string_view name, int32_t version) {
    for (const ServedSuite& e : servedSuites()) {
        if (e.name == name && e.version == version) {
            return e.table;
        }
    }
    return nullptr;
}

std::vector<std::string> suiteKeys() {
    std::vector<std::string> keys;
    for (const ServedSuite& e : servedSuites()) {
        keys.push_back(suiteKey(e.name, e.version));
    }
    return keys;
}

void forgetSuiteSlots(State& s) { s.suite_slots.fill(SuiteSlot{}); }

namespace {

SuiteSlot& suiteSlot(State& s, const char* name, int32_t version) {
    SuiteSlot& slot = slotFor(s.suite_slots, name, static_cast<std::uint32_t>(version));
    if (slot.name == name && slot.version == version && slot.text == name) {
        return slot;
    }
    const std::string key = suiteKey(name, version);
    const auto counted = s.suite_counts.find(key);
    slot = SuiteSlot{name,
                     version,
                     name,
                     suiteTable(name, version),
                     s.withheld.count(key) != 0,
                     counted == s.suite_counts.end() ? nullptr : &counted->second};
    return slot;
}

SPErr acquireSuite(const char* name, int32_t version, const void** suite) {
    return hostCall("AcquireSuite", given(name, suite), [&](State& s) {
        SuiteSlot* slot = &suiteSlot(s, name, version);
        if (slot->table == nullptr || slot->withheld) {
            s.refused.push_back(RefusedCall{"AcquireSuite " + suiteKey(name, version), A_Err_MISSING_SUITE});
            return A_Err_MISSING_SUITE;
        }
        if (slot->count == nullptr) {
            // A suite counted for the first time: slots holding no count for it must look again.
            s.suite_counts.try_emplace(suiteKey(name, version));
            forgetSuiteSlots(s);
            slot = &suiteSlot(s, name, version);
        }
        ++slot->count->acquired;
        *suite = slot->table;
        return A_Err_NONE;
    });
}

SPErr releaseSuite(const char* name, int32_t version) {
    return hostCall("ReleaseSuite", given(name), [&](State& s) {
        SuiteCount* count = suiteSlot(s, name, version).count;
        if (count == nullptr || count->released >= count->acquired) {
            ++s.stray_releases;
            return A_Err_PARAMETER;
        }
        ++count->released;
        return A_Err_NONE;
    });
}

A_Boolean isEqual(const char* a, const char* b) {
    A_Err err = A_Err_NONE;
    if (enter("IsEqual", err) == nullptr) {
        return 0;
    }
    return a != nullptr && b != nullptr && std::strcmp(a, b) == 0;
}

// Hands out a block the allocator gave; blocks are at least one byte, so that one asked for with
// size 0 is still a block to free.
SPErr allocated(void* p, void** block) {
    if (p == nullptr) {
        return A_Err_ALLOC;
    }
    *block = p;
    return A_Err_NONE;
}

SPErr allocateBlock(std::size_t size, void** block) {
    return hostCall("AllocateBlock", given(block),
                    [&](State&) { return allocated(std::malloc(size == 0 ? 1 : size), block); });
}

SPErr freeBlock(void* block) {
    return hostCall("FreeBlock", [&](State&) {
        std::free(block);
        return A_Err_NONE;
    });
}

SPErr reallocateBlock(void* block, std::size_t new_size, void** new_block) {
    return hostCall("ReallocateBlock", given(new_block),
                    [&](State&) { return allocated(std::realloc(block, new_size == 0 ? 1 : new_size), new_block); });
}

SPErr undefined() {
    return hostCall("Undefined", [](State&) { return A_Err_GENERIC; });
}

}  // namespace

void initBasicSuite(SPBasicSuite& basic) {
    basic = SPBasicSuite{acquireSuite, releaseSuite, isEqual, allocateBlock, freeBlock, reallocateBlock, undefined};
}

}  // namespace detail

std::string suiteKey(std::string_view name, int32_t version) {
    return std::string(name) + "/" + std::to_string(version);
}

SPBasicSuite* Host::basicSuite() { return &state_->basic; }

void Host::withholdSuite(std::string_view name, int32_t version) {
    state_->withheld.insert(suiteKey(name, version));
    detail::forgetSuiteSlots(*state_);
}

void Host::offerSuite(std::string_view name, int32_t version) {
    state_->withheld.erase(suiteKey(name, version));
    detail::forgetSuiteSlots(*state_);
}

bool Host::isWithheld(std::string_view name, int32_t version) const {
    return state_->withheld.count(suiteKey(name, version)) != 0;
}

std::vector<std::string> Host::withheldSuites() const {
    return std::vector<std::string>(state_->withheld.begin(), state_->withheld.end());
}

int Host::acquireCount(std::string_view name, int32_t version) const {
    auto it = state_->suite_counts.find(suiteKey(name, version));
    return it == state_->suite_counts.end() ? 0 : it->second.acquired;
}

int Host::releaseCount(std::string_view name, int32_t version) const {
    auto it = state_->suite_counts.find(suiteKey(name, version));
    return it == state_->suite_counts.end() ? 0 : it->second.released;
}

int Host::acquireCount() const {
    int total = 0;
    for (const auto& [key, count] : state_->suite_counts) {
        total += count.acquired;
    }
    return total;
}

bool Host::allSuitesReleased() const { return unreleasedSuites().empty(); }

std::vector<std::string> Host::unreleasedSuites() const {
    std::vector<std::string> out;
    for (const auto& [key, count] : state_->suite_counts) {
        if (count.acquired != count.released) {
            out.push_back(key);
        }
    }
    return out;
}

int Host::strayReleases() const { return state_->stray_releases; }

}  // namespace host
