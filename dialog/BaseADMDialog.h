// The object behind one dialog of the dialog manager: it binds itself to its dialog as the
// dialog's user data and receives init, notify and destroy through static procs.
#pragma once

#include "adm_suites.h"

class BaseADMDialog {
public:
    BaseADMDialog();

    // Called once while the dialog is being created, after the binding; 0 for success.
    virtual ASErr Init();
    virtual void Notify(IADMNotifier notifier);
    virtual void Destroy();
    virtual ~BaseADMDialog();
    virtual ADMDialogRef Create(SPPluginRef plugin, const char* name, ADMInt32 id, ADMDialogStyle style,
                                ADMInt32 options);
    virtual ADMDialogRef CreatePanel(SPPluginRef plugin, const char* name, ADMInt32 id, AEGP_PanelSuite1* panel_suite,
                                     AEGP_PanelH panel, AEGP_PlatformViewRef container,
                                     AEGP_PanelFunctions1* panel_functions, AEGP_PanelRefcon* panel_refcon);

    static ASErr InitProc(ADMDialogRef dialog);
    static void NotifyProc(ADMDialogRef dialog, ADMNotifierRef notifier);
    static void DestroyProc(ADMDialogRef dialog);

    BaseADMDialog(const BaseADMDialog&) = delete;
    BaseADMDialog& operator=(const BaseADMDialog&) = delete;

    // The bound dialog; null before creation, after a failed creation and after destruction.
    ADMDialogRef dialog;
    // When the toolkit destroys the dialog, delete this object too.
    bool deleteOnDestroy;

    // What InitProc answers for a dialog that carries no object.
    static constexpr ASErr kNoBoundObject = 1;

private:
    static BaseADMDialog* bound_object(ADMDialogRef dialog);

    // Watches one Create or CreatePanel: a creation whose failure deleted the object must not
    // store into it afterwards, also when an exception leaves the creation.
    struct CreationWatch;
    // Set while a creation runs; the destructor raises the flag it points to.
    bool* creation_gone_;
};
