// Writing an output's content to an open file descriptor, with every write checked.
#pragma once

#include "app/output/output_file.h"

namespace app {

// Writes the file's content to `fd` (which stays open) and flushes it. Returns the system's first
// error, or 0. An exception from the content is passed on when nothing failed to be written.
int writeContent(int fd, const OutputFile& file);

}  // namespace app
