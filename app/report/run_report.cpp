#include "app/report/run_report.h"

#include "app/report/display_text.h"
#include "app/report/layer_table.h"
#include "controls/settings_table.h"

#include <algorithm>
#include <set>
#include <unordered_map>

namespace app {

namespace {

// Names listed in the terminal summary; the JSON report lists every one.
constexpr std::size_t kNamesShown = 10;

std::vector<NamedLayer> named(const host::Project& project, host::Id comp_id, const std::vector<host::Id>& ids) {
    std::unordered_map<host::Id, std::size_t> numbers;
    if (const host::Comp* comp = project.comp(comp_id)) {
        for (std::size_t i = 0; i < comp->layers.size(); ++i) {
            numbers.emplace(comp->layers[i].id, i + 1);
        }
    }
    std::vector<NamedLayer> layers;
    for (host::Id id : ids) {
        const host::Layer* layer = project.layer(id);
        const auto number = numbers.find(id);
        if (layer != nullptr && number != numbers.end()) {
            layers.push_back({number->second, layer->name, layerKind(*layer)});
        }
    }
    return layers;
}

std::string plural(std::size_t n, const char* one, const char* many) {
    return (n == 0 ? std::string("no") : std::to_string(n)) + " " + (n == 1 ? one : many);
}

std::string countOf(std::size_t n, const char* one, const char* many) {
    return std::to_string(n) + " " + (n == 1 ? one : many);
}

std::string callList(const std::vector<host::RefusedCall>& calls) {
    std::string text;
    for (const host::RefusedCall& call : calls) {
        text += (text.empty() ? "" : ", ") + refusedCallText(call);
    }
    return text;
}

// How many of the layers the command took the step wrote to.
std::size_t takenWritten(const RunOutcome& outcome) {
    const std::set<host::Id> written(outcome.written.begin(), outcome.written.end());
    return static_cast<std::size_t>(
        std::count_if(outcome.taken.begin(), outcome.taken.end(), [&](host::Id id) { return written.count(id) != 0; }));
}

// "Apply" failed when the host refused one of its calls beyond asking for a suite it may do
// without, or when it wrote fewer layers than it took while the host refused something. Fewer
// layers written with nothing refused is the layout's own choice: with "Repeat Layers" in the given
// steps the list is cut to the places that fit, which can leave selected layers out as well. Such a
// cut makes no copies, so a host without the duplication call refuses nothing in it.
bool applyFailed(const SessionResult& run, const RunOutcome& outcome) {
    const bool refused_call =
        std::any_of(run.apply.refused.begin(), run.apply.refused.end(),
                    [](const host::RefusedCall& c) { return c.call.rfind("AcquireSuite", 0) != 0; });
    const bool shortfall = takenWritten(outcome) != outcome.taken.size();
    return run.apply.pressed && (refused_call || (shortfall && !run.apply.refused.empty()));
}

std::string applyFailure(const SessionResult& run, const RunOutcome& outcome) {
    std::string text = "\"Apply\" stopped: ";
    if (!run.apply.refused.empty()) {
        text += "the host refused " + callList(run.apply.refused) + "; ";
    }
    const std::size_t written = takenWritten(outcome);
    return text + "it wrote to " + std::to_string(written) + " of the " +
           countOf(outcome.taken.size(), "selected layer", "selected layers") +
           (written == outcome.taken.size() ? "" : ", and left the others as they were");
}

std::vector<std::string> failures(const SessionResult& run, const RunOutcome& outcome) {
    std::vector<std::string> lines = hostReports(*run.host);
    if (applyFailed(run, outcome)) {
        lines.push_back(applyFailure(run, outcome));
    }
    return lines;
}

std::string arrangedLine(const RunReport& r) {
    const std::string taken =
        plural(r.selected, "selected layer", "selected layers") + ", " + plural(r.copies, "copy", "copies") + " made";
    switch (r.apply) {
        case ApplyState::not_applied:
            return "nothing: \"Apply\" was not pressed (" + taken + ")";
        case ApplyState::undone:
            return "nothing left: the step was undone (it had " + taken + ")";
        case ApplyState::applied:
            break;
    }
    if (r.stopped_after) {
        return std::to_string(r.arranged) + " of " + countOf(r.selected, "selected layer", "selected layers") +
               ": \"Apply\" stopped " +
               (*r.stopped_after == 0 ? std::string("before writing any layer")
                                      : "after writing to " + std::to_string(*r.stopped_after)) +
               " (" + taken + ")";
    }
    if (r.written == 0) {
        return "nothing: the step wrote no layer (" + taken + ")";
    }
    return std::to_string(r.arranged) + " of " + countOf(r.written, "layer", "layers") + " (" + taken + ")";
}

std::string vectorText(const Vec3& v) {
    return "(" + tableNumber(v.x) + ", " + tableNumber(v.y) + ", " + tableNumber(v.z) + ")";
}

// "N: #n "name", …", with each layer's type in brackets when `with_kind`.
std::string layerList(const std::vector<NamedLayer>& layers, bool with_kind = false) {
    std::string line = std::to_string(layers.size()) + ":";
    for (std::size_t i = 0; i < layers.size() && i < kNamesShown; ++i) {
        line += (i == 0 ? " #" : ", #") + std::to_string(layers[i].number) + " \"" + escapedText(layers[i].name) +
                "\"" + (with_kind ? " (" + layers[i].kind + ")" : "");
    }
    if (layers.size() > kNamesShown) {
        line += " and " + std::to_string(layers.size() - kNamesShown) + " more";
    }
    return line;
}

std::string notReachedLine(const RunReport& r) {
    if (r.stopped_after) {
        return "not known: \"Apply\" stopped part-way";
    }
    if (r.not_reached.empty()) {
        return "none";
    }
    const std::string line = layerList(r.not_reached);
    const bool one = r.not_reached.size() == 1;
    const std::string kept = one ? "it kept its place" : "they kept their places";
    return line + (r.offset.empty()
                       ? " (" + kept + ")"
                       : " (" + kept + ", plus the offset " + r.offset + " added to every position written)");
}

std::string leftOutLine(const RunReport& r) {
    return layerList(r.left_out) + (r.left_out.size() == 1 ? " (it was" : " (they were") +
           " not written: the repeats were cut to the places that fit, and the cut took " +
           (r.left_out.size() == 1 ? "it" : "them") + " from the list too)";
}

// The composition's selection as the scene made it, less the layers the command took.
std::vector<NamedLayer> notTaken(const host::Project& before, const host::Project& after, const RunOutcome& outcome) {
    const host::Comp* comp = before.comp(outcome.comp);
    if (comp == nullptr) {
        return {};
    }
    return named(after, outcome.comp, idsWithout(comp->selection, outcome.taken));
}

std::string notTakenLine(const RunReport& r) {
    return layerList(r.not_taken, true) + (r.not_taken.size() == 1 ? " (selected, but the command did not take it)"
                                                                   : " (selected, but the command did not take them)");
}

std::string undoLine(const RunReport& r) {
    if (r.undo_groups.empty()) {
        return "none";
    }
    std::string line = plural(r.undo_groups.size(), "group", "groups") + ":";
    for (std::size_t i = 0; i < r.undo_groups.size(); ++i) {
        const host::UndoGroup& g = r.undo_groups[i];
        line += std::string(i == 0 ? " " : ", ") + "\"" + escapedText(g.name) + "\"" +
                (g.undone ? " (undone)" : (g.closed ? "" : " (left open)"));
    }
    return line;
}

}  // namespace

RunReport describeRun(const SessionResult& run, const RunOutcome& outcome) {
    const host::Project& project = run.host->project();
    RunReport r;
    r.apply = outcome.apply;
    r.selected = outcome.taken.size();
    r.copies = run.apply.copies;
    r.written = outcome.written.size();
    r.arranged = outcome.arranged.size();
    r.not_reached = named(project, outcome.comp, outcome.not_reached);
    r.not_taken = notTaken(run.before(), project, outcome);
    if (outcome.offset.x != 0 || outcome.offset.y != 0 || outcome.offset.z != 0) {
        r.offset = vectorText(outcome.offset);
    }
    r.surface = describeSurface(outcome.surface);
    r.surface_notes = outcome.surface.notes;
    if (outcome.ring_closing) {
        const host::Layer* last = project.layer(outcome.ring_closing->last);
        r.surface_notes.push_back(
            "the ring did not close evenly: " +
            ringClosingText(escapedText(last != nullptr ? last->name : ""), *outcome.ring_closing));
    }
    for (const host::UndoGroup& g : run.host->undoGroups()) {
        if (g.depth == 0) {
            r.undo_groups.push_back(g);
        }
    }
    r.warnings = runWarnings(run, outcome);
    r.failures = failures(run, outcome);
    if (applyFailed(run, outcome)) {
        // A layer the step stopped on may hold some values and not others: it was neither placed
        // nor left alone by the layout.
        r.stopped_after = takenWritten(outcome);
        r.not_reached.clear();
    } else if (r.apply == ApplyState::applied) {
        r.left_out = named(project, outcome.comp, outcome.left_out);
    }
    return r;
}

void addPreviewWarnings(RunReport& report, const PreviewPicture& preview) {
    for (const std::string& name : preview.left_out) {
        report.warnings.push_back({"", "preview_left_out",
                                   "--preview leaves out \"" + name +
                                       "\": its corners are too large or not finite numbers, so it cannot be drawn"});
    }
}

void addGltfWarnings(RunReport& report, const GltfScene& scene) {
    for (const std::string& name : scene.left_out) {
        report.warnings.push_back({"", "gltf_left_out",
                                   "--gltf leaves out \"" + name +
                                       "\": its position or scale, before or after the run, is too large for the "
                                       "file's single-precision numbers, or not a finite number"});
    }
}

void addPageWarnings(RunReport& report, const PageData& page) {
    for (std::size_t i = 0; i < page.layers.size(); ++i) {
        if (page.layers.drawn[i] == 0) {
            report.warnings.push_back(
                {"", "page_left_out",
                 "--html leaves out \"" + page.layers.names[i] +
                     "\": its corners, before or after the run, are too large or not finite numbers, so it "
                     "cannot be drawn"});
        }
    }
}

std::string summaryText(const RunReport& r) {
    std::string text = "Summary\n";
    text += "  arranged:     " + arrangedLine(r) + "\n";
    text += "  not reached:  " + notReachedLine(r) + "\n";
    if (!r.left_out.empty()) {
        text += "  left out:     " + leftOutLine(r) + "\n";
    }
    if (!r.not_taken.empty()) {
        text += "  not taken:    " + notTakenLine(r) + "\n";
    }
    text += "  surface:      " + r.surface + "\n";
    for (const std::string& note : r.surface_notes) {
        text += "                " + note + "\n";
    }
    text += "  undo:         " + undoLine(r) + "\n";
    if (!r.warnings.empty()) {
        text += "Warnings\n";
        for (const Warning& w : r.warnings) {
            text += "  " + w.text + "\n";
        }
    }
    return text;
}

nlohmann::json summaryJson(const RunReport& r, int status) {
    using nlohmann::json;
    json not_reached = json::array();
    for (const NamedLayer& layer : r.not_reached) {
        not_reached.push_back({{"layer", layer.number}, {"name", layer.name}});
    }
    json left_out = json::array();
    for (const NamedLayer& layer : r.left_out) {
        left_out.push_back({{"layer", layer.number}, {"name", layer.name}});
    }
    json not_taken = json::array();
    for (const NamedLayer& layer : r.not_taken) {
        not_taken.push_back({{"layer", layer.number}, {"name", layer.name}, {"type", layer.kind}});
    }
    json undo = json::array();
    for (const host::UndoGroup& g : r.undo_groups) {
        undo.push_back({{"name", g.name}, {"closed", g.closed}, {"undone", g.undone}});
    }
    json warnings = json::array();
    for (const Warning& w : r.warnings) {
        warnings.push_back({{"control", w.control}, {"kind", w.kind}, {"text", w.text}});
    }
    const char* apply = r.apply == ApplyState::undone        ? "undone"
                        : r.apply == ApplyState::not_applied ? "not_applied"
                        : r.stopped_after                    ? "stopped"
                                                             : "applied";
    return {{"status", status},
            {"apply", apply},
            {"selected", r.selected},
            {"copies", r.copies},
            {"written", r.written},
            {"arranged", r.arranged},
            {"stopped_after", r.stopped_after ? json(*r.stopped_after) : json(nullptr)},
            {"not_reached", std::move(not_reached)},
            {"left_out", std::move(left_out)},
            {"not_taken", std::move(not_taken)},
            {"surface", {{"text", r.surface}, {"notes", r.surface_notes}}},
            {"undo_groups", std::move(undo)},
            {"warnings", std::move(warnings)},
            {"failures", r.failures}};
}

}  // namespace app
