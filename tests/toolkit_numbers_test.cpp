// Numbers in edit fields: how values are shown and how typed text is read back.
#include "toolkit_fixture.h"

#include <cmath>
#include <utility>

namespace {

class EditNumbers : public ToolkitWindowTest {
protected:
    void SetUp() override {
        ToolkitWindowTest::SetUp();
        edit = add(dialog, 7, kADMTextEditType);
        sADMItem->SetMinFloatValue(edit, 1);
        sADMItem->SetMaxFloatValue(edit, 100);
        sADMItem->SetFloatValue(edit, 5);
    }
    std::string shown() const { return platform::controlText(find(7)); }
    void type(const char* text) { ASSERT_TRUE(platform::typeText(find(7), text, platform::Force::yes).ok()); }

    ADMItemRef edit = nullptr;
};

std::string formatted(ADMItemRef item, float value) {
    char text[64] = "untouched";
    EXPECT_TRUE(sADMItem->DefaultFloatToText(item, value, text, sizeof text));
    return text;
}

TEST_F(EditNumbers, ValuesAreShownWithoutTrailingZerosInFieldsOnly) {
    EXPECT_EQ("2.5", formatted(edit, 2.5f));
    EXPECT_EQ("3", formatted(edit, 3.0f));
    EXPECT_EQ("0", formatted(edit, 0.0f));
    EXPECT_EQ("-0.25", formatted(edit, -0.25f));
    EXPECT_EQ("0.333333", formatted(edit, 1.0f / 3.0f));
    // Zeros before the decimal point belong to the number.
    EXPECT_EQ("1200", formatted(edit, 1200.0f));
    EXPECT_EQ("0.05", formatted(edit, 0.05f));
    char text[4];
    EXPECT_TRUE(sADMItem->DefaultFloatToText(edit, 12.5f, text, sizeof text));
    EXPECT_STREQ("12.", text);
    // A static text is only a label: it has no control to show or read a number in.
    ADMItemRef label = add(dialog, 8, kADMTextStaticType);
    sADMItem->SetText(label, "7");
    sADMItem->SetFloatValue(label, 2.5f);
    EXPECT_EQ("7", platform::controlText(find(8)));
    EXPECT_EQ(2.5f, sADMItem->GetFloatValue(label));
    EXPECT_EQ(2, sADMItem->GetIntValue(label));
    EXPECT_EQ("untouched", formatted(label, 2.5f));
}

TEST_F(EditNumbers, SettingValueOrLimitsRewritesTheFieldWithoutClampingUnitsAndStylesDoNot) {
    EXPECT_EQ("5", shown());
    sADMItem->SetFloatValue(edit, 2.50f);
    EXPECT_EQ("2.5", shown());
    sADMItem->SetFloatValue(edit, 250);
    EXPECT_EQ("250", shown());
    type("junk");
    sADMItem->SetMaxFloatValue(edit, 10);
    EXPECT_EQ("250", shown());
    sADMItem->SetFloatValue(edit, 12.5f);
    sADMItem->SetUnits(edit, kADMMillimeterUnits);
    sADMItem->ShowUnits(edit, true);
    sADMItem->SetItemStyle(edit, 3);
    EXPECT_EQ("12.5", shown());
}

TEST_F(EditNumbers, TypedTextOfAtMost127CharactersIsReadAndClampedToTheLimits) {
    type("250");
    EXPECT_FLOAT_EQ(100.0f, sADMItem->GetFloatValue(edit));
    type("12.5mm");
    EXPECT_FLOAT_EQ(12.5f, sADMItem->GetFloatValue(edit));
    EXPECT_EQ("12.5mm", shown());  // reading does not rewrite what the user typed
    type("-3");
    EXPECT_FLOAT_EQ(1.0f, sADMItem->GetFloatValue(edit));
    type("  +42");
    EXPECT_FLOAT_EQ(42.0f, sADMItem->GetFloatValue(edit));
    type((std::string(126, '0') + "9").c_str());
    EXPECT_EQ(9.0f, sADMItem->GetFloatValue(edit));
    EXPECT_EQ(9, sADMItem->GetIntValue(edit));
    type((std::string(127, '0') + "8").c_str());
    EXPECT_EQ(9.0f, sADMItem->GetFloatValue(edit));
    EXPECT_EQ(9, sADMItem->GetIntValue(edit));
}

TEST_F(EditNumbers, NumbersBeyondADoubleAndInfinitiesClampToTheLimits) {
    for (const char* text : {"1e400", "1E+400", "inf", "+INF", " Infinity", "infinit", "9e99999999999999999999999"}) {
        type("33");
        type(text);
        EXPECT_EQ(100.0f, sADMItem->GetFloatValue(edit)) << '"' << text << '"';
    }
    for (const char* text :
         {"-1e400", "-inf", "-infinity", "1e-400", "-1e-400", "0.0001e-330", "1e-99999999999999999999"}) {
        type("33");
        type(text);
        EXPECT_EQ(1.0f, sADMItem->GetFloatValue(edit)) << '"' << text << '"';
    }
    sADMItem->SetMinFloatValue(edit, -100);
    type("-1e-400");
    EXPECT_EQ(0.0f, sADMItem->GetFloatValue(edit));
    // The integer reading takes the leading digits only; without any, the value stored last.
    type("3e400");
    EXPECT_EQ(3, sADMItem->GetIntValue(edit));
    type("inf");
    EXPECT_EQ(3, sADMItem->GetIntValue(edit));
}

TEST_F(EditNumbers, TheLeadingNumberIsReadAndTextThatIsNoNumberKeepsTheValue) {
    type("33");
    ASSERT_FLOAT_EQ(33.0f, sADMItem->GetFloatValue(edit));
    // NaN is refused although characters form it: no limit would hold it back from the layout.
    for (const char* text : {"abc", "", "nan", "-NaN", "nan(1)", "-", ".", "in"}) {
        type(text);
        EXPECT_FLOAT_EQ(33.0f, sADMItem->GetFloatValue(edit)) << '"' << text << '"';
    }
    ADMFloat value = -1;
    EXPECT_FALSE(sADMItem->DefaultTextToFloat(edit, "nan", &value));
    EXPECT_EQ(-1.0f, value);
    EXPECT_TRUE(sADMItem->DefaultTextToFloat(edit, "12.5mm", &value));
    EXPECT_FLOAT_EQ(12.5f, value);
    EXPECT_TRUE(sADMItem->DefaultTextToFloat(edit, "-.5e1", &value));
    EXPECT_FLOAT_EQ(-5.0f, value);
    value = -1;
    EXPECT_FALSE(sADMItem->DefaultTextToFloat(edit, "abc", &value));
    EXPECT_FLOAT_EQ(-1.0f, value);
    // Only decimal numbers: a hexadecimal form reads as its leading zero.
    EXPECT_TRUE(sADMItem->DefaultTextToFloat(edit, "0x10", &value));
    EXPECT_FLOAT_EQ(0.0f, value);
    EXPECT_FALSE(sADMItem->DefaultTextToFloat(edit, nullptr, &value));
    // Beyond a double by its digits alone, either side of the decimal point.
    EXPECT_TRUE(sADMItem->DefaultTextToFloat(edit, ("-1" + std::string(400, '0')).c_str(), &value));
    EXPECT_EQ(-INFINITY, value);
    EXPECT_TRUE(sADMItem->DefaultTextToFloat(edit, ("0." + std::string(400, '0') + "1").c_str(), &value));
    EXPECT_EQ(0.0f, value);
}

TEST_F(EditNumbers, IntegersAreReadTruncatedClampedAndStoredAndEmptyTextGivesTheStoredOne) {
    // Empty text gives the value stored by the last reading.
    const std::pair<const char*, ADMInt32> typed[] = {
        {"7.9", 7}, {"", 7}, {"250", 100}, {"99999999999999999999999", 100}, {"-99999999999999999999999", 1}};
    for (const auto& [text, integer] : typed) {
        type(text);
        EXPECT_EQ(integer, sADMItem->GetIntValue(edit)) << '"' << text << '"';
    }
    sADMItem->SetMaxFloatValue(edit, 9.75f);
    type("12");
    EXPECT_EQ(9, sADMItem->GetIntValue(edit));
    sADMItem->SetMinFloatValue(edit, -100);
    sADMItem->SetFloatValue(edit, 42.8f);
    type("");
    EXPECT_EQ(42, sADMItem->GetIntValue(edit));
    sADMItem->SetFloatValue(edit, -3.7f);
    type("x");
    EXPECT_EQ(-3, sADMItem->GetIntValue(edit));
    // A stored value beyond 32 bits saturates; a NaN stored by hand counts as 0.
    const std::pair<float, ADMInt32> cases[] = {{3e9f, 2147483647}, {-3e9f, -2147483647 - 1}, {NAN, 0}};
    for (const auto& [stored, integer] : cases) {
        sADMItem->SetFloatValue(edit, stored);
        type("");
        EXPECT_EQ(integer, sADMItem->GetIntValue(edit)) << stored;
    }
}

}  // namespace
