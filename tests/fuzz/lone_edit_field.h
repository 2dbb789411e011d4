// One edit field of the dialog alone in a dialog of its own, with the limits and initial value
// of its row in the settings table; the dialog goes with it.
#pragma once

#include "adm_suites.h"
#include "controls/settings_table.h"
#include "shell/global_suites.h"

namespace fuzz {

class LoneEditField {
public:
    explicit LoneEditField(const ControlSpec& control)
        : dialog_(sADMDialog->Create(nullptr, "Fuzz", 0, kADMFloatingDialogStyle, nullptr, nullptr, 0)) {
        IASRect place{10, 10, 30, 110};
        item_ = sADMItem->Create(dialog_, control.id, kADMTextEditType, &place, nullptr, nullptr, 0);
        sADMItem->SetMinFloatValue(item_, control.minimum);
        sADMItem->SetMaxFloatValue(item_, control.maximum);
        sADMItem->SetFloatValue(item_, control.value);
    }
    ~LoneEditField() { sADMDialog->Destroy(dialog_); }
    LoneEditField(const LoneEditField&) = delete;
    LoneEditField& operator=(const LoneEditField&) = delete;

    ADMItemRef item() const { return item_; }

private:
    ADMDialogRef dialog_;
    ADMItemRef item_ = nullptr;
};

}  // namespace fuzz
