// The files a run writes, all or nothing: each is written beside its final name first and moved
// into place only when every one of them was written.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace app {

struct OutputFile {
    std::string option;  // "--out", "--preview", ... for messages
    std::string path;
    // Writes the file's content; a large file is made as it is written, never held whole.
    std::function<void(std::ostream&)> write;
};

// An output whose content is already made.
OutputFile outputOf(std::string option, std::string path, std::string bytes);

// Writes every file to a temporary file in its folder, then renames them into place; a device or
// a pipe named as an output is written to once every file is ready. On any failure nothing is
// replaced, the temporary files are removed, and AppError names the option, the file and the
// system's reason.
void writeAll(const std::vector<OutputFile>& files);

}  // namespace app
