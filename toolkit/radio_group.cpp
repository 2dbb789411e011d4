// Radio groups and boolean values. A group is the run of radio items with consecutive ids; the
// first radio made in a group starts on, and turning one on turns the others off.
#include "toolkit/iADMDialog.h"

#include <limits>

iADMItem* iADMItem::radioAt(int64_t other_id) const {
    if (other_id < std::numeric_limits<ADMInt32>::min() || other_id > std::numeric_limits<ADMInt32>::max()) {
        return nullptr;
    }
    iADMItem* other = dialog->GetItem(static_cast<ADMInt32>(other_id));
    return other != nullptr && other->isRadio ? other : nullptr;
}

bool iADMItem::getRadioDefault() const {
    for (int64_t step = 1; step <= id; ++step) {
        const iADMItem* other = radioAt(int64_t{id} - step);
        if (other == nullptr) {
            break;
        }
        if (other->GetBooleanValue()) {
            return false;
        }
    }
    for (int64_t other_id = int64_t{id} + 1;; ++other_id) {
        const iADMItem* other = radioAt(other_id);
        if (other == nullptr) {
            return true;
        }
        if (other->GetBooleanValue()) {
            return false;
        }
    }
}

void iADMItem::setRadio() {
    SetControl32BitValue(control, 1);
    for (int64_t step = 1; step <= id; ++step) {
        iADMItem* other = radioAt(int64_t{id} - step);
        if (other == nullptr) {
            break;
        }
        SetControl32BitValue(other->control, 0);
    }
    for (int64_t other_id = int64_t{id} + 1;; ++other_id) {
        iADMItem* other = radioAt(other_id);
        if (other == nullptr) {
            break;
        }
        SetControl32BitValue(other->control, 0);
    }
}

bool iADMItem::GetBooleanValue() const { return control != nullptr && GetControl32BitValue(control) != 0; }

void iADMItem::SetBooleanValue(bool on) {
    if (isRadio && on) {
        setRadio();
    } else if (control != nullptr) {
        SetControl32BitValue(control, on ? 1 : 0);
    }
}
