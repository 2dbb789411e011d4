#include "app/output/temporary_file.h"

#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <mutex>

namespace app {

namespace {

// The temporary files that exist now, as the signal handler reads them: it may only look at
// fixed memory and call unlink. A run writes a handful of outputs.
struct Slot {
    std::atomic<bool> used{false};
    char path[PATH_MAX] = {};
};
std::array<Slot, 32> slots;

constexpr std::array<int, 4> kSignals = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};

extern "C" void removeAndResignal(int signal) {
    for (Slot& slot : slots) {
        if (slot.used.load()) {
            ::unlink(slot.path);
        }
    }
    // The handler was reset on entry: the signal, raised again, ends the tool as it would have.
    ::raise(signal);
}

void installHandlers() {
    struct sigaction action {};
    action.sa_handler = removeAndResignal;
    action.sa_flags = SA_RESETHAND;
    sigemptyset(&action.sa_mask);
    for (int signal : kSignals) {
        struct sigaction old {};
        // A signal the caller ignores (nohup, a background job) stays ignored.
        if (::sigaction(signal, nullptr, &old) == 0 && old.sa_handler != SIG_IGN) {
            ::sigaction(signal, &action, nullptr);
        }
    }
}

// Holds the signals back while a file is made and entered, or moved and left out, so the handler
// never sees one without the other.
class SignalsHeld {
public:
    SignalsHeld() {
        sigset_t set;
        sigemptyset(&set);
        for (int signal : kSignals) {
            sigaddset(&set, signal);
        }
        ::pthread_sigmask(SIG_BLOCK, &set, &old_);
    }
    ~SignalsHeld() { ::pthread_sigmask(SIG_SETMASK, &old_, nullptr); }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;

private:
    sigset_t old_;
};

int enter(const std::string& path) {
    static std::once_flag installed;
    std::call_once(installed, installHandlers);
    for (std::size_t i = 0; i < slots.size(); ++i) {
        if (!slots[i].used.load()) {
            std::memcpy(slots[i].path, path.c_str(), path.size() + 1);
            slots[i].used.store(true);
            return static_cast<int>(i);
        }
    }
    return -1;
}

void leave(int slot) {
    if (slot >= 0) {
        slots[static_cast<std::size_t>(slot)].used.store(false);
    }
}

mode_t newFileMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

TemporaryFile::TemporaryFile(const std::string& target) : target_(target) {
    namespace fs = std::filesystem;
    const fs::path name(target);
    const fs::path folder = name.has_parent_path() ? name.parent_path() : fs::path(".");
    path_ = (folder / ("." + name.filename().string() + ".XXXXXX")).string();
    if (path_.size() >= PATH_MAX) {
        error_ = ENAMETOOLONG;
        path_.clear();
        return;
    }
    {
        const SignalsHeld held;
        fd_ = ::mkstemp(path_.data());
        if (fd_ >= 0) {
            slot_ = enter(path_);
        }
    }
    if (fd_ < 0) {
        error_ = errno;
        path_.clear();
    } else if (slot_ < 0) {
        error_ = EMFILE;
    } else if (::fchmod(fd_, newFileMode()) != 0) {
        error_ = errno;
    }
}

TemporaryFile::~TemporaryFile() {
    if (fd_ >= 0) {
        ::close(fd_);
    }
    if (!path_.empty()) {
        ::unlink(path_.c_str());
    }
    leave(slot_);
}

int TemporaryFile::finish() {
    int error = ::fsync(fd_) == 0 ? 0 : errno;
    // The file is closed whatever happened: a second close could close another file.
    if (::close(fd_) != 0 && error == 0) {
        error = errno;
    }
    fd_ = -1;
    return error;
}

int TemporaryFile::moveIntoPlace() {
    const SignalsHeld held;
    if (std::rename(path_.c_str(), target_.c_str()) != 0) {
        return errno;
    }
    path_.clear();
    leave(slot_);
    slot_ = -1;
    return 0;
}

}  // namespace app
