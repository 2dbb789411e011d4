// Preloaded into orbisett-host by the write-fault sweep. It counts the calls that put the tool's
// outputs on disk or on screen -- making a file in the folder ORBISETT_FAULT_DIR, every write,
// sync and close of it, its rename, and every write to standard output and error -- logs each as "KIND ERRNO BYTES
// NAME" (BYTES for writes), and makes the one numbered ORBISETT_FAULT_AT fail with ERRNO.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>

namespace {

template <class F>
F real(const char* name) {
    return reinterpret_cast<F>(::dlsym(RTLD_NEXT, name));
}

long setting(const char* name) { return std::getenv(name) != nullptr ? std::atol(std::getenv(name)) : 0; }

// The path when it is in the watched folder, else empty.
std::string watched(const std::string& path) {
    const char* folder = std::getenv("ORBISETT_FAULT_DIR");
    return folder != nullptr && path.rfind(folder, 0) == 0 ? path : std::string();
}

// What a descriptor writes, when it is one of the tool's outputs.
std::string nameOf(int fd) {
    if (fd == STDOUT_FILENO || fd == STDERR_FILENO) {
        return fd == STDOUT_FILENO ? "standard-output" : "standard-error";
    }
    char target[4096];
    const ssize_t n = ::readlink(("/proc/self/fd/" + std::to_string(fd)).c_str(), target, sizeof target);
    return n > 0 ? watched(std::string(target, static_cast<std::size_t>(n))) : std::string();
}

// Counts and logs a call on an output (none for an empty name); true when it is the one to fail,
// with errno set.
bool fails(const char* kind, int error, const std::string& name, size_t bytes = 0) {
    static const int log = ::open(std::getenv("ORBISETT_FAULT_LOG"), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    static long calls = 0;
    if (name.empty()) {
        return false;
    }
    const std::string line =
        std::string(kind) + " " + std::to_string(error) + " " + std::to_string(bytes) + " " + name + "\n";
    ::syscall(SYS_write, log, line.data(), line.size());
    const bool failing = ++calls == setting("ORBISETT_FAULT_AT");
    if (failing && setting("ORBISETT_FAULT_SIGNAL") != 0) {
        // The call goes on when the tool holds the signal back.
        return std::raise(static_cast<int>(setting("ORBISETT_FAULT_SIGNAL"))) != 0;
    }
    errno = failing ? error : errno;
    return failing;
}

}  // namespace

extern "C" {

int mkstemp(char* name) { return fails("create", EACCES, watched(name)) ? -1 : real<int (*)(char*)>("mkstemp")(name); }

using Write = ssize_t (*)(int, const void*, size_t);
ssize_t write(int fd, const void* data, size_t size) {
    return fails("write", ENOSPC, nameOf(fd), size) ? -1 : real<Write>("write")(fd, data, size);
}

int fsync(int fd) { return fails("sync", EIO, nameOf(fd)) ? -1 : real<int (*)(int)>("fsync")(fd); }

// A failed close has closed the file all the same, as the system does.
int close(int fd) {
    const bool failing = fd > STDERR_FILENO && fails("close", EDQUOT, nameOf(fd));
    const int result = real<int (*)(int)>("close")(fd);  // leaves errno as it is when it succeeds
    return failing ? -1 : result;
}

int rename(const char* from, const char* to) {
    return fails("rename", EIO, watched(from)) ? -1 : real<int (*)(const char*, const char*)>("rename")(from, to);
}
}
