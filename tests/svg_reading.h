// Reading back the window system's SVG pictures: texts with their attributes, the first shape of
// each control, clip rectangles, and the contrast of two colours.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <regex>
#include <string>
#include <vector>

namespace svg_reading {

inline std::string attribute(const std::string& element, const std::string& name) {
    std::smatch m;
    return std::regex_search(element, m, std::regex("\\s" + name + "=\"([^\"]*)\"")) ? m[1].str() : "";
}

inline double number(const std::string& element, const std::string& name) {
    return std::atof(attribute(element, name).c_str());
}

struct Box {
    double x = 0, y = 0, width = 0, height = 0;
};

inline Box boxOf(const std::string& element) {
    return Box{number(element, "x"), number(element, "y"), number(element, "width"), number(element, "height")};
}

struct Text {
    std::string chars, element;
    std::string group;  // the opening tag of its control's <g>
    std::string shape;  // its control's first filled shape drawn before it, if any
    std::string fill() const { return attribute(element, "fill"); }
    double y() const { return number(element, "y"); }
};

// Every <text> of a picture, with the control it belongs to.
inline std::vector<Text> texts(const std::string& svg) {
    std::vector<Text> found;
    std::regex part("<g [^>]*>|<(?:rect|circle)[^>]* fill=\"#[^>]*>|(<text[^>]*>)([^<]*)</text>");
    std::string group, shape;
    for (auto it = std::sregex_iterator(svg.begin(), svg.end(), part); it != std::sregex_iterator(); ++it) {
        std::string whole = (*it)[0].str();
        if (whole.rfind("<g ", 0) == 0) {
            group = whole;
            shape.clear();
        } else if (whole.rfind("<text", 0) != 0) {
            if (shape.empty())
                shape = whole;
        } else {
            found.push_back(Text{(*it)[2].str(), (*it)[1].str(), group, shape});
        }
    }
    return found;
}

inline Text textOf(const std::string& svg, const std::string& chars) {
    for (const Text& t : texts(svg)) {
        if (t.chars == chars)
            return t;
    }
    return Text{};
}

// The rectangle of a text's clip path.
inline Box clipOf(const std::string& svg, const Text& text) {
    std::string reference = attribute(text.element, "clip-path");  // url(#id)
    std::smatch m;
    std::regex rect("<clipPath id=\"" + reference.substr(5, reference.size() - 6) + "\"><rect[^>]*>");
    return std::regex_search(svg, m, rect) ? boxOf(m[0].str()) : Box{};
}

// The frame rectangle of every group box, in drawing order.
inline std::vector<Box> frames(const std::string& svg) {
    std::vector<Box> found;
    std::regex frame("<g data-kind=\"grpb\"[^>]*>(?:<clipPath.*?</clipPath>|<text.*?</text>)*(<rect[^>]*>)");
    for (auto it = std::sregex_iterator(svg.begin(), svg.end(), frame); it != std::sregex_iterator(); ++it) {
        found.push_back(boxOf((*it)[1].str()));
    }
    return found;
}

// Contrast ratio of two "#rrggbb" colours, from their relative luminance.
inline double contrast(const std::string& a, const std::string& b) {
    auto luminance = [](const std::string& hex) {
        double sum = 0;
        for (int i = 0; i < 3; ++i) {
            double c = std::strtol(hex.substr(1 + 2 * i, 2).c_str(), nullptr, 16) / 255.0;
            c = c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
            sum += c * (i == 0 ? 0.2126 : i == 1 ? 0.7152 : 0.0722);
        }
        return sum;
    };
    double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

}  // namespace svg_reading
