// The words above the preview: what the run arranged, on which surface and of what size, where
// that differs from the dialog's box, and which layers the picture does not show.
#pragma once

#include "app/report/run_outcome.h"
#include "host/project.h"

#include <string>
#include <vector>

namespace app {

struct CaptionFacts {
    const host::Comp* comp = nullptr;
    const RunOutcome* outcome = nullptr;
    std::vector<std::string> outside;   // layers beyond the picture's frame
    std::vector<std::string> left_out;  // layers whose corners are not finite numbers
};

// The caption's sentences, each a line or more once wrapped; the legend comes last.
std::vector<std::string> captionSentences(const CaptionFacts& facts);

// Breaks a sentence into lines of at most `width` characters at spaces.
std::vector<std::string> wrapText(const std::string& text, std::size_t width);

// "A, B, C and 4 more".
std::string nameList(const std::vector<std::string>& names, std::size_t shown);

}  // namespace app
