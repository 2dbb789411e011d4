// ADMItemSuite10: controls of a dialog.
#include "controls/number_text.h"
#include "toolkit/suite_access.h"

#include <algorithm>
#include <cstring>

using toolkit::dialogOf;
using toolkit::itemOf;

namespace {

ADMItemRef Create(ADMDialogRef dialog, ADMInt32 item_id, const char* item_type, const IASRect* bounds,
                  ADMItemInitProc init_proc, ADMUserData /*user_data*/, ADMInt32 /*options*/) {
    if (dialog == nullptr) {
        return nullptr;
    }
    iADMItem* item = dialogOf(dialog)->AddItem();
    if (item == nullptr) {
        return nullptr;
    }
    // A failed item stays in the dialog: references to the items after it must keep their places.
    return item->Create(dialogOf(dialog), item_id, item_type, bounds != nullptr ? *bounds : IASRect{}, init_proc)
               ? item
               : nullptr;
}

void Destroy(ADMItemRef /*item*/) {
    // Items live as long as their dialog.
}

ADMInt32 GetID(ADMItemRef item) { return item != nullptr ? itemOf(item)->id : 0; }

ADMListRef GetList(ADMItemRef item) { return item != nullptr ? itemOf(item)->getList() : nullptr; }

void Show(ADMItemRef item, ADMBoolean show) {
    if (item != nullptr) {
        itemOf(item)->Show(show != 0);
    }
}

void Enable(ADMItemRef item, ADMBoolean enable) {
    if (item != nullptr) {
        itemOf(item)->Enable(enable != 0);
    }
}

ADMBoolean IsEnabled(ADMItemRef item) { return item != nullptr && itemOf(item)->IsEnabled(); }

void SetLocalRect(ADMItemRef item, const IASRect* rect) {
    if (item != nullptr && rect != nullptr) {
        itemOf(item)->SetLocalRect(*rect);
    }
}

void GetBoundsRect(ADMItemRef item, IASRect* rect) {
    if (item != nullptr && rect != nullptr) {
        itemOf(item)->GetBoundsRect(*rect);
    }
}

void GetBestSize(ADMItemRef item, IASPoint* size) {
    if (item != nullptr && size != nullptr) {
        itemOf(item)->GetBestSize(*size);
    }
}

void SetFont(ADMItemRef item, ADMFont font) {
    if (item != nullptr) {
        itemOf(item)->SetFont(font);
    }
}

void SetText(ADMItemRef item, const char* text) {
    if (item != nullptr) {
        itemOf(item)->SetText(text);
    }
}

ADMBoolean GetText(ADMItemRef item, char* text, ADMInt32 max_length) {
    return item != nullptr && itemOf(item)->GetTextValue(text, max_length);
}

void SetBooleanValue(ADMItemRef item, ADMBoolean value) {
    if (item != nullptr) {
        itemOf(item)->SetBooleanValue(value != 0);
    }
}

ADMBoolean GetBooleanValue(ADMItemRef item) { return item != nullptr && itemOf(item)->GetBooleanValue(); }

ADMInt32 GetIntValue(ADMItemRef item) { return item != nullptr ? itemOf(item)->GetIntValue() : 0; }

ADMFloat GetFloatValue(ADMItemRef item) { return item != nullptr ? itemOf(item)->GetFloatValue() : 0.0f; }

void SetFloatValue(ADMItemRef item, ADMFloat value) {
    if (item != nullptr) {
        itemOf(item)->SetFloatValue(value);
    }
}

void SetMinFloatValue(ADMItemRef item, ADMFloat value) {
    if (item != nullptr) {
        itemOf(item)->SetMinFloatValue(value);
    }
}

void SetMaxFloatValue(ADMItemRef item, ADMFloat value) {
    if (item != nullptr) {
        itemOf(item)->SetMaxFloatValue(value);
    }
}

ADMBoolean DefaultFloatToText(ADMItemRef item, ADMFloat value, char* text, ADMInt32 max_length) {
    if (item == nullptr) {
        return false;
    }
    // Only an item with a platform control shows numbers; for any other the buffer stays as it was.
    if (itemOf(item)->control != nullptr && text != nullptr && max_length > 0) {
        const std::string shown = controls::formatNumber(value);
        const std::size_t n = std::min(shown.size(), static_cast<std::size_t>(max_length - 1));
        std::memcpy(text, shown.data(), n);
        text[n] = '\0';
    }
    return true;
}

ADMBoolean DefaultTextToFloat(ADMItemRef item, const char* text, ADMFloat* value) {
    if (item == nullptr) {
        return false;
    }
    const auto number = controls::parseLeadingNumber(text);
    if (!number) {
        return false;
    }
    if (value != nullptr) {
        *value = static_cast<ADMFloat>(*number);
    }
    return true;
}

// Styles and units are not shown by the platform's controls.
void SetItemStyle(ADMItemRef /*item*/, ADMInt32 /*style*/) {}
void SetUnits(ADMItemRef /*item*/, ADMUnits /*units*/) {}
void ShowUnits(ADMItemRef /*item*/, ADMBoolean /*show*/) {}

}  // namespace

ADMItemSuite10 g_ADMItemSuite = {
    .Create = Create,
    .Destroy = Destroy,
    .GetID = GetID,
    .GetList = GetList,
    .Show = Show,
    .Enable = Enable,
    .IsEnabled = IsEnabled,
    .SetLocalRect = SetLocalRect,
    .GetBoundsRect = GetBoundsRect,
    .GetBestSize = GetBestSize,
    .SetFont = SetFont,
    .SetText = SetText,
    .GetText = GetText,
    .SetBooleanValue = SetBooleanValue,
    .GetBooleanValue = GetBooleanValue,
    .GetIntValue = GetIntValue,
    .GetFloatValue = GetFloatValue,
    .SetFloatValue = SetFloatValue,
    .SetMinFloatValue = SetMinFloatValue,
    .SetMaxFloatValue = SetMaxFloatValue,
    .DefaultFloatToText = DefaultFloatToText,
    .DefaultTextToFloat = DefaultTextToFloat,
    .SetItemStyle = SetItemStyle,
    .SetUnits = SetUnits,
    .ShowUnits = ShowUnits,
};
