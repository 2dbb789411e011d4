// Counting host calls and making them fail on request.
#include "host/host_state.h"

namespace host {

namespace detail {

State* enter(const char* function, A_Err& err) {
    Host* h = Host::current();
    if (h == nullptr) {
        err = A_Err_GENERIC;
        return nullptr;
    }
    State& s = h->state();
    CallSlot& slot = slotFor(s.call_slots, function, 0);
    if (slot.name != function) {
        slot = CallSlot{function, &s.calls.try_emplace(function).first->second};
    }
    ++*slot.count;
    ++s.total_calls;
    A_Err fault = A_Err_NONE;
    if (!s.fail_functions.empty()) {
        if (auto it = s.fail_functions.find(function); it != s.fail_functions.end()) {
            fault = it->second;
        }
    }
    if (s.fail_countdown > 0 && --s.fail_countdown == 0 && fault == A_Err_NONE) {
        fault = s.fail_nth_err;
    }
    if (fault != A_Err_NONE) {
        s.failed.emplace_back(function);
        s.refused.push_back(RefusedCall{function, fault});
        err = fault;
        return nullptr;
    }
    return &s;
}

}  // namespace detail

int Host::callCount(std::string_view function) const {
    auto it = state_->calls.find(function);
    return it == state_->calls.end() ? 0 : it->second;
}

long Host::totalCalls() const { return state_->total_calls; }

std::map<std::string, int> Host::callCounts() const {
    return std::map<std::string, int>(state_->calls.begin(), state_->calls.end());
}

void Host::resetCallCounts() {
    state_->calls.clear();
    state_->call_slots.fill(detail::CallSlot{});
    state_->total_calls = 0;
}

void Host::failNthCall(long n, A_Err err) {
    state_->fail_countdown = n > 0 ? n : 0;
    state_->fail_nth_err = err;
}

void Host::failFunction(std::string function, A_Err err) { state_->fail_functions[std::move(function)] = err; }

void Host::clearFaults() {
    state_->fail_countdown = 0;
    state_->fail_functions.clear();
}

std::vector<std::string> Host::failedCalls() const { return state_->failed; }

const std::vector<RefusedCall>& Host::refusedCalls() const { return state_->refused; }

std::size_t Host::openCollections() const { return state_->collections.size(); }

std::size_t Host::openStreams() const { return state_->streams.size(); }

}  // namespace host
