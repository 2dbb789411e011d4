#include "app/report/display_text.h"

#include <locale.h>
#include <clocale>
#include <cstdio>
#include <cwchar>
#include <optional>

namespace app {

namespace {

struct Decoded {
    char32_t code = 0;
    std::size_t length = 0;
};

// The UTF-8 sequence at the start of the text; nothing when it is not a valid one (overlong
// forms, surrogates and values past U+10FFFF included).
std::optional<Decoded> decode(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(0);
    if (first < 0x80) {
        return Decoded{first, 1};
    }
    std::size_t length = first >= 0xF0 ? 4 : (first >= 0xE0 ? 3 : (first >= 0xC0 ? 2 : 0));
    if (length == 0 || first > 0xF4 || text.size() < length) {
        return std::nullopt;
    }
    char32_t code = first & (0x7F >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) {
            return std::nullopt;
        }
        code = (code << 6) | (byte(i) & 0x3F);
    }
    const char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < smallest[length] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
        return std::nullopt;
    }
    return Decoded{code, length};
}

// Widths come from the C library's tables for UTF-8, whatever locale the program runs in.
int columns(char32_t code) {
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr));
    if (utf8 == static_cast<locale_t>(nullptr)) {
        return 1;
    }
    const locale_t previous = uselocale(utf8);
    const int width = wcwidth(static_cast<wchar_t>(code));
    uselocale(previous);
    return width;
}

std::string hex(const char* format, unsigned value) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

}  // namespace

std::string escapedText(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::optional<Decoded> d = decode(text);
        if (!d) {
            out += hex("\\x%02X", static_cast<unsigned char>(text.front()));
            text.remove_prefix(1);
            continue;
        }
        switch (d->code) {
            case '\n':
                out += "\\n";
                break;
            case '\t':
                out += "\\t";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\\':
                out += "\\\\";
                break;
            default:
                // Control characters, marks that turn the direction of what follows, and anything the
                // terminal would not show.
                if (d->code < 0x20 || d->code == 0x7F || (d->code >= 0x80 && d->code < 0xA0) ||
                    (d->code >= 0x202A && d->code <= 0x202E) || (d->code >= 0x2066 && d->code <= 0x2069) ||
                    d->code == 0x200E || d->code == 0x200F || columns(d->code) < 0) {
                    out += hex("\\u{%04X}", static_cast<unsigned>(d->code));
                } else {
                    out.append(text.substr(0, d->length));
                }
        }
        text.remove_prefix(d->length);
    }
    return out;
}

std::size_t displayWidth(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty()) {
        const std::optional<Decoded> d = decode(text);
        const int w = d ? columns(d->code) : 1;
        width += w > 0 ? static_cast<std::size_t>(w) : 0;
        text.remove_prefix(d ? d->length : 1);
    }
    return width;
}

}  // namespace app
