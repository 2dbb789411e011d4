// The display device list and point-in-rectangle tests.
#include "platform/internal.h"

namespace platform::detail {

void resetDisplays(const std::vector<Rect>& bounds) {
    auto& displays = state().displays;
    displays.clear();
    for (std::size_t i = 0; i < bounds.size(); ++i) {
        auto display = std::make_unique<Display>();
        display->device.gdRefNum = static_cast<SInt16>(i + 1);
        display->device.gdID = static_cast<SInt16>(i);
        display->device.gdRect = bounds[i];
        display->pointer = &display->device;
        displays.push_back(std::move(display));
    }
    for (std::size_t i = 0; i + 1 < displays.size(); ++i) {
        displays[i]->device.gdNextGD = &displays[i + 1]->pointer;
    }
}

}  // namespace platform::detail

namespace platform {

void setDisplays(const std::vector<Rect>& bounds) { detail::resetDisplays(bounds); }

std::vector<Rect> displays() {
    std::vector<Rect> out;
    for (const auto& d : detail::state().displays)
        out.push_back(d->device.gdRect);
    return out;
}

}  // namespace platform

using namespace platform::detail;

extern "C" {

GDHandle GetDeviceList(void) {
    auto& displays = state().displays;
    return displays.empty() ? nullptr : &displays.front()->pointer;
}

GDHandle GetMainDevice(void) { return GetDeviceList(); }

GDHandle GetNextDevice(GDHandle curDevice) {
    if (!curDevice || !*curDevice)
        return nullptr;
    return (*curDevice)->gdNextGD;
}

Boolean PtInRect(Point pt, const Rect* r) {
    if (!r)
        return false;
    return pt.v >= r->top && pt.v < r->bottom && pt.h >= r->left && pt.h < r->right;
}

}  // extern "C"
