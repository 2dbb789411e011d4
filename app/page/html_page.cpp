#include "app/page/html_page.h"

#include "app/page/page_assets.h"
#include "platform/driver.h"

#include <stdexcept>

namespace app {

namespace {

// Fills the template's place called `name`, searching from `from`, with `text`; returns where the
// text ends, so that nothing filled in is searched for a later place.
std::size_t fill(std::string& page, std::string_view name, std::string_view text, std::size_t from) {
    const std::string place = "@ORBISETT_" + std::string(name) + "@";
    const std::size_t at = page.find(place, from);
    if (at == std::string::npos) {
        throw std::logic_error("the page template has no place " + place);
    }
    page.replace(at, place.size(), text);
    return at + text.size();
}

// JSON that can stand inside a script element: no '<' can open "</script" or "<!--" there. A '<'
// occurs only inside JSON strings, where its \u escape reads back the same.
std::string scriptSafeJson(const nlohmann::json& data) {
    const std::string text = data.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    std::string safe;
    safe.reserve(text.size());
    for (const char c : text) {
        if (c == '<') {
            safe += "\\u003c";
        } else {
            safe += c;
        }
    }
    return safe;
}

}  // namespace

std::string htmlPage(const nlohmann::json& scene_data) {
    std::string title = "Orbisett";
    if (scene_data.contains("comp") && scene_data["comp"].is_object()) {
        title = "\"" + scene_data["comp"]["name"].get<std::string>() + "\" in 3D: Orbisett";
    }
    std::string page(kPageTemplate);
    std::size_t at = fill(page, "TITLE", platform::escapeXml(title), 0);
    at = fill(page, "STYLE", kPageStyle, at);
    at = fill(page, "DATA", scriptSafeJson(scene_data), at);
    fill(page, "SCRIPT", kPageScript, at);
    return page;
}

}  // namespace app
