// Pictures of windows and views as SVG, drawn from what the window system holds.
#include "platform/driver.h"
#include "platform/metrics.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>

namespace platform {

using namespace detail;

std::string escapeXml(std::string_view text) {
  std::string out;
  for (char c : text) {
    switch (c) {
    case '&': out += "&amp;"; break;
    case '<': out += "&lt;"; break;
    case '>': out += "&gt;"; break;
    case '"': out += "&quot;"; break;
    case '\'': out += "&apos;"; break;
    default: out += c;
    }
  }
  return out;
}

namespace {

constexpr int kTitleBar = 22;

std::string fourChars(OSType code) {
  std::string s;
  for (int shift = 24; shift >= 0; shift -= 8) s.push_back(static_cast<char>((code >> shift) & 0xFF));
  return s;
}

std::string colourOf(const FillRecord& fill) {
  auto channel = [](CGFloat v) { return static_cast<int>(std::lround(std::clamp(v, 0.0, 1.0) * 255)); };
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "#%02x%02x%02x", channel(fill.red), channel(fill.green),
                channel(fill.blue));
  return buffer;
}

class Painter {
public:
  explicit Painter(std::ostringstream& out) : out_(out) {}

  void view(const OpaqueControlRef& c, int originX, int originY, bool enabled) {
    if (!c.visible) return;
    bool on = enabled && c.enabled;
    int x = originX + c.bounds.left;
    int y = originY + c.bounds.top;
    int w = c.bounds.right - c.bounds.left;
    int h = c.bounds.bottom - c.bounds.top;
    bool container = c.kind == kControlKindRoot || c.kind == kControlKindUserPane;
    if (!container) {
      out_ << "<g data-kind=\"" << escapeXml(fourChars(c.kind)) << "\" data-id=\""
           << c.controlID.id << "\" data-value=\"" << c.value << "\"" << (on ? "" : " opacity=\"0.45\"")
           << ">";
      control(c, x, y, w, h);
      out_ << "</g>\n";
    }
    // Subviews are placed relative to their superview.
    for (const OpaqueControlRef* child : c.children) view(*child, x, y, on);
  }

private:
  void text(const std::u16string& chars, int x, int y, Face face, const char* anchor = "start",
            const char* colour = "#000000") {
    const FaceMetrics& m = metricsOf(face);
    out_ << "<text x=\"" << x << "\" y=\"" << y + m.ascent << "\" font-family=\"sans-serif\" font-size=\""
         << m.pointSize << "\" fill=\"" << colour << "\" text-anchor=\"" << anchor << "\">"
         << escapeXml(toUtf8(chars)) << "</text>";
  }

  void rect(int x, int y, int w, int h, const char* fill, const char* stroke, int radius = 0) {
    out_ << "<rect x=\"" << x << "\" y=\"" << y << "\" width=\"" << std::max(w, 0) << "\" height=\""
         << std::max(h, 0) << "\" rx=\"" << radius << "\" fill=\"" << fill << "\" stroke=\"" << stroke
         << "\"/>";
  }

