#include "app/output/write_outputs.h"

#include "app/output/descriptor_stream.h"
#include "app/output/temporary_file.h"
#include "app/run/app_error.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>

namespace app {

namespace {

namespace fs = std::filesystem;

// Where an output goes: a file replaced through a temporary one, or a device, a pipe or a
// standard stream written to directly.
struct Placed {
    const OutputFile* file;
    std::string target;  // the file to replace or to open, links followed
    bool direct;
};

std::string folderOf(const fs::path& path) { return path.has_parent_path() ? path.parent_path().string() : "."; }

// The system's reason, with the folder named when it is the folder that is missing.
std::string reason(const std::string& target, int error) {
    std::string text = std::strerror(error);
    std::error_code ec;
    if (error == ENOENT && !fs::is_directory(folderOf(target), ec)) {
        text += " (the folder " + folderOf(target) + " does not exist)";
    }
    return text;
}

[[noreturn]] void refuse(const OutputFile& file, const std::string& why) { throw AppError(cannotWrite(file, why)); }

// The file a name stands for: symbolic links followed one by one, so that a dangling one leads to
// the file it names, which is then made.
fs::path followLinks(const OutputFile& file) {
    fs::path path = file.path;
    std::error_code ec;
    for (int hops = 0; fs::is_symlink(path, ec); ++hops) {
        const fs::path next = fs::read_symlink(path, ec);
        if (ec || hops == 40) {
            refuse(file, std::strerror(ec ? ec.value() : ELOOP));
        }
        path = next.is_absolute() ? next : fs::path(folderOf(path)) / next;
    }
    return path;
}

Placed place(const OutputFile& file) {
    if (file.destination != Destination::file) {
        return {&file, {}, true};
    }
    const fs::path target = followLinks(file);
    std::error_code ec;
    const fs::file_status status = fs::status(target, ec);
    if (fs::is_directory(status)) {
        refuse(file, "it is a folder");
    }
    // A file we may not write is not replaced either, though its folder would let us.
    if (fs::exists(status) && ::access(target.c_str(), W_OK) != 0) {
        refuse(file, std::strerror(errno));
    }
    // A device, a pipe or a socket is written to, never renamed over.
    const bool special = !ec && fs::exists(status) && !fs::is_regular_file(status);
    return {&file, target.string(), special};
}

// Two names for one file would leave only the later one's content.
void checkDistinct(const std::vector<Placed>& placed) {
    for (std::size_t i = 0; i < placed.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            std::error_code ec;
            if (!placed[i].direct && !placed[j].direct &&
                fs::weakly_canonical(placed[i].target, ec) == fs::weakly_canonical(placed[j].target, ec)) {
                throw AppError(placed[j].file->option + " " + placed[j].file->path + " and " + placed[i].file->option +
                               " " + placed[i].file->path + " name the same file " + placed[i].target);
            }
        }
    }
}

std::unique_ptr<TemporaryFile> writeTemporary(const Placed& placed) {
    auto temporary = std::make_unique<TemporaryFile>(placed.target);
    int error = temporary->error();
    if (error == 0) {
        error = writeContent(temporary->descriptor(), *placed.file);
    }
    if (const int finished = temporary->descriptor() >= 0 ? temporary->finish() : 0; error == 0) {
        error = finished;
    }
    if (error != 0) {
        refuse(*placed.file, reason(placed.target, error));
    }
    return temporary;
}

void writeDirect(const Placed& placed) {
    const OutputFile& file = *placed.file;
    int error = 0;
    if (file.destination == Destination::file) {
        const int fd = ::open(placed.target.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
        error = fd < 0 ? errno : writeContent(fd, file);
        if (fd >= 0 && ::close(fd) != 0 && error == 0) {
            error = errno;
        }
    } else {
        // What the streams of the standard library hold goes first.
        std::cout.flush();
        std::cerr.flush();
        error = writeContent(file.destination == Destination::standard_output ? STDOUT_FILENO : STDERR_FILENO, file);
    }
    if (error != 0) {
        refuse(file, reason(placed.target, error));
    }
}

}  // namespace

void writeAll(const std::vector<OutputFile>& files) {
    std::vector<Placed> placed;
    for (const OutputFile& file : files) {
        placed.push_back(place(file));
    }
    checkDistinct(placed);
    // Removed again, by their destructors, when anything below fails.
    std::vector<std::pair<const Placed*, std::unique_ptr<TemporaryFile>>> temporaries;
    for (const Placed& p : placed) {
        if (!p.direct) {
            temporaries.emplace_back(&p, writeTemporary(p));
        }
    }
    for (const Placed& p : placed) {
        if (p.direct) {
            writeDirect(p);
        }
    }
    for (auto& [p, temporary] : temporaries) {
        if (const int error = temporary->moveIntoPlace(); error != 0) {
            refuse(*p->file, reason(p->target, error));
        }
    }
}

}  // namespace app
