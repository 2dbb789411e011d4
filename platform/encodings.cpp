// Mac Roman, ASCII, ISO Latin 1 and UTF-8 to and from UTF-16.
#include "platform/encodings.h"

#include <array>

namespace platform::detail {

namespace {

// The high half of Mac Roman, 0x80 to 0xFF.
constexpr std::array<char16_t, 128> kMacRomanHigh = {
    0x00C4, 0x00C5, 0x00C7, 0x00C9, 0x00D1, 0x00D6, 0x00DC, 0x00E1,  // 80
    0x00E0, 0x00E2, 0x00E4, 0x00E3, 0x00E5, 0x00E7, 0x00E9, 0x00E8,  // 88
    0x00EA, 0x00EB, 0x00ED, 0x00EC, 0x00EE, 0x00EF, 0x00F1, 0x00F3,  // 90
    0x00F2, 0x00F4, 0x00F6, 0x00F5, 0x00FA, 0x00F9, 0x00FB, 0x00FC,  // 98
    0x2020, 0x00B0, 0x00A2, 0x00A3, 0x00A7, 0x2022, 0x00B6, 0x00DF,  // A0
    0x00AE, 0x00A9, 0x2122, 0x00B4, 0x00A8, 0x2260, 0x00C6, 0x00D8,  // A8
    0x221E, 0x00B1, 0x2264, 0x2265, 0x00A5, 0x00B5, 0x2202, 0x2211,  // B0
    0x220F, 0x03C0, 0x222B, 0x00AA, 0x00BA, 0x03A9, 0x00E6, 0x00F8,  // B8
    0x00BF, 0x00A1, 0x00AC, 0x221A, 0x0192, 0x2248, 0x2206, 0x00AB,  // C0
    0x00BB, 0x2026, 0x00A0, 0x00C0, 0x00C3, 0x00D5, 0x0152, 0x0153,  // C8
    0x2013, 0x2014, 0x201C, 0x201D, 0x2018, 0x2019, 0x00F7, 0x25CA,  // D0
    0x00FF, 0x0178, 0x2044, 0x20AC, 0x2039, 0x203A, 0xFB01, 0xFB02,  // D8
    0x2021, 0x00B7, 0x201A, 0x201E, 0x2030, 0x00C2, 0x00CA, 0x00C1,  // E0
    0x00CB, 0x00C8, 0x00CD, 0x00CE, 0x00CF, 0x00CC, 0x00D3, 0x00D4,  // E8
    0xF8FF, 0x00D2, 0x00DA, 0x00DB, 0x00D9, 0x0131, 0x02C6, 0x02DC,  // F0
    0x00AF, 0x02D8, 0x02D9, 0x02DA, 0x00B8, 0x02DD, 0x02DB, 0x02C7,  // F8
};

std::optional<char> macRomanByte(char16_t c) {
    if (c < 0x80)
        return static_cast<char>(c);
    for (std::size_t i = 0; i < kMacRomanHigh.size(); ++i) {
        if (kMacRomanHigh[i] == c)
            return static_cast<char>(0x80 + i);
    }
    return std::nullopt;
}

void appendUtf16(std::u16string& out, char32_t cp) {
    if (cp < 0x10000) {
        out.push_back(static_cast<char16_t>(cp));
    } else {
        cp -= 0x10000;
        out.push_back(static_cast<char16_t>(0xD800 + (cp >> 10)));
        out.push_back(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
    }
}

std::optional<std::u16string> decodeUtf8(std::string_view bytes) {
    std::u16string out;
    std::size_t i = 0;
    while (i < bytes.size()) {
        auto b = static_cast<unsigned char>(bytes[i]);
        int extra = b < 0x80 ? 0 : (b >> 5) == 0x6 ? 1 : (b >> 4) == 0xE ? 2 : (b >> 3) == 0x1E ? 3 : -1;
        if (extra < 0)
            return std::nullopt;
        char32_t cp = extra == 0 ? b : extra == 1 ? (b & 0x1F) : extra == 2 ? (b & 0x0F) : (b & 0x07);
        for (int k = 1; k <= extra; ++k) {
            if (i + k >= bytes.size())
                return std::nullopt;
            auto cont = static_cast<unsigned char>(bytes[i + k]);
            if ((cont & 0xC0) != 0x80)
                return std::nullopt;
            cp = (cp << 6) | (cont & 0x3F);
        }
        static constexpr char32_t kMinimum[] = {0, 0x80, 0x800, 0x10000};
        if (cp < kMinimum[extra] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
            return std::nullopt;  // overlong forms, surrogates and out-of-range values are invalid
        }
        appendUtf16(out, cp);
        i += static_cast<std::size_t>(extra) + 1;
    }
    return out;
}

std::optional<std::string> encodeUtf8(const std::u16string& chars) {
    std::string out;
    for (std::size_t i = 0; i < chars.size(); ++i) {
        char32_t cp = chars[i];
        if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < chars.size() && chars[i + 1] >= 0xDC00 && chars[i + 1] <= 0xDFFF) {
            cp = 0x10000 + ((cp - 0xD800) << 10) + (chars[i + 1] - 0xDC00);
            ++i;
        } else if (cp >= 0xD800 && cp <= 0xDFFF) {
            return std::nullopt;  // an unpaired surrogate has no UTF-8 form
        }
        if (cp < 0x80) {
            out.push_back(static_cast<char>(cp));
        } else if (cp < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else if (cp < 0x10000) {
            out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else {
            out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        }
    }
    return out;
}

}  // namespace

std::optional<std::u16string> decode(std::string_view bytes, CFStringEncoding encoding) {
    std::u16string out;
    switch (encoding) {
        case kCFStringEncodingUTF8:
            return decodeUtf8(bytes);
        case kCFStringEncodingASCII:
            for (char ch : bytes) {
                auto b = static_cast<unsigned char>(ch);
                if (b >= 0x80)
                    return std::nullopt;
                out.push_back(b);
            }
            return out;
        case kCFStringEncodingMacRoman:
            for (char ch : bytes) {
                auto b = static_cast<unsigned char>(ch);
                out.push_back(b < 0x80 ? char16_t(b) : kMacRomanHigh[b - 0x80]);
            }
            return out;
        case kCFStringEncodingISOLatin1:
            for (char ch : bytes)
                out.push_back(static_cast<unsigned char>(ch));
            return out;
        default:
            return std::nullopt;
    }
}

std::optional<std::string> encode(const std::u16string& chars, CFStringEncoding encoding) {
    std::string out;
    switch (encoding) {
        case kCFStringEncodingUTF8:
            return encodeUtf8(chars);
        case kCFStringEncodingASCII:
            for (char16_t c : chars) {
                if (c >= 0x80)
                    return std::nullopt;
                out.push_back(static_cast<char>(c));
            }
            return out;
        case kCFStringEncodingMacRoman:
            for (char16_t c : chars) {
                auto b = macRomanByte(c);
                if (!b)
                    return std::nullopt;
                out.push_back(*b);
            }
            return out;
        case kCFStringEncodingISOLatin1:
            for (char16_t c : chars) {
                if (c > 0xFF)
                    return std::nullopt;
                out.push_back(static_cast<char>(c));
            }
            return out;
        default:
            return std::nullopt;
    }
}

}  // namespace platform::detail
