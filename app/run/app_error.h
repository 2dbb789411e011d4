// Why a run cannot go on. Bad input (AppError) is one message and exit status 2 with nothing
// written; a failure the plug-in or the host reported before the dialog was up (HostFailure) is
// exit status 3, printed with the host's reports.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace app {

class AppError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class HostFailure : public std::runtime_error {
public:
    HostFailure(const std::string& what, std::vector<std::string> reports = {})
        : std::runtime_error(what), reports(std::move(reports)) {}
    std::vector<std::string> reports;  // what the host reported, for standard error
};

}  // namespace app
