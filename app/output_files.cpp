#include "app/output_files.h"

#include "app/app_error.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace app {

namespace {

namespace fs = std::filesystem;

std::string folderOf(const fs::path& path) { return path.has_parent_path() ? path.parent_path().string() : "."; }

// The system's reason, with the folder named when it is the folder that is missing.
std::string reason(const OutputFile& file, int error)
{
    std::string text = std::strerror(error);
    std::error_code ec;
    if (error == ENOENT && !fs::is_directory(folderOf(file.path), ec)) {
        text += " (the folder " + folderOf(file.path) + " does not exist)";
    }
    return text;
}

[[noreturn]] void refuse(const OutputFile& file, const std::string& why)
{
    throw AppError(file.option + " " + file.path + ": cannot write: " + why);
}

// Where the file ends up: a link is followed, so the file it points to is the one replaced.
std::string finalPath(const OutputFile& file)
{
    std::error_code ec;
    if (fs::is_symlink(file.path, ec)) {
        const fs::path target = fs::weakly_canonical(file.path, ec);
        return ec ? file.path : target.string();
    }
    return file.path;
}

mode_t newFileMode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

// Writes all the bytes to an open file and closes it; the system's error, or 0.
int writeAndClose(int fd, const std::string& bytes)
{
    int error = 0;
    for (std::size_t done = 0; error == 0 && done < bytes.size();) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno != EINTR) {
            error = errno;
        }
        done += n > 0 ? static_cast<std::size_t>(n) : 0;
    }
    if (::close(fd) != 0 && error == 0) {
        error = errno;
    }
    return error;
}

// Whether the name is taken by something that is not a file to replace: a device, a pipe or a
// socket is written to, never renamed over.
bool isSpecial(const std::string& target)
{
    std::error_code ec;
    const fs::file_status status = fs::status(target, ec);
    return !ec && fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

// Writes the bytes to a new file beside `target`; returns its name. Throws AppError.
std::string writeBeside(const OutputFile& file, const std::string& target)
{
    std::error_code ec;
    if (fs::is_directory(target, ec)) {
        refuse(file, "it is a folder");
    }
    const fs::path path(target);
    std::string temporary = (fs::path(folderOf(path)) / ("." + path.filename().string() + ".XXXXXX")).string();
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0) {
        refuse(file, reason(file, errno));
    }
    const int error = ::fchmod(fd, newFileMode()) == 0 ? writeAndClose(fd, file.bytes) : errno;
    if (error != 0) {
        ::unlink(temporary.c_str());
        refuse(file, reason(file, error));
    }
    return temporary;
}

void writeInto(const OutputFile& file, const std::string& target)
{
    const int fd = ::open(target.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    const int error = fd < 0 ? errno : writeAndClose(fd, file.bytes);
    if (error != 0) {
        refuse(file, reason(file, error));
    }
}

}  // namespace

void writeAll(const std::vector<OutputFile>& files)
{
    struct Pending {
        const OutputFile* file;
        std::string temporary;
        std::string target;
    };
    std::vector<Pending> written;
    try {
        for (const OutputFile& file : files) {
            const std::string target = finalPath(file);
            if (!isSpecial(target)) {
                written.push_back({&file, writeBeside(file, target), target});
            }
        }
        // Devices and pipes take what is written to them; they come once every file is ready.
        for (const OutputFile& file : files) {
            if (const std::string target = finalPath(file); isSpecial(target)) {
                writeInto(file, target);
            }
        }
    } catch (const AppError&) {
        for (const Pending& p : written) {
            ::unlink(p.temporary.c_str());
        }
        throw;
    }
    // Renames within a folder do not fail for want of space or rights the write just had.
    for (std::size_t i = 0; i < written.size(); ++i) {
        if (std::rename(written[i].temporary.c_str(), written[i].target.c_str()) != 0) {
            const int error = errno;
            for (std::size_t j = i; j < written.size(); ++j) {
                ::unlink(written[j].temporary.c_str());
            }
            refuse(*written[i].file, reason(*written[i].file, error));
        }
    }
}

}  // namespace app
