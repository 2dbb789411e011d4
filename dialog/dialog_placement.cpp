// Size and screen placement of a BaseDlg.
#include "dialog/BaseDlg.h"

void BaseDlg::SetLocalRect(const IASRect& rect) { sADMDialog->SetLocalRect(dialog, &rect); }

void BaseDlg::MoveToScreenCenter() {
    const IASPoint origin{0, 0};
    IASRect screen{0, 0, 0, 0};
    if (sADMBasic->GetScreenDimensions(&origin, &screen) == 0) {
        return;
    }
    IASRect bounds{0, 0, 0, 0};
    sADMDialog->GetBoundsRect(dialog, &bounds);
    const int width = bounds.right - bounds.left;
    const int height = bounds.bottom - bounds.top;
    // Centred in a screen-sized rectangle at 0, 0; a dialog larger than the screen keeps its
    // top-left corner visible.
    int x = ((screen.right - screen.left) - width) / 2;
    int y = ((screen.bottom - screen.top) - height) / 2;
    if (x < 0) {
        x = 0;
    }
    if (y < 0) {
        y = 0;
    }
    const IASRect centred{static_cast<int16_t>(y), static_cast<int16_t>(x), static_cast<int16_t>(y + height),
                          static_cast<int16_t>(x + width)};
    sADMDialog->SetBoundsRect(dialog, &centred);
}
