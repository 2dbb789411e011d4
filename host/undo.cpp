// Undo groups: they nest, the outermost one takes a snapshot of the project, and undo puts the
// snapshot of the last closed group back.
#include "host/host_state.h"

namespace host {

namespace detail {

void startUndoGroup(State& s, std::string name) {
    UndoGroup group;
    group.name = std::move(name);
    group.depth = s.depth;
    if (s.depth == 0) {
        s.pending = s.project;
        s.pending_group = s.groups.size();
        s.written_in_group.clear();
    }
    s.groups.push_back(std::move(group));
    ++s.depth;
}

A_Err endUndoGroup(State& s) {
    if (s.depth == 0) {
        ++s.stray_ends;
        return A_Err_PARAMETER;
    }
    --s.depth;
    // The innermost open group is the last one opened at this depth.
    for (std::size_t i = s.groups.size(); i-- > 0;) {
        if (s.groups[i].depth == s.depth && !s.groups[i].closed) {
            s.groups[i].closed = true;
            break;
        }
    }
    if (s.depth == 0) {
        s.undo_stack.push_back(UndoSnapshot{s.pending_group, std::move(s.pending)});
        s.pending = Project{};
        s.written_in_group.clear();  // only needed while the group is open
    }
    return A_Err_NONE;
}

void noteWrite(State& s, Id layer) {
    if (s.depth > 0 && s.written_in_group.insert(layer).second) {
        s.groups[s.pending_group].written.push_back(layer);
    }
}

}  // namespace detail

const std::vector<UndoGroup>& Host::undoGroups() const { return state_->groups; }

int Host::undoDepth() const { return state_->depth; }

int Host::strayUndoEnds() const { return state_->stray_ends; }

bool Host::undoBalanced() const { return state_->depth == 0 && state_->stray_ends == 0; }

bool Host::undo() {
    detail::State& s = *state_;
    if (s.depth != 0 || s.undo_stack.empty()) {
        return false;
    }
    detail::UndoSnapshot snapshot = std::move(s.undo_stack.back());
    s.undo_stack.pop_back();
    s.project = std::move(snapshot.project);
    s.groups[snapshot.group].undone = true;
    return true;
}

const Project* Host::undoBase() const {
    const detail::State& s = *state_;
    if (!s.undo_stack.empty()) {
        return &s.undo_stack.front().project;
    }
    return s.depth > 0 ? &s.pending : nullptr;
}

}  // namespace host
