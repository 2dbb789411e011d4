// Recording drawing contexts: what was filled, and in which colour.
#include "platform/internal.h"

using namespace platform::detail;

namespace platform {

CGContextRef createRecordingContext() {
    auto context = std::make_unique<CGContext>();
    CGContextRef ref = context.get();
    state().contexts.emplace(ref, std::move(context));
    return ref;
}

DrawRecord recordedDrawing(CGContextRef context) {
    CGContext* c = liveContext(context);
    return c ? c->record : DrawRecord{};
}

void releaseRecordingContext(CGContextRef context) { state().contexts.erase(context); }

}  // namespace platform

extern "C" {

void CGContextSetRGBFillColor(CGContextRef c, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    CGContext* context = liveContext(c);
    if (!context)
        return;
    auto& r = context->record;
    r.red = red;
    r.green = green;
    r.blue = blue;
    r.alpha = alpha;
}

void CGContextFillRect(CGContextRef c, CGRect rect) {
    CGContext* context = liveContext(c);
    if (!context)
        return;
    auto& r = context->record;
    r.fills.push_back(platform::FillRecord{r.red, r.green, r.blue, r.alpha, rect});
}

}  // extern "C"
