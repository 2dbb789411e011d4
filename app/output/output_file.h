// One output of a run: where it goes and how its content is made. Every file, picture, page and
// printed text of the tool is one of these, written by `writeAll` (app/output/write_outputs.h).
#pragma once

#include <functional>
#include <ostream>
#include <string>

namespace app {

enum class Destination { file, standard_output, standard_error };

struct OutputFile {
    std::string option;  // "--out", "--preview", ... for messages; empty for the printed table
    std::string path;    // the file as named on the command line (Destination::file only)
    // Writes the content into the stream, as text or bytes; a large output is made as it is
    // written, never held whole. Once the stream has failed it may stop or throw anything: the
    // writer reports the system's reason. An exception it throws with the stream intact (AppError
    // for a picture that cannot be rendered, say) is passed on, with nothing written.
    std::function<void(std::ostream&)> write;
    Destination destination = Destination::file;
};

// An output whose content is already made.
OutputFile outputOf(std::string option, std::string path, std::string bytes);

// Text printed on standard output or standard error, checked like any file.
OutputFile printedText(Destination destination, std::string text);

// The message for an output that could not be written: the option, the file and the reason.
std::string cannotWrite(const OutputFile& file, const std::string& reason);

}  // namespace app
