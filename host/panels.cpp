// Workspace panels: the container view made through the window system on first showing, the
// create-panel hook, showing, hiding and disposing, and the plug-in's snap sizes.
#include "host/host_state.h"
#include "platform/driver.h"

#include <algorithm>

namespace host {

namespace detail {

Panel* findPanel(State& s, std::string_view match) {
    for (Panel& p : s.panels) {
        if (p.match == match) {
            return &p;
        }
    }
    return nullptr;
}

Panel* findPanelByHandle(State& s, AEGP_PanelH handle) {
    const Id id = handleId(handle, Tag::panel);
    if (id == 0) {
        return nullptr;
    }
    for (Panel& p : s.panels) {
        if (p.created && p.handle == id) {
            return &p;
        }
    }
    return nullptr;
}

namespace {

A_Err createPanel(State& s, Panel& panel) {
    const Rect bounds{0, 0, static_cast<short>(s.panel_height), static_cast<short>(s.panel_width)};
    panel.view = platform::createPanelView(bounds);
    panel.handle = newId();
    panel.created = true;
    panel.functions = AEGP_PanelFunctions1{};
    panel.panel_refcon = nullptr;
    const std::string match = panel.match;  // the hook may register panels and move `panel`
    const AEGP_PanelH handle = makeHandle<AEGP_PanelH>(panel.handle, Tag::panel);
    AEGP_PanelFunctions1 functions{};
    AEGP_PanelRefcon refcon = nullptr;
    const A_Err err = callHook(s, "create panel", [&] {
        return panel.hook(refconOf(s, panel.plugin), panel.refcon, panel.view, handle, &functions, &refcon);
    });
    Panel* p = findPanel(s, match);
    if (p != nullptr) {
        p->functions = functions;
        p->panel_refcon = refcon;
    }
    return err;
}

}  // namespace

A_Err togglePanel(State& s, Panel& panel) {
    if (!panel.created) {
        const std::string match = panel.match;
        const A_Err err = createPanel(s, panel);
        Panel* p = findPanel(s, match);
        if (p != nullptr && p->created) {
            platform::showPanelView(p->view, true);
            p->shown = true;
        }
        return err;
    }
    panel.shown = !panel.shown;
    platform::showPanelView(panel.view, panel.shown);
    return A_Err_NONE;
}

}  // namespace detail

std::vector<std::string> Host::panelNames() const {
    std::vector<std::string> out;
    for (const detail::Panel& p : state_->panels) {
        out.push_back(p.match);
    }
    return out;
}

A_Err Host::togglePanel(std::string_view match_name) {
    detail::Panel* p = detail::findPanel(*state_, match_name);
    return p == nullptr ? A_Err_PARAMETER : detail::togglePanel(*state_, *p);
}

bool Host::panelCreated(std::string_view match_name) const {
    const detail::Panel* p = detail::findPanel(*state_, match_name);
    return p != nullptr && p->created;
}

bool Host::panelShown(std::string_view match_name) const {
    const detail::Panel* p = detail::findPanel(*state_, match_name);
    return p != nullptr && p->shown;
}

ControlRef Host::panelView(std::string_view match_name) const {
    const detail::Panel* p = detail::findPanel(*state_, match_name);
    return p != nullptr ? p->view : nullptr;
}

std::string Host::panelTitle(std::string_view match_name) const {
    const detail::Panel* p = detail::findPanel(*state_, match_name);
    return p != nullptr ? p->title : std::string();
}

bool Host::disposePanel(std::string_view match_name) {
    detail::Panel* p = detail::findPanel(*state_, match_name);
    if (p == nullptr || !p->created) {
        return false;
    }
    ControlRef view = p->view;
    p->created = false;
    p->shown = false;
    p->view = nullptr;
    p->handle = 0;
    p->functions = AEGP_PanelFunctions1{};
    p->panel_refcon = nullptr;
    // The view's handlers are plug-in code: keep an escaping exception from taking us down.
    detail::callHook(*state_, "dispose panel", [&] {
        platform::disposePanelView(view);
        return A_Err_NONE;
    });
    return true;
}

std::vector<A_LPoint> Host::panelSnapSizes(std::string_view match_name) {
    detail::Panel* p = detail::findPanel(*state_, match_name);
    if (p == nullptr || !p->created || p->functions.GetSnapSizes == nullptr) {
        return {};
    }
    A_LPoint sizes[16]{};
    A_long count = 16;
    const auto get = p->functions.GetSnapSizes;
    const AEGP_PanelRefcon refcon = p->panel_refcon;
    const A_Err err = detail::callHook(*state_, "snap sizes", [&] { return get(refcon, sizes, &count); });
    if (err != A_Err_NONE || count < 0) {
        return {};
    }
    return std::vector<A_LPoint>(sizes, sizes + std::min<A_long>(count, 16));
}

platform::DrawRecord Host::drawPanel(std::string_view match_name) {
    detail::Panel* p = detail::findPanel(*state_, match_name);
    if (p == nullptr || !p->created) {
        return platform::DrawRecord{};
    }
    ControlRef view = p->view;
    platform::DrawRecord record;
    detail::callHook(*state_, "draw panel", [&] {
        record = platform::drawView(view);
        return A_Err_NONE;
    });
    return record;
}

bool Host::panelPaintsBackground(std::string_view match_name) const {
    const detail::Panel* p = detail::findPanel(*state_, match_name);
    return p != nullptr && p->paint_background;
}

void Host::setPanelSize(A_long width, A_long height) {
    state_->panel_width = width;
    state_->panel_height = height;
}

}  // namespace host
