// Reading back what the window system's SVG pictures draw: text elements with their attributes,
// frame rectangles, clip rectangles, and the contrast of two colours.
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
  std::regex pattern("\\s" + name + "=\"([^\"]*)\"");
  return std::regex_search(element, m, pattern) ? m[1].str() : std::string();
}

inline double number(const std::string& element, const std::string& name) {
  return std::atof(attribute(element, name).c_str());
}

struct Text {
  std::string chars, fill, weight, clip;
  std::string group;     // the opening tag of the control's <g>
  std::string groupFill; // the fill of the control's first filled shape drawn before the text
  double x = 0, y = 0;
};

// Every <text> of a picture, with the control it belongs to.
inline std::vector<Text> texts(const std::string& svg) {
  std::vector<Text> found;
  std::regex element("<g [^>]*>|<(?:rect|circle)[^>]* fill=\"#[^>]*>|<text[^>]*>([^<]*)</text>");
  std::string group, groupFill;
  for (auto it = std::sregex_iterator(svg.begin(), svg.end(), element); it != std::sregex_iterator(); ++it) {
    std::string whole = (*it)[0].str();
    if (whole.rfind("<g ", 0) == 0) {
      group = whole;
      groupFill.clear();
      continue;
    }
    if (whole.rfind("<text", 0) != 0) {
      if (groupFill.empty()) groupFill = attribute(whole, "fill");
      continue;
    }
    Text t;
    t.chars = (*it)[1].str();
    t.fill = attribute(whole, "fill");
    t.weight = attribute(whole, "font-weight");
    t.clip = attribute(whole, "clip-path");
    t.group = group;
    t.groupFill = groupFill;
    t.x = number(whole, "x");
    t.y = number(whole, "y");
    found.push_back(t);
  }
  return found;
}

inline Text textOf(const std::string& svg, const std::string& chars) {
  for (const Text& t : texts(svg)) {
    if (t.chars == chars) return t;
  }
  return Text{};
}

struct Box {
  double x = 0, y = 0, width = 0, height = 0;
};

inline Box boxOf(const std::string& element) {
  return Box{number(element, "x"), number(element, "y"), number(element, "width"), number(element, "height")};
}

// The rectangle of a clip-path reference such as "url(#clip3)".
inline Box clipBox(const std::string& svg, const std::string& reference) {
  std::string id = reference.substr(5, reference.size() - 6);
  std::smatch m;
  std::regex pattern("<clipPath id=\"" + id + "\"><rect[^>]*>");
  return std::regex_search(svg, m, pattern) ? boxOf(m[0].str()) : Box{};
}

// The first <rect> of every control of a kind ("grpb" gives group boxes' frames), in order.
inline std::vector<std::string> firstRects(const std::string& svg, const std::string& kind) {
  std::vector<std::string> found;
  std::regex pattern("<g data-kind=\"" + kind + "\"[^>]*>(?:<clipPath.*?</clipPath>|<text.*?</text>)*(<rect[^>]*>)");
  for (auto it = std::sregex_iterator(svg.begin(), svg.end(), pattern); it != std::sregex_iterator(); ++it) {
    found.push_back((*it)[1].str());
  }
  return found;
}

inline double channel(const std::string& hex, int i) {
  double c = std::strtol(hex.substr(1 + 2 * i, 2).c_str(), nullptr, 16) / 255.0;
  return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

// Contrast ratio of two "#rrggbb" colours, from their relative luminance.
inline double contrast(const std::string& a, const std::string& b) {
  auto luminance = [](const std::string& hex) {
    return 0.2126 * channel(hex, 0) + 0.7152 * channel(hex, 1) + 0.0722 * channel(hex, 2);
  };
  double la = luminance(a), lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

} // namespace svg_reading
