// ADMNotifierSuite2: what a notification is about.
#include "adm_suites.h"

#include <cstring>

namespace {

ADMItemRef GetItem(ADMNotifierRef notifier) { return notifier != nullptr ? notifier->item : nullptr; }

ADMBoolean IsNotifierType(ADMNotifierRef notifier, const char* type) {
    return notifier != nullptr && notifier->type != nullptr && type != nullptr &&
           std::strcmp(notifier->type, type) == 0;
}

}  // namespace

ADMNotifierSuite2 g_ADMNotifierSuite = {
    .GetItem = GetItem,
    .IsNotifierType = IsNotifierType,
};
