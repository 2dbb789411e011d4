#include "app/drawing/preview_caption.h"

#include <sstream>

namespace app {

namespace {

constexpr std::size_t kNamesShown = 6;

std::string layerName(const host::Comp& comp, host::Id id) {
    for (const host::Layer& layer : comp.layers) {
        if (layer.id == id) {
            return layer.name;
        }
    }
    return "?";
}

// Only the names a list shows are looked up: each look-up walks the layers, and the rest are counted.
std::vector<std::string> names(const host::Comp& comp, const std::vector<host::Id>& ids) {
    std::vector<std::string> out(ids.size());
    for (std::size_t i = 0; i < std::min(ids.size(), kNamesShown); ++i) {
        out[i] = layerName(comp, ids[i]);
    }
    return out;
}

std::string count(std::size_t n, const char* one, const char* many) {
    return std::to_string(n) + " " + (n == 1 ? one : many);
}

std::string whatRan(const host::Comp& comp, const RunOutcome& o) {
    std::string text = "\"" + comp.name + "\": ";
    switch (o.apply) {
        case ApplyState::not_applied:
            return text + "not applied; the command would take " + count(o.taken.size(), "layer", "layers") + ".";
        case ApplyState::undone:
            return text + "the step was undone: every layer is back where it was.";
        case ApplyState::applied:
            break;
    }
    if (o.written.empty()) {
        return text + "the step wrote no layer.";
    }
    text += std::to_string(o.arranged.size()) + " of " + count(o.written.size(), "layer", "layers") +
            " placed on the surface";
    if (!o.copies.empty()) {
        text += " (" + count(o.copies.size(), "copy", "copies") + " made)";
    }
    return text + ".";
}

std::string notesSentence(const Surface& s) {
    std::string text;
    for (const std::string& note : s.notes) {
        text += (text.empty() ? "" : "; ") + note;
    }
    if (text.empty()) {
        return text;
    }
    text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    return text + ".";
}

}  // namespace

std::string nameList(const std::vector<std::string>& list, std::size_t shown) {
    std::string text;
    const std::size_t n = std::min(list.size(), shown);
    for (std::size_t i = 0; i < n; ++i) {
        text += (i == 0 ? "" : ", ") + list[i];
    }
    if (list.size() > n) {
        text += " and " + std::to_string(list.size() - n) + " more";
    }
    return text;
}

std::vector<std::string> captionSentences(const CaptionFacts& f) {
    const RunOutcome& o = *f.outcome;
    std::vector<std::string> lines{whatRan(*f.comp, o), describeSurface(o.surface) + "."};
    if (const std::string notes = notesSentence(o.surface); !notes.empty()) {
        lines.push_back(notes);
    }
    if (o.ring_closing) {
        lines.push_back("The ring did not close evenly: " +
                        ringClosingText(layerName(*f.comp, o.ring_closing->last), *o.ring_closing) + ".");
    }
    if (!o.not_reached.empty()) {
        lines.push_back("Not reached by the layout (kept their places, moved by the composition-centre offset): " +
                        nameList(names(*f.comp, o.not_reached), kNamesShown) + ".");
    }
    if (!o.left_out.empty()) {
        lines.push_back(
            "Not written by the run, exactly as they were: " + nameList(names(*f.comp, o.left_out), kNamesShown) + ".");
    }
    if (!f.outside.empty()) {
        lines.push_back("Outside the picture, not drawn: " + nameList(f.outside, kNamesShown) + ".");
    }
    if (!f.left_out.empty()) {
        lines.push_back("Left out, too large or not finite to draw: " + nameList(f.left_out, kNamesShown) + ".");
    }
    lines.push_back(
        "Light: front faces; dark: back faces; dashed: text and shape layers, at the extent the layout gave "
        "them; faint grey: the composition's frame and centre; dashed grey: the surface used.");
    return lines;
}

std::vector<std::string> wrapText(const std::string& text, std::size_t width) {
    std::vector<std::string> lines;
    std::istringstream words(text);
    std::string word, line;
    while (words >> word) {
        if (!line.empty() && line.size() + 1 + word.size() > width) {
            lines.push_back(line);
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
    }
    if (!line.empty()) {
        lines.push_back(line);
    }
    return lines;
}

}  // namespace app
