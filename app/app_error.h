// A run that cannot go on: one message for standard error, and exit status 2.
#pragma once

#include <stdexcept>

namespace app {

class AppError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace app
