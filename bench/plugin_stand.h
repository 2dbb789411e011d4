// The built plug-in module loaded into the host stand-in, with a composition of n selected 3D
// layers and the dialog open as a floating window; "Apply" is clicked as a user would.
#pragma once

#include "host/host.h"
#include "platform/platform.h"

#include <memory>

namespace bench {

struct HostCounts {
    long calls = 0;
    long acquisitions = 0;
};

class PluginStand {
public:
    // Distribute Evenly, so every layer gets a place of its own; with keys, all three "Insert
    // Keys" boxes are on.
    PluginStand(int layers, bool keys);
    ~PluginStand();
    PluginStand(const PluginStand&) = delete;
    PluginStand& operator=(const PluginStand&) = delete;

    void apply();
    // Puts the project back as it was before the last "Apply", so the next one does the same work
    // and the host keeps no growing undo history.
    void undo();

    // Host calls and successful suite acquisitions so far.
    HostCounts counts() const;
    // Layers whose position "Apply" changed from the one they were made with.
    int moved_layers() const;

private:
    void click(int control_id);

    std::unique_ptr<host::Host> host_;
    host::Id comp_ = 0;
    WindowRef window_ = nullptr;
};

}  // namespace bench
