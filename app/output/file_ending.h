// Which kind of file an output is, told by the ending of its name, in either case.
#pragma once

#include <algorithm>
#include <cctype>
#include <string_view>

namespace app {

inline bool endsWith(std::string_view path, std::string_view ending) {
    return path.size() >= ending.size() &&
           std::equal(ending.begin(), ending.end(), path.end() - static_cast<std::ptrdiff_t>(ending.size()),
                      [](char a, char b) { return a == std::tolower(static_cast<unsigned char>(b)); });
}

}  // namespace app
