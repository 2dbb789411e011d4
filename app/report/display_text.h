// Text for the terminal: names made safe to print (control characters and bytes that are not
// UTF-8 escaped) and measured in the columns they take.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace app {

// The text with control characters as \n, \t, \r, \\ or \u{XXXX}, bytes that are not UTF-8 as
// \xXX, and everything else as it is.
std::string escapedText(std::string_view text);

// Columns the text takes on a terminal: wide characters take two, combining marks none.
std::size_t displayWidth(std::string_view text);

}  // namespace app
