// Writes a run's outputs all or nothing.
#pragma once

#include "app/output/output_file.h"

#include <vector>

namespace app {

// Writes every file to a temporary file in its folder (every write, the flush to disk and the
// close checked); then what goes to a device or a pipe named as an output, and what is printed on
// standard output or standard error; then renames the files into place, in order. A symbolic link
// is written through, a dangling one too. When anything fails, AppError names the option, the
// file and the system's reason, no temporary file is left, and no file is replaced, but for those
// renamed before a rename that failed.
void writeAll(const std::vector<OutputFile>& files);

}  // namespace app
