#include "toolkit/platform_text.h"

namespace toolkit {

bool copyPlatformString(CFStringRef string, char* buffer, std::size_t length, CFStringEncoding encoding) {
    if (string == nullptr || buffer == nullptr || length == 0) {
        return false;
    }
    return CFStringGetCString(string, buffer, static_cast<CFIndex>(length), encoding) != 0;
}

}  // namespace toolkit
