// Drawing operations in device pixels, written down the same way from a Qt
// paint engine on Linux and from a GDI metafile under Wine, so that the two
// drawings of a panel can be compared operation for operation. A line along a
// row or a column is the fill of its pixels, as both painters draw it; what a
// clip hides is cut off.
#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

namespace zvtest {

struct Rect {
  int left = 0, top = 0, right = 0, bottom = 0; // right and bottom exclusive
};

struct DrawOp {
  enum Kind { Fill, Line, Text, Other } kind = Other;
  int x1 = 0, y1 = 0, x2 = 0, y2 = 0; // a fill's edges, a line's ends, a text's box
  unsigned color = 0;                 // 0xRRGGBB
  std::string text;                   // a text's characters (UTF-8), or what Other was

  std::string str() const {
    char head[96];
    const char* names[] = {"fill", "line", "text", "other"};
    if (kind == Other)
      return std::string("other ") + text;
    std::snprintf(head, sizeof head, "%s %d %d %d %d %06x", names[kind], x1, y1, x2, y2, color);
    return kind == Text ? head + (" " + text) : head;
  }
};

class DrawOpList {
public:
  void fill(int left, int top, int right, int bottom, unsigned color, Rect clip) {
    left = std::max(left, clip.left);
    top = std::max(top, clip.top);
    right = std::min(right, clip.right);
    bottom = std::min(bottom, clip.bottom);
    if (left < right && top < bottom)
      ops_.push_back({DrawOp::Fill, left, top, right, bottom, color, {}});
  }
  // Both end pixels included.
  void line(int x1, int y1, int x2, int y2, unsigned color, Rect clip) {
    if (x1 == x2 || y1 == y2) {
      fill(std::min(x1, x2), std::min(y1, y2), std::max(x1, x2) + 1, std::max(y1, y2) + 1, color,
           clip);
      return;
    }
    if (std::max(x1, x2) < clip.left || std::min(x1, x2) >= clip.right ||
        std::max(y1, y2) < clip.top || std::min(y1, y2) >= clip.bottom)
      return;
    ops_.push_back({DrawOp::Line, x1, y1, x2, y2, color, {}});
  }
  // A text by its box: top left, width and height.
  void text(int left, int top, int width, int height, unsigned color, std::string characters,
            Rect clip) {
    if (left + width <= clip.left || left >= clip.right || top + height <= clip.top ||
        top >= clip.bottom || characters.empty())
      return;
    ops_.push_back(
        {DrawOp::Text, left, top, left + width, top + height, color, std::move(characters)});
  }
  void other(std::string what) { ops_.push_back({DrawOp::Other, 0, 0, 0, 0, 0, std::move(what)}); }

  const std::vector<DrawOp>& ops() const { return ops_; }

  bool inText(int x, int y) const {
    return std::any_of(ops_.begin(), ops_.end(), [&](const DrawOp& op) {
      return op.kind == DrawOp::Text && x >= op.x1 - 1 && x <= op.x2 && y >= op.y1 - 1 &&
             y <= op.y2;
    });
  }

  std::string str() const {
    std::string all;
    for (const DrawOp& op : ops_)
      all += op.str() + "\n";
    return all;
  }

  static DrawOpList parse(const std::string& lines) {
    DrawOpList list;
    std::istringstream in(lines);
    std::string line;
    while (std::getline(in, line)) {
      std::istringstream words(line);
      std::string kind, color;
      DrawOp op;
      words >> kind;
      if (kind == "other") {
        std::getline(words >> std::ws, op.text);
        list.ops_.push_back(op);
        continue;
      }
      words >> op.x1 >> op.y1 >> op.x2 >> op.y2 >> color;
      op.color = static_cast<unsigned>(std::strtoul(color.c_str(), nullptr, 16));
      op.kind = kind == "fill" ? DrawOp::Fill : kind == "line" ? DrawOp::Line : DrawOp::Text;
      if (op.kind == DrawOp::Text) {
        words.get(); // the one space before the characters
        std::getline(words, op.text);
      }
      if (!kind.empty())
        list.ops_.push_back(op);
    }
    return list;
  }

private:
  std::vector<DrawOp> ops_;
};

// Two texts are the same operation when their characters, colour and top are
// and they stand at the same left or, laid out centred, within a pixel of the
// same centre: their widths are the fonts'.
inline bool sameOp(const DrawOp& a, const DrawOp& b) {
  if (a.kind != DrawOp::Text || b.kind != DrawOp::Text)
    return a.kind == b.kind && a.x1 == b.x1 && a.y1 == b.y1 && a.x2 == b.x2 && a.y2 == b.y2 &&
           a.color == b.color && a.text == b.text;
  return a.text == b.text && a.color == b.color && a.y1 == b.y1 &&
         (a.x1 == b.x1 || std::abs((a.x1 + a.x2) - (b.x1 + b.x2)) <= 2);
}

// Empty when the lists hold the same operations in the same order.
inline std::string firstDifference(const DrawOpList& a, const DrawOpList& b) {
  const auto& x = a.ops();
  const auto& y = b.ops();
  for (size_t i = 0; i < std::max(x.size(), y.size()); ++i) {
    if (i < x.size() && i < y.size() && sameOp(x[i], y[i]))
      continue;
    return "operation " + std::to_string(i + 1) + ": " +
           (i < x.size() ? x[i].str() : std::string("nothing")) + " | " +
           (i < y.size() ? y[i].str() : std::string("nothing"));
  }
  return {};
}

} // namespace zvtest
