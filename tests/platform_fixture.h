// A clean window system for every test, and small helpers to make strings and controls.
#pragma once

#include "platform/driver.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

inline bool operator==(const Rect& a, const Rect& b) {
    return a.top == b.top && a.left == b.left && a.bottom == b.bottom && a.right == b.right;
}

inline std::ostream& operator<<(std::ostream& out, const Rect& r) {
    return out << "{" << r.top << ", " << r.left << ", " << r.bottom << ", " << r.right << "}";
}

class PlatformTest : public ::testing::Test {
protected:
    void SetUp() override { platform::reset(); }
    void TearDown() override { platform::reset(); }

    // A string the test owns only for the duration of one call.
    struct Str {
        explicit Str(const char* text, CFStringEncoding enc = kCFStringEncodingUTF8)
            : ref(CFStringCreateWithCString(kCFAllocatorDefault, text, enc)) {}
        ~Str() {
            if (ref)
                CFRelease(ref);
        }
        Str(const Str&) = delete;
        Str& operator=(const Str&) = delete;
        operator CFStringRef() const { return ref; }
        CFStringRef ref;
    };

    static WindowRef makeWindow(WindowAttributes attributes = kWindowCloseBoxAttribute |
                                                              kWindowStandardHandlerAttribute |
                                                              kWindowCompositingAttribute) {
        Rect bounds{100, 50, 400, 350};
        WindowRef window = nullptr;
        EXPECT_EQ(noErr, CreateNewWindow(kFloatingWindowClass, attributes, &bounds, &window));
        ControlRef root = nullptr;
        EXPECT_EQ(noErr, CreateRootControl(window, &root));
        return window;
    }

    static ControlRef makeCheckBox(WindowRef window, const char* title, SInt32 value = 0, SInt32 id = 0) {
        Rect r{10, 10, 23, 70};
        Str t(title);
        ControlRef c = nullptr;
        EXPECT_EQ(noErr, CreateCheckBoxControl(window, &r, t, value, true, &c));
        if (id) {
            ControlID cid{PLATFORM_FOUR_CHAR_CODE('t', 'e', 's', 't'), id};
            SetControlID(c, &cid);
        }
        return c;
    }
};
