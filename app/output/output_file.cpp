#include "app/output/output_file.h"

#include <utility>

namespace app {

namespace {

void writeBytes(std::ostream& out, const std::string& bytes) {
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

OutputFile outputOf(std::string option, std::string path, std::string bytes) {
    return {std::move(option), std::move(path),
            [bytes = std::move(bytes)](std::ostream& out) { writeBytes(out, bytes); }};
}

OutputFile printedText(Destination destination, std::string text) {
    return {{}, {}, [text = std::move(text)](std::ostream& out) { writeBytes(out, text); }, destination};
}

std::string cannotWrite(const OutputFile& file, const std::string& reason) {
    switch (file.destination) {
        case Destination::file:
            return file.option + " " + file.path + ": cannot write: " + reason;
        case Destination::standard_output:
            // As the standard tools say it; --out - names its option too.
            return file.option.empty() ? "standard output: " + reason
                                       : file.option + " -: cannot write to standard output: " + reason;
        case Destination::standard_error:
            return "standard error: " + reason;
    }
    return reason;
}

}  // namespace app
