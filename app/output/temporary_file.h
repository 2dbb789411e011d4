// A new file written beside the one it is to replace, and moved into place only when complete.
// Until then it is removed when its owner goes away, and when the tool is interrupted (SIGINT,
// SIGTERM, SIGHUP, or SIGPIPE from a closed pipe): the signal then ends the tool as it would have.
#pragma once

#include <string>

namespace app {

class TemporaryFile {
public:
    // Creates an empty file in the folder of `target` with the rights a new file gets. Check
    // `error()`: the system's error, or 0.
    explicit TemporaryFile(const std::string& target);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    int error() const { return error_; }
    int descriptor() const { return fd_; }
    // Writes what the system holds to the disk and closes the file; the system's error, or 0.
    int finish();
    // Renames the file to its target; the system's error, or 0. After success it is no longer ours.
    int moveIntoPlace();

private:
    std::string target_;
    std::string path_;
    int fd_ = -1;
    int error_ = 0;
    int slot_ = -1;  // its place among the files removed on a signal
};

}  // namespace app
