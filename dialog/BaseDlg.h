// Base of every assistant dialog: a control factory, lookup by identifier, size and centring,
// enabling the whole dialog in one call, and a host suite handler living as long as the object.
#pragma once

#include "dialog/BaseADMDialog.h"
#include "shell/suite_handler.h"

// Width corrections applied to best sizes; each 1.0.
extern const float gAdmStaticControlCorrectionCoef;
extern const float gAdmCheckboxControlCorrectionCoef;
extern const float gAdmRadioControlCorrectionCoef;

class BaseDlg : public BaseADMDialog {
public:
    // Needs the host's basic suite (sSPBasic) for its suite handler.
    BaseDlg();
    ~BaseDlg() override;

    void Destroy() override;

    virtual void Enable(unsigned char enable);
    virtual bool IsEnabled() const;
    // The rectangle gives the size as bottom and right, with top and left 0.
    virtual void SetLocalRect(const IASRect& rect);
    virtual void MoveToScreenCenter();

    // Rectangles handed to the factory are a place and a size: top, left, height (in bottom),
    // width (in right).
    ADMItemRef add_ctrl(const char* item_type, const IASRect& rect, const char* text, ADMInt32 id);
    ADMItemRef add_edit(const IASRect& rect, ADMInt32 id, float minimum, float maximum, float value);
    ADMItemRef add_static(const IASPoint& point, const char* text, ADMInt32 id);
    ADMItemRef add_checkbox(const IASRect& rect, const char* text, ADMInt32 id, int value);
    ADMItemRef add_radio(const IASRect& rect, const char* text, ADMInt32 id, int value);
    ADMItemRef add_frame(const IASRect& rect, const char* text, ADMInt32 id, ADMFrameStyle style);

    // The dialog's control with that identifier, or null (also without a window).
    ADMItemRef get_item(ADMInt32 id) const;

protected:
    bool enabled;
    AEGP_SuiteHandler suites;
};
