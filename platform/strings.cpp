// Reference-counted strings of UTF-16 code units.
#include "platform/encodings.h"
#include "platform/internal.h"

#include <cstring>

namespace platform::detail {

CFStringRef makeString(std::u16string chars) {
    auto string = std::make_unique<__CFString>();
    string->chars = std::move(chars);
    CFStringRef ref = string.get();
    state().strings.emplace(ref, std::move(string));
    return ref;
}

std::u16string charsOf(CFStringRef string) {
    const __CFString* s = liveString(string);
    return s ? s->chars : std::u16string();
}

std::u16string fromUtf8(std::string_view utf8, bool* ok) {
    auto chars = decode(utf8, kCFStringEncodingUTF8);
    if (ok)
        *ok = chars.has_value();
    return chars.value_or(std::u16string());
}

std::string toUtf8(const std::u16string& chars) {
    // Unpaired surrogates cannot be written; show them as the replacement character.
    if (auto bytes = encode(chars, kCFStringEncodingUTF8))
        return *bytes;
    std::u16string cleaned = chars;
    for (char16_t& c : cleaned) {
        if (c >= 0xD800 && c <= 0xDFFF)
            c = 0xFFFD;
    }
    return encode(cleaned, kCFStringEncodingUTF8).value_or(std::string());
}

}  // namespace platform::detail

using namespace platform::detail;

extern "C" {

CFStringRef CFStringCreateWithCString(CFAllocatorRef, const char* cStr, CFStringEncoding encoding) {
    if (!cStr)
        return nullptr;
    auto chars = decode(std::string_view(cStr), encoding);
    if (!chars)
        return nullptr;
    return makeString(std::move(*chars));
}

Boolean CFStringGetCString(CFStringRef theString, char* buffer, CFIndex bufferSize, CFStringEncoding encoding) {
    const __CFString* s = liveString(theString);
    if (!s || !buffer || bufferSize <= 0)
        return false;
    auto bytes = encode(s->chars, encoding);
    if (!bytes || static_cast<CFIndex>(bytes->size()) + 1 > bufferSize)
        return false;
    std::memcpy(buffer, bytes->data(), bytes->size());
    buffer[bytes->size()] = '\0';
    return true;
}

CFIndex CFStringGetLength(CFStringRef theString) {
    const __CFString* s = liveString(theString);
    return s ? static_cast<CFIndex>(s->chars.size()) : 0;
}

CFTypeRef CFRetain(CFTypeRef cf) {
    if (__CFString* s = liveString(static_cast<CFStringRef>(cf)))
        ++s->refs;
    return cf;
}

void CFRelease(CFTypeRef cf) {
    auto ref = static_cast<CFStringRef>(cf);
    __CFString* s = liveString(ref);
    if (!s)
        return;
    if (--s->refs == 0)
        state().strings.erase(ref);
}

CFIndex CFGetRetainCount(CFTypeRef cf) {
    const __CFString* s = liveString(static_cast<CFStringRef>(cf));
    return s ? s->refs : 0;
}

}  // extern "C"
