// ADMBasicSuite8: which display a point lies on.
#include "adm_suites.h"
#include "platform/platform.h"

namespace {

ADMBoolean GetScreenDimensions(const IASPoint* point, IASRect* dimensions) {
    if (point == nullptr) {
        return false;
    }
    const Point where{point->v, point->h};
    for (GDHandle device = GetDeviceList(); device != nullptr; device = GetNextDevice(device)) {
        const Rect& bounds = (*device)->gdRect;
        if (PtInRect(where, &bounds)) {
            if (dimensions != nullptr) {
                *dimensions = IASRect{bounds.top, bounds.left, bounds.bottom, bounds.right};
            }
            return true;
        }
    }
    return false;
}

}  // namespace

ADMBasicSuite8 g_ADMBasicSuite = {GetScreenDimensions};
