// The view hierarchy: adding and removing subviews, walking it, frames and lookup by id.
#include "platform/internal.h"

#include <algorithm>

using namespace platform::detail;

namespace {

bool isAncestor(const OpaqueControlRef* maybeAncestor, const OpaqueControlRef* view) {
    for (const OpaqueControlRef* v = view; v; v = v->parent) {
        if (v == maybeAncestor)
            return true;
    }
    return false;
}

HIViewRef findById(OpaqueControlRef* view, const HIViewID& id) {
    if (view->controlID.signature == id.signature && view->controlID.id == id.id)
        return view;
    for (OpaqueControlRef* child : view->children) {
        if (HIViewRef found = findById(child, id))
            return found;
    }
    return nullptr;
}

}  // namespace

extern "C" {

OSStatus HIViewAddSubview(HIViewRef inParent, HIViewRef inNewChild) {
    OpaqueControlRef* parent = liveControl(inParent);
    OpaqueControlRef* child = liveControl(inNewChild);
    if (!parent || !child)
        return errUnknownControl;
    // A view has one superview, and a view cannot contain itself. Adding a subview again
    // brings it to the front.
    if (child->parent && child->parent != parent)
        return paramErr;
    if (child->rootOf || isAncestor(child, parent))
        return paramErr;
    detachFromParent(child);
    parent->children.push_back(child);
    child->parent = parent;
    return noErr;
}

OSStatus HIViewRemoveFromSuperview(HIViewRef inView) {
    OpaqueControlRef* view = liveControl(inView);
    if (!view)
        return errUnknownControl;
    if (!view->parent)
        return paramErr;
    detachFromParent(view);
    return noErr;
}

HIViewRef HIViewGetSuperview(HIViewRef inView) {
    OpaqueControlRef* view = liveControl(inView);
    return view ? view->parent : nullptr;
}

HIViewRef HIViewGetFirstSubview(HIViewRef inView) {
    OpaqueControlRef* view = liveControl(inView);
    return view && !view->children.empty() ? view->children.front() : nullptr;
}

HIViewRef HIViewGetNextView(HIViewRef inView) {
    OpaqueControlRef* view = liveControl(inView);
    if (!view || !view->parent)
        return nullptr;
    auto& siblings = view->parent->children;
    auto it = std::find(siblings.begin(), siblings.end(), view);
    return it != siblings.end() && it + 1 != siblings.end() ? *(it + 1) : nullptr;
}

OSStatus HIViewGetBounds(HIViewRef inView, HIRect* outRect) {
    OpaqueControlRef* view = liveControl(inView);
    if (!view)
        return errUnknownControl;
    if (!outRect)
        return paramErr;
    const Rect& b = view->bounds;
    *outRect = HIRect{{0, 0}, {CGFloat(b.right - b.left), CGFloat(b.bottom - b.top)}};
    return noErr;
}

OSStatus HIViewGetFrame(HIViewRef inView, HIRect* outRect) {
    OpaqueControlRef* view = liveControl(inView);
    if (!view)
        return errUnknownControl;
    if (!outRect)
        return paramErr;
    const Rect& b = view->bounds;
    *outRect = HIRect{{CGFloat(b.left), CGFloat(b.top)}, {CGFloat(b.right - b.left), CGFloat(b.bottom - b.top)}};
    return noErr;
}

OSStatus HIViewFindByID(HIViewRef inStartView, HIViewID inID, HIViewRef* outView) {
    OpaqueControlRef* start = liveControl(inStartView);
    if (!start)
        return errUnknownControl;
    if (!outView)
        return paramErr;
    *outView = findById(start, inID);
    return *outView ? OSStatus(noErr) : OSStatus(errUnknownControl);
}

}  // extern "C"
