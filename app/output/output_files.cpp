#include "app/output/output_files.h"

#include "app/drawing/picture_file.h"
#include "app/page/html_page.h"
#include "app/page/scene_data.h"
#include "app/run/app_error.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <streambuf>

namespace app {

namespace {

namespace fs = std::filesystem;

std::string folderOf(const fs::path& path) { return path.has_parent_path() ? path.parent_path().string() : "."; }

// The system's reason, with the folder named when it is the folder that is missing.
std::string reason(const OutputFile& file, int error) {
    std::string text = std::strerror(error);
    std::error_code ec;
    if (error == ENOENT && !fs::is_directory(folderOf(file.path), ec)) {
        text += " (the folder " + folderOf(file.path) + " does not exist)";
    }
    return text;
}

[[noreturn]] void refuse(const OutputFile& file, const std::string& why) {
    throw AppError(file.option + " " + file.path + ": cannot write: " + why);
}

// Where the file ends up: a link is followed, so the file it points to is the one replaced.
std::string finalPath(const OutputFile& file) {
    std::error_code ec;
    if (fs::is_symlink(file.path, ec)) {
        const fs::path target = fs::weakly_canonical(file.path, ec);
        return ec ? file.path : target.string();
    }
    return file.path;
}

mode_t newFileMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

// A stream onto an open file descriptor that keeps the system's first error.
class DescriptorBuffer : public std::streambuf {
public:
    explicit DescriptorBuffer(int fd) : fd_(fd) { setp(buffer_.data(), buffer_.data() + buffer_.size()); }
    int error() const { return error_; }

protected:
    int_type overflow(int_type c) override {
        if (!flush()) {
            return traits_type::eof();
        }
        if (!traits_type::eq_int_type(c, traits_type::eof())) {
            *pptr() = traits_type::to_char_type(c);
            pbump(1);
        }
        return traits_type::not_eof(c);
    }
    int sync() override { return flush() ? 0 : -1; }

private:
    bool flush() {
        for (const char* p = pbase(); error_ == 0 && p < pptr();) {
            const ssize_t n = ::write(fd_, p, static_cast<std::size_t>(pptr() - p));
            if (n < 0 && errno != EINTR) {
                error_ = errno;
            }
            p += n > 0 ? n : 0;
        }
        setp(buffer_.data(), buffer_.data() + buffer_.size());
        return error_ == 0;
    }

    int fd_;
    int error_ = 0;
    std::array<char, 1 << 16> buffer_{};
};

// Writes the file's content to an open file and closes it; the system's error, or 0.
int writeAndClose(int fd, const OutputFile& file) {
    DescriptorBuffer buffer(fd);
    std::ostream stream(&buffer);
    file.write(stream);
    stream.flush();
    int error = buffer.error();
    if (::close(fd) != 0 && error == 0) {
        error = errno;
    }
    return error;
}

// Whether the name is taken by something that is not a file to replace: a device, a pipe or a
// socket is written to, never renamed over.
bool isSpecial(const std::string& target) {
    std::error_code ec;
    const fs::file_status status = fs::status(target, ec);
    return !ec && fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

// Writes the bytes to a new file beside `target`; returns its name. Throws AppError.
std::string writeBeside(const OutputFile& file, const std::string& target) {
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
    const int error = ::fchmod(fd, newFileMode()) == 0 ? writeAndClose(fd, file) : errno;
    if (error != 0) {
        ::unlink(temporary.c_str());
        refuse(file, reason(file, error));
    }
    return temporary;
}

void writeInto(const OutputFile& file, const std::string& target) {
    const int fd = ::open(target.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    const int error = fd < 0 ? errno : writeAndClose(fd, file);
    if (error != 0) {
        refuse(file, reason(file, error));
    }
}

}  // namespace

OutputFile outputOf(std::string option, std::string path, std::string bytes) {
    return {std::move(option), std::move(path), [bytes = std::move(bytes)](std::ostream& out) {
                out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
            }};
}

void writeAll(const std::vector<OutputFile>& files) {
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

namespace {

// Picture names were checked with the options.
std::string picture(const std::string& option, const std::string& path, const std::string& svg) {
    const std::optional<PictureFormat> format = pictureFormat(path);
    if (!format) {
        throw AppError(pictureNameProblem(option, path));
    }
    return pictureBytes(svg, *format);
}

}  // namespace

std::vector<OutputFile> outputFiles(const Options& options, const SessionResult& run, const RunOutcome& outcome,
                                    const std::string* preview_svg, const nlohmann::json& report) {
    std::vector<OutputFile> files;
    if (!options.out.empty() && options.out != kStandardStream) {
        // Written as it is made: with keyframes the scene's text is larger than the project.
        files.push_back(
            {"--out", options.out, [&run](std::ostream& out) { host::writeScene(*run.host, out, run.settings); }});
    }
    if (!options.preview.empty() && preview_svg != nullptr) {
        files.push_back(outputOf("--preview", options.preview, picture("--preview", options.preview, *preview_svg)));
    }
    if (!options.dialog.empty()) {
        files.push_back(outputOf("--dialog", options.dialog, picture("--dialog", options.dialog, run.dialog_svg)));
    }
    if (!options.html.empty()) {
        files.push_back({"--html", options.html, [&run, &outcome](std::ostream& out) {
                             writeHtmlPage(out, pageSceneData(run.before(), run.host->project(), outcome));
                         }});
    }
    if (!options.json_report.empty()) {
        files.push_back(outputOf("--json-report", options.json_report, report.dump(2) + "\n"));
    }
    return files;
}

}  // namespace app
