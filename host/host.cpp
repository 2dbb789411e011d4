// The host object: construction, the current host, the project and handles.
#include "host/host_state.h"

namespace host {

namespace detail {
void initBasicSuite(SPBasicSuite& basic);
void addBuiltInMenus(State& s);
}  // namespace detail

namespace {
Host* g_current = nullptr;
}

Host::Host() : state_(std::make_unique<detail::State>()) {
    state_->owner = this;
    detail::initBasicSuite(state_->basic);
    detail::addBuiltInMenus(*state_);
    makeCurrent();
}

Host::~Host() {
    // The plug-in's death hook and panel handlers still talk to this host while it goes.
    Host* previous = g_current;
    g_current = this;
    unloadPlugin();
    for (detail::Panel& p : state_->panels) {
        if (p.created) {
            disposePanel(p.match);
        }
    }
    g_current = previous == this ? nullptr : previous;
}

Host* Host::current() { return g_current; }

void Host::makeCurrent() { g_current = this; }

detail::State& Host::state() { return *state_; }

const detail::State& Host::state() const { return *state_; }

Project& Host::project() { return state_->project; }

const Project& Host::project() const { return state_->project; }

void Host::replaceProject(Project project) {
    state_->project = std::move(project);
    state_->undo_stack.clear();
}

AEGP_LayerH Host::layerHandle(Id layer) const { return detail::makeHandle<AEGP_LayerH>(layer, detail::Tag::layer); }

AEGP_CompH Host::compHandle(Id comp) const { return detail::makeHandle<AEGP_CompH>(comp, detail::Tag::comp); }

AEGP_ItemH Host::itemHandle(Id item) const { return detail::makeHandle<AEGP_ItemH>(item, detail::Tag::item); }

Id Host::layerId(AEGP_LayerH layer) const {
    const Id id = detail::handleId(layer, detail::Tag::layer);
    return state_->project.layer(id) != nullptr ? id : 0;
}

Id Host::compId(AEGP_CompH comp) const {
    const Id id = detail::handleId(comp, detail::Tag::comp);
    return state_->project.comp(id) != nullptr ? id : 0;
}

Id Host::itemId(AEGP_ItemH item) const {
    const Id id = detail::handleId(item, detail::Tag::item);
    return state_->project.isItem(id) ? id : 0;
}

}  // namespace host
