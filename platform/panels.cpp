// Panel container views that a host makes outside any window, and their draw events.
#include "platform/internal.h"

namespace platform {

using namespace detail;

ControlRef createPanelView(const Rect& bounds) {
    ControlRef view = nullptr;
    registerControl(nullptr, kControlKindUserPane, &bounds, &view, nullptr);
    return view;
}

void showPanelView(ControlRef view, bool visible) {
    if (visible) {
        ShowControl(view);
    } else {
        HideControl(view);
    }
}

void disposePanelView(ControlRef view) { disposeControlTree(liveControl(view)); }

DrawRecord drawView(ControlRef view) {
    std::shared_ptr<OpaqueControlRef> c = sharedControl(view);
    if (!c)
        return DrawRecord{};
    CGContextRef context = createRecordingContext();
    EventRef event = newEvent(kEventClassControl, kEventControlDraw);
    setParam(event, kEventParamDirectObject, typeControlRef, &view, sizeof view);
    setParam(event, kEventParamCGContextRef, typeCGContextRef, &context, sizeof context);
    OSStatus status = dispatch(event, &c->target);
    ReleaseEvent(event);
    DrawRecord record = recordedDrawing(context);
    record.status = status;
    releaseRecordingContext(context);
    return record;
}

}  // namespace platform
