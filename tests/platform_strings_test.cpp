#include "platform_fixture.h"

#include <cstring>

namespace {

using StringTest = PlatformTest;

std::string get(CFStringRef s, CFStringEncoding enc, CFIndex size = 256) {
    std::string buffer(static_cast<std::size_t>(size), '\x7f');
    if (!CFStringGetCString(s, buffer.data(), size, enc))
        return "<failed>";
    return std::string(buffer.c_str());
}

TEST_F(StringTest, AsciiAndMacRomanRoundTripThroughTheTableAndRefuseWhatTheyCannotHold) {
    Str s("Radius 12.5", kCFStringEncodingASCII);
    ASSERT_NE(nullptr, s.ref);
    EXPECT_EQ(11, CFStringGetLength(s));
    EXPECT_EQ("Radius 12.5", get(s, kCFStringEncodingASCII));
    EXPECT_EQ(nullptr, CFStringCreateWithCString(nullptr, "caf\xe9", kCFStringEncodingASCII));
    // 0x8E is e-acute, 0xA5 a bullet, 0xDB the euro sign, 0xF0 the private-use logo.
    Str roman("\x8e\xa5\xdb\xf0", kCFStringEncodingMacRoman);
    ASSERT_NE(nullptr, roman.ref);
    EXPECT_EQ(4, CFStringGetLength(roman));
    EXPECT_EQ("\xc3\xa9\xe2\x80\xa2\xe2\x82\xac\xef\xa3\xbf", get(roman, kCFStringEncodingUTF8));
    EXPECT_EQ("\x8e\xa5\xdb\xf0", get(roman, kCFStringEncodingMacRoman));
    EXPECT_EQ("<failed>", get(roman, kCFStringEncodingASCII));
    Str zhe("\xd0\x96");  // Cyrillic Zhe
    ASSERT_NE(nullptr, zhe.ref);
    EXPECT_EQ("<failed>", get(zhe, kCFStringEncodingMacRoman));
    EXPECT_EQ("\xd0\x96", get(zhe, kCFStringEncodingUTF8));
}

TEST_F(StringTest, EveryMacRomanByteRoundTrips) {
    for (int b = 1; b < 256; ++b) {
        char in[2] = {static_cast<char>(b), 0};
        Str s(in, kCFStringEncodingMacRoman);
        ASSERT_EQ(1, CFStringGetLength(s)) << b;
        char out[2] = {};
        ASSERT_TRUE(CFStringGetCString(s, out, 2, kCFStringEncodingMacRoman)) << b;
        EXPECT_EQ(in[0], out[0]) << b;
    }
}

TEST_F(StringTest, BufferMustHoldTheTerminatorAndInvalidUtf8IsRefused) {
    Str s("abcd");
    char buffer[5];
    std::memset(buffer, 'x', sizeof buffer);
    EXPECT_FALSE(CFStringGetCString(s, buffer, 4, kCFStringEncodingMacRoman));
    EXPECT_EQ('x', buffer[0]);  // untouched on failure
    EXPECT_TRUE(CFStringGetCString(s, buffer, 5, kCFStringEncodingMacRoman));
    EXPECT_STREQ("abcd", buffer);
    EXPECT_EQ(nullptr, CFStringCreateWithCString(nullptr, "\xc3", kCFStringEncodingUTF8));
    EXPECT_EQ(nullptr, CFStringCreateWithCString(nullptr, "\xc0\xaf", kCFStringEncodingUTF8));
    Str astral("\xf0\x9f\x99\x82");
    EXPECT_EQ(2, CFStringGetLength(astral));  // one surrogate pair
    EXPECT_EQ("\xf0\x9f\x99\x82", get(astral, kCFStringEncodingUTF8));
}

TEST_F(StringTest, RetainAndReleaseCountReferences) {
    CFStringRef s = CFStringCreateWithCString(nullptr, "x", kCFStringEncodingASCII);
    EXPECT_EQ(1u, platform::liveCounts().strings);
    EXPECT_EQ(s, CFRetain(s));
    EXPECT_EQ(2, CFGetRetainCount(s));
    CFRelease(s);
    EXPECT_EQ(1u, platform::liveCounts().strings);
    CFRelease(s);
    EXPECT_EQ(0u, platform::liveCounts().strings);
    CFRelease(s);  // a stale release is ignored
    EXPECT_EQ(0, CFStringGetLength(s));
}

}  // namespace
