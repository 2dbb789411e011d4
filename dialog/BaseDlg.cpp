#include "dialog/BaseDlg.h"

#include "shell/global_suites.h"

// The toolkit answers for a dialog that does not exist yet: not enabled.
BaseDlg::BaseDlg() : enabled(sADMDialog->IsEnabled(nullptr) != 0), suites(sSPBasic) {}

BaseDlg::~BaseDlg() = default;

void BaseDlg::Destroy() { BaseADMDialog::Destroy(); }

void BaseDlg::Enable(unsigned char enable) {
    const bool want = enable != 0;
    // Compared with the remembered state, not with the controls: rules of derived dialogs that
    // disabled single controls in between must survive a repeated call.
    if (IsEnabled() == want) {
        return;
    }
    for (ADMItemRef item = sADMDialog->GetFirstItem(dialog); item != nullptr;
         item = sADMDialog->GetNextItem(dialog, item)) {
        if ((sADMItem->IsEnabled(item) != 0) != want) {
            sADMItem->Enable(item, want);
        }
    }
    enabled = want;
}

bool BaseDlg::IsEnabled() const { return enabled; }

ADMItemRef BaseDlg::get_item(ADMInt32 id) const { return sADMDialog->GetItem(dialog, id); }
