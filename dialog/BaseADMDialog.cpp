#include "dialog/BaseADMDialog.h"

BaseADMDialog::BaseADMDialog() : dialog(nullptr), deleteOnDestroy(true), creation_gone_(nullptr) {}

ASErr BaseADMDialog::Init() {
    sADMDialog->SetNotifyProc(dialog, NotifyProc);
    sADMDialog->SetDestroyProc(dialog, DestroyProc);
    return 0;
}

void BaseADMDialog::Notify(IADMNotifier notifier) { sADMDialog->DefaultNotify(dialog, notifier); }

void BaseADMDialog::Destroy() {}

BaseADMDialog::~BaseADMDialog() {
    if (creation_gone_ != nullptr) {
        *creation_gone_ = true;
    }
    if (dialog != nullptr) {
        // Detach first: the toolkit must not call back into an object that is half destroyed.
        sADMDialog->SetUserData(dialog, nullptr);
        sADMDialog->SetNotifyProc(dialog, nullptr);
        sADMDialog->SetDestroyProc(dialog, nullptr);
        sADMDialog->Destroy(dialog);
        dialog = nullptr;
    }
}

struct BaseADMDialog::CreationWatch {
    explicit CreationWatch(BaseADMDialog* watched) : self(watched) { self->creation_gone_ = &gone; }
    ~CreationWatch() {
        if (!gone) {
            self->creation_gone_ = nullptr;
        }
    }
    CreationWatch(const CreationWatch&) = delete;
    CreationWatch& operator=(const CreationWatch&) = delete;

    BaseADMDialog* self;
    bool gone = false;
};

ADMDialogRef BaseADMDialog::Create(SPPluginRef plugin, const char* name, ADMInt32 id, ADMDialogStyle style,
                                   ADMInt32 options) {
    CreationWatch watch(this);
    ADMDialogRef made = sADMDialog->Create(plugin, name, id, style, InitProc, this, options);
    if (!watch.gone) {
        dialog = made;
    }
    return made;
}

ADMDialogRef BaseADMDialog::CreatePanel(SPPluginRef plugin, const char* name, ADMInt32 id,
                                        AEGP_PanelSuite1* panel_suite, AEGP_PanelH panel,
                                        AEGP_PlatformViewRef container, AEGP_PanelFunctions1* panel_functions,
                                        AEGP_PanelRefcon* panel_refcon) {
    CreationWatch watch(this);
    ADMDialogRef made = sADMDialog->CreatePanel(plugin, name, id, InitProc, this, panel_suite, panel, container,
                                                panel_functions, panel_refcon);
    if (!watch.gone) {
        dialog = made;
    }
    return made;
}

BaseADMDialog* BaseADMDialog::bound_object(ADMDialogRef dialog) {
    return static_cast<BaseADMDialog*>(sADMDialog->GetUserData(dialog));
}

ASErr BaseADMDialog::InitProc(ADMDialogRef dialog) {
    BaseADMDialog* self = bound_object(dialog);
    if (self == nullptr) {
        return kNoBoundObject;
    }
    // The toolkit calls this before Create returns: the first moment the object knows its dialog.
    self->dialog = dialog;
    return self->Init();
}

// The dialog manager calls this from its event handling, which no exception may cross: a host
// suite refused in the middle of "Apply" ends that press as a host error would.
void BaseADMDialog::NotifyProc(ADMDialogRef dialog, ADMNotifierRef notifier) {
    BaseADMDialog* self = bound_object(dialog);
    if (self == nullptr) {
        return;
    }
    try {
        self->Notify(notifier);
    } catch (...) {
    }
}

void BaseADMDialog::DestroyProc(ADMDialogRef dialog) {
    BaseADMDialog* self = bound_object(dialog);
    if (self == nullptr) {
        return;
    }
    self->Destroy();
    if (self->deleteOnDestroy) {
        delete self;
    } else {
        self->dialog = nullptr;
    }
}