  void control(const OpaqueControlRef& c, int x, int y, int w, int h) {
    Face face = faceOfControl(c);
    const FaceMetrics& m = metricsOf(face);
    int textY = y + std::max(0, (h - m.lineHeight) / 2);
    switch (c.kind) {
    case kControlKindGroupBox:
      rect(x, y, w, h, "none", "#9a9a9a", 4);
      if (!c.title.empty()) {
        // The title interrupts the frame line, as on screen.
        rect(x + 5, y - m.lineHeight / 2, lineWidth(c.title, face) + 6, m.lineHeight, "#ececec", "none");
        text(c.title, x + 8, y - m.lineHeight / 2, face);
      }
      break;
    case kControlKindCheckBox: {
      int box = std::min(m.toggleBox - 2, std::max(h, 8));
      rect(x, textY, box, box, "#ffffff", "#555555", 2);
      if (c.value) {
        out_ << "<polyline points=\"" << x + 2 << "," << textY + box / 2 << " " << x + box / 2 - 1
             << "," << textY + box - 3 << " " << x + box - 2 << "," << textY + 2
             << "\" fill=\"none\" stroke=\"#000000\" stroke-width=\"2\" data-checked=\"true\"/>";
      }
      text(c.title, x + m.toggleBox + m.toggleGap, textY, face);
      break;
    }
    case kControlKindRadioButton: {
      int r = (m.toggleBox - 2) / 2;
      out_ << "<circle cx=\"" << x + r << "\" cy=\"" << textY + r << "\" r=\"" << r
           << "\" fill=\"#ffffff\" stroke=\"#555555\"/>";
      if (c.value) {
        out_ << "<circle cx=\"" << x + r << "\" cy=\"" << textY + r << "\" r=\"" << r / 2
             << "\" fill=\"#000000\" data-checked=\"true\"/>";
      }
      text(c.title, x + m.toggleBox + m.toggleGap, textY, face);
      break;
    }
    case kControlKindPushButton:
    case kControlKindBevelButton:
      rect(x, y, w, h, "#f4f4f4", "#707070", 5);
      text(c.title, x + w / 2, textY, face, "middle");
      break;
    case kControlKindEditUnicodeText:
    case kControlKindEditText:
      rect(x, y, w, h, "#ffffff", "#707070");
      text(c.password ? std::u16string(c.text.size(), u'\u2022') : c.text, x + 3, textY, face);
      break;
    case kControlKindStaticText: {
      auto lines = layoutLines(c.text, face, c.multiline ? w : 0);
      for (std::size_t i = 0; i < lines.size(); ++i) {
        text(lines[i], x, y + static_cast<int>(i) * m.lineHeight, face);
      }
      break;
    }
    case kControlKindPopupButton: {
      rect(x, y, w, h, "#f4f4f4", "#707070", 4);
      std::u16string shown;
      if (liveMenu(c.menu) && c.value >= 1 && c.value <= static_cast<SInt32>(c.menu->items.size())) {
        shown = c.menu->items[c.value - 1].text;
      }
      text(shown, x + 6, textY, face);
      text(u"\u25BE", x + w - 10, textY, face, "middle");
      break;
    }
    default:
      rect(x, y, w, h, "#e0e0e0", "#9a9a9a");
      break;
    }
  }

  std::ostringstream& out_;
};

void header(std::ostringstream& out, int width, int height) {
  out << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width << "\" height=\"" << height
      << "\" viewBox=\"0 0 " << width << " " << height << "\">\n";
}

} // namespace

std::string windowToSvg(WindowRef window) {
  auto w = liveWindow(window);
  if (!w) return std::string();
  int width = w->content.right - w->content.left;
  int height = w->content.bottom - w->content.top;
  std::ostringstream out;
  header(out, width, height + kTitleBar);
  out << "<rect x=\"0\" y=\"0\" width=\"" << width << "\" height=\"" << kTitleBar
      << "\" fill=\"#d8d8d8\" stroke=\"#8a8a8a\"/>\n";
  const FaceMetrics& m = metricsOf(Face::small);
  out << "<text class=\"title\" x=\"" << width / 2 << "\" y=\"" << (kTitleBar - m.lineHeight) / 2 + m.ascent
      << "\" font-family=\"sans-serif\" font-size=\"" << m.pointSize
      << "\" text-anchor=\"middle\">" << escapeXml(toUtf8(w->title)) << "</text>\n";
  out << "<rect x=\"0\" y=\"" << kTitleBar << "\" width=\"" << width << "\" height=\"" << height
      << "\" fill=\"#ececec\"/>\n";
  if (w->root) Painter(out).view(*w->root, 0, kTitleBar, true);
  out << "</svg>\n";
  return out.str();
}

std::string viewToSvg(ControlRef view) {
  std::shared_ptr<OpaqueControlRef> v = sharedControl(view);
  if (!v) return std::string();
  int width = v->bounds.right - v->bounds.left;
  int height = v->bounds.bottom - v->bounds.top;
  std::ostringstream out;
  header(out, width, height);
  // The view paints its own background when its handlers draw; otherwise the theme's.
  DrawRecord drawn = drawView(view);
  out << "<rect x=\"0\" y=\"0\" width=\"" << width << "\" height=\"" << height
      << "\" fill=\"#ececec\"/>\n";
  for (const FillRecord& fill : drawn.fills) {
    out << "<rect x=\"" << fill.rect.origin.x << "\" y=\"" << fill.rect.origin.y << "\" width=\""
        << fill.rect.size.width << "\" height=\"" << fill.rect.size.height << "\" fill=\""
        << colourOf(fill) << "\"/>\n";
  }
  if (v->dead) return std::string(); // a draw handler disposed it
  Painter painter(out);
  if (v->visible) {
    for (const OpaqueControlRef* child : v->children) painter.view(*child, 0, 0, v->enabled);
  }
  out << "</svg>\n";
  return out.str();
}

} // namespace platform
