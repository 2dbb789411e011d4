#include "app/page/html_page.h"

#include "app/page/page_assets.h"
#include "controls/product.h"
#include "platform/driver.h"

#include <ostream>
#include <stdexcept>

namespace app {

namespace {

// Writes the template from `from` up to its place called `name`, and returns where the template
// goes on after the place.
std::size_t writeUpTo(std::ostream& out, std::string_view name, std::size_t from) {
    const std::string place = "@ORBISETT_" + std::string(name) + "@";
    const std::size_t at = kPageTemplate.find(place, from);
    if (at == std::string_view::npos) {
        throw std::logic_error("the page template has no place " + place);
    }
    out << kPageTemplate.substr(from, at - from);
    return at + place.size();
}

std::string title(const nlohmann::json& scene) {
    const auto comp = scene.find("comp");
    if (comp == scene.end() || !comp->is_object()) {
        return kProductName;
    }
    return "\"" + (*comp)["name"].get<std::string>() + "\" in 3D: " + kProductName;
}

}  // namespace

void writeHtmlPage(std::ostream& out, const PageData& data) {
    std::size_t at = writeUpTo(out, "TITLE", 0);
    out << platform::escapeXml(title(data.scene));
    at = writeUpTo(out, "STYLE", at);
    out << kPageStyle;
    at = writeUpTo(out, "DATA", at);
    writePageData(out, data);
    at = writeUpTo(out, "SCRIPT", at);
    out << kPageScript << kPageTemplate.substr(at);
}

}  // namespace app
