// Conversions between byte encodings and UTF-16 code units.
#pragma once

#include "platform/platform.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform::detail {

// Decodes bytes in the given encoding; nothing when a byte sequence is not valid in it or the
// encoding is not supported.
std::optional<std::u16string> decode(std::string_view bytes, CFStringEncoding encoding);

// Encodes UTF-16 text; nothing when a character cannot be represented.
std::optional<std::string> encode(const std::u16string& chars, CFStringEncoding encoding);

}  // namespace platform::detail
