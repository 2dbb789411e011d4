// The dialog side of the layer assistant: construction, title and placement, the reaction to
// "Apply" and to the repeat controls, enabling, and the release of host resources.
#include "common/adobe/AssistantDlg.h"

#include "shell/global_suites.h"

AssistantDlg::AssistantDlg(int plugin_id)
    : BaseDlg(),
      plugin_id(plugin_id),
      layers(),
      collection(nullptr),
      comp(nullptr),
      comp_width(0),
      comp_height(0),
      max_width(0),
      max_height(0) {}

// Host resources were released by Destroy; only our own members go here.
// The selection collection is also held while no window exists (menu updates refresh it), so
// the object gives it back itself rather than leave it to the host at unload.
AssistantDlg::~AssistantDlg() {
    try {
        release_collection();
    } catch (...) {
        // A host without the collection suite keeps what it lent; nothing more can be done here.
    }
}

ASErr AssistantDlg::Init() {
    const ASErr err = BaseADMDialog::Init();
    sADMDialog->SetText(dialog, get_name().c_str());
    MoveToScreenCenter();
    return err;
}

void AssistantDlg::Notify(IADMNotifier notifier) {
    const ADMInt32 id = sADMItem->GetID(sADMNotifier->GetItem(notifier));
    if (sADMNotifier->IsNotifierType(notifier, kADMUserChangedNotifier)) {
        if (id == kAssistantApplyId || id == 1) {
            apply_assistant();  // the host reports its own failures to the user
        } else if (id == kAssistantRepeatLayersId) {
            enable_repeat_layers();
        }
    }
    BaseADMDialog::Notify(notifier);
}

namespace {

bool host_offers_layer_suite8() {
    try {
        AEGP_SuiteHandler suites(sSPBasic);
        suites.LayerSuite8();
        return true;
    } catch (int) {
        return false;
    }
}

}  // namespace

void AssistantDlg::Enable(unsigned char enable) {
    BaseDlg::Enable(enable);
    if (enable != 0) {
        enable_repeat_layers();
    }
    // Text layers can only take the size of another selected layer that has a source.
    ADMItemRef crop = get_item(kAssistantCropTextLayersId);
    if (crop != nullptr) {
        const bool usable = host_offers_layer_suite8() && max_width != 0 && max_height != 0;
        sADMItem->Enable(crop, usable);
    }
}

void AssistantDlg::Destroy() {
    BaseDlg::Destroy();
    // This runs inside the toolkit's teardown of the window or panel, which no exception may
    // cross; a collection the host cannot take back now stays held for the destructor to retry.
    try {
        release_collection();
    } catch (...) {
    }
}

void AssistantDlg::release_collection() {
    if (collection != nullptr) {
        AEGP_SuiteHandler suites(sSPBasic);
        suites.CollectionSuite1()->AEGP_DisposeCollection(collection);
        collection = nullptr;
    }
}

// This assistant mirrors no host state in its controls.
void AssistantDlg::OnHostHasChanged() {}
