// A control of a dialog: one platform control made from a dialog-manager type name, with an
// optional static-text label, a numeric value with limits for edit fields, and radio groups.
#pragma once

#include "adm_types.h"
#include "platform/platform.h"
#include "toolkit/iADMList.h"

class iADMDialog;

// The dialog manager's control reference points at the item.
struct _Opaque_ADMItem {};

class iADMItem : public _Opaque_ADMItem {
public:
    // The command every control sends, and the signature of the control id that names its item.
    static constexpr UInt32 kCommandId = PLATFORM_FOUR_CHAR_CODE('D', 'A', 'D', 'M');

    bool Create(iADMDialog* owner, ADMInt32 item_id, const char* type, const IASRect& bounds,
                ADMItemInitProc init_proc);

    void Show(bool show);
    void Enable(bool enable);
    bool IsEnabled() const;

    void SetBoundsRect(const IASRect& r);
    void GetBoundsRect(IASRect& r) const;
    void SetLocalRect(const IASRect& r);
    void GetBestSize(IASPoint& size) const;
    static void CalculateControlBounds(ControlRef c, Rect& out);

    void SetText(const char* text);
    bool GetTextValue(char* buffer, ADMInt32 length) const;
    void SetFont(ADMFont font);

    bool GetBooleanValue() const;
    void SetBooleanValue(bool on);

    float GetFloatValue();
    ADMInt32 GetIntValue();
    void SetFloatValue(float v);
    void SetMinFloatValue(float v);
    void SetMaxFloatValue(float v);
    void updateFloatText();

    iADMList* getList();

    // Forgets the event handler (the platform drops it with a disposed control) or removes it.
    void controlDisposed() { handler = nullptr; }
    void detachHandler();

    static OSStatus S_ItemEventHandler(EventHandlerCallRef call, EventRef event, void* user_data);

    iADMDialog* dialog = nullptr;
    ControlRef control = nullptr;
    ControlRef label = nullptr;
    int16_t labelOffsetY = 0;
    int16_t labelOffsetX = 0;
    IASRect rect{};
    bool isRadio = false;
    bool isFrame = false;
    ADMInt32 id = 0;
    float value = 0;
    float minimum = 0;
    float maximum = 0;
    iADMList list;
    EventHandlerRef handler = nullptr;

private:
    void makeControl(const char* type, const ControlFontStyleRec& style);
    void makeFrame(const ControlFontStyleRec& style);
    void makePopup(const ControlFontStyleRec& style);
    void makeCheckBox(const ControlFontStyleRec& style);
    void makeEdit(const ControlFontStyleRec& style);
    void makeRadio(const ControlFontStyleRec& style);
    void makeStatic(const ControlFontStyleRec& style);
    void connectControl();

    void makeLabel(CFStringRef text);
    void setFontStyle(ControlFontStyleRec& style) const;

    void setRadio();
    bool getRadioDefault() const;
    iADMItem* radioAt(int64_t other_id) const;
};
