// Runs a cleanup when the scope is left, also by an exception: host resources such as an open
// undo group or a temporary collection must not outlive the operation that made them.
#pragma once

#include <utility>

template <typename Cleanup>
class OnExit {
public:
    explicit OnExit(Cleanup cleanup) : cleanup_(std::move(cleanup)) {}
    ~OnExit() { cleanup_(); }

    OnExit(const OnExit&) = delete;
    OnExit& operator=(const OnExit&) = delete;

private:
    Cleanup cleanup_;
};
