// A control's hits become "ADM User Changed Notifier" notifications to its dialog.
#include "toolkit/iADMDialog.h"

OSStatus iADMItem::S_ItemEventHandler(EventHandlerCallRef /*call*/, EventRef event, void* user_data) {
    auto* item = static_cast<iADMItem*>(user_data);
    const UInt32 event_class = GetEventClass(event);
    const UInt32 event_kind = GetEventKind(event);
    if (event_class == kEventClassControl && event_kind == kEventControlDispose) {
        item->controlDisposed();
        return eventNotHandledErr;
    }
    if (event_class != kEventClassCommand || event_kind != kEventCommandProcess) {
        return eventNotHandledErr;
    }
    HICommandExtended command{};
    if (GetEventParameter(event, kEventParamDirectObject, typeHICommand, nullptr, sizeof command, nullptr, &command) !=
            noErr ||
        command.commandID != kCommandId) {
        return eventNotHandledErr;
    }
    _Opaque_ADMNotifier notifier{item, kADMUserChangedNotifier, 0};
    if (item->isRadio) {
        item->SetBooleanValue(true);  // the platform turned this one on; the group follows
    }
    iADMDialog* dialog = item->dialog;
    if (dialog->notifyProc == nullptr) {
        return eventNotHandledErr;
    }
    dialog->notifyProc(dialog, &notifier);
    return notifier.result;
}
