#include "metafile_ops.h"

#include <map>
#include <vector>

namespace zvtest {

namespace {

unsigned rgbOf(COLORREF c) {
  return (GetRValue(c) << 16) | (GetGValue(c) << 8) | GetBValue(c);
}

std::string utf8(const wchar_t* text, int count) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, count, nullptr, 0, nullptr, nullptr);
  std::string out(size, '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, count, out.data(), size, nullptr, nullptr);
  return out;
}

// What SaveDC keeps and RestoreDC gives back, as far as the drawing goes.
struct State {
  Rect clip{-(1 << 20), -(1 << 20), 1 << 20, 1 << 20};
  unsigned brush = 0xffffff, pen = 0, textColor = 0;
  UINT align = TA_TOP | TA_LEFT;
  LOGFONTW font{};
};

struct Object {
  enum Kind { Brush, Pen, Font } kind = Brush;
  unsigned color = 0;
  LOGFONTW font{};
};

// A text's box as the font of the record lays it out.
SIZE measure(const LOGFONTW& font, const std::wstring& text, int* ascentOut) {
  HDC dc = CreateCompatibleDC(nullptr);
  HFONT made = CreateFontIndirectW(&font);
  HGDIOBJ old = SelectObject(dc, made);
  SIZE size{};
  GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc, &metrics);
  *ascentOut = metrics.tmAscent;
  size.cy = metrics.tmHeight;
  SelectObject(dc, old);
  DeleteObject(made);
  DeleteDC(dc);
  return size;
}

class Reader {
public:
  void record(const ENHMETARECORD& r) {
    const auto* bytes = reinterpret_cast<const BYTE*>(&r);
    switch (r.iType) {
    case EMR_HEADER:
    case EMR_EOF:
    case EMR_SETBKMODE:
    case EMR_SETBKCOLOR:
    case EMR_SETMAPMODE:
    case EMR_SETPOLYFILLMODE:
    case EMR_SETROP2:
    case EMR_SETSTRETCHBLTMODE:
    case EMR_SETICMMODE:
    case EMR_SETLAYOUT:
    case EMR_DELETEOBJECT:
      break;
    case EMR_SAVEDC:
      saved_.push_back(now_);
      break;
    case EMR_RESTOREDC: {
      const LONG back = reinterpret_cast<const EMRRESTOREDC&>(r).iRelative;
      for (LONG i = 0; i < -back && !saved_.empty(); ++i) {
        now_ = saved_.back();
        saved_.pop_back();
      }
      break;
    }
    case EMR_INTERSECTCLIPRECT: {
      const RECTL& c = reinterpret_cast<const EMRINTERSECTCLIPRECT&>(r).rclClip;
      now_.clip = {std::max<int>(now_.clip.left, c.left), std::max<int>(now_.clip.top, c.top),
                   std::min<int>(now_.clip.right, c.right),
                   std::min<int>(now_.clip.bottom, c.bottom)};
      break;
    }
    case EMR_CREATEBRUSHINDIRECT: {
      const auto& e = reinterpret_cast<const EMRCREATEBRUSHINDIRECT&>(r);
      objects_[e.ihBrush] = {Object::Brush, rgbOf(e.lb.lbColor), {}};
      break;
    }
    case EMR_CREATEPEN: {
      const auto& e = reinterpret_cast<const EMRCREATEPEN&>(r);
      objects_[e.ihPen] = {Object::Pen, rgbOf(e.lopn.lopnColor), {}};
      break;
    }
    case EMR_EXTCREATEFONTINDIRECTW: {
      const auto& e = reinterpret_cast<const EMREXTCREATEFONTINDIRECTW&>(r);
      objects_[e.ihFont] = {Object::Font, 0, e.elfw.elfLogFont};
      break;
    }
    case EMR_SELECTOBJECT: {
      const DWORD index = reinterpret_cast<const EMRSELECTOBJECT&>(r).ihObject;
      const auto found = objects_.find(index);
      if (found == objects_.end())
        break; // a stock object: none is drawn with here
      const Object& o = found->second;
      if (o.kind == Object::Font)
        now_.font = o.font;
      else
        (o.kind == Object::Brush ? now_.brush : now_.pen) = o.color;
      break;
    }
    case EMR_SETTEXTCOLOR:
      now_.textColor = rgbOf(reinterpret_cast<const EMRSETTEXTCOLOR&>(r).crColor);
      break;
    case EMR_SETTEXTALIGN:
      now_.align = reinterpret_cast<const EMRSETTEXTALIGN&>(r).iMode;
      break;
    case EMR_BITBLT: {
      const auto& e = reinterpret_cast<const EMRBITBLT&>(r);
      if (e.cbBmiSrc == 0 && e.dwRop == PATCOPY)
        ops.fill(e.xDest, e.yDest, e.xDest + e.cxDest, e.yDest + e.cyDest, now_.brush, now_.clip);
      else
        ops.other("a bitmap");
      break;
    }
    case EMR_EXTTEXTOUTW: {
      const auto& e = reinterpret_cast<const EMREXTTEXTOUTW&>(r);
      const std::wstring text(reinterpret_cast<const wchar_t*>(bytes + e.emrtext.offString),
                              e.emrtext.nChars);
      int ascent = 0;
      const SIZE size = measure(now_.font, text, &ascent);
      int left = e.emrtext.ptlReference.x, top = e.emrtext.ptlReference.y;
      if ((now_.align & TA_CENTER) == TA_CENTER)
        left -= size.cx / 2;
      else if (now_.align & TA_RIGHT)
        left -= size.cx;
      if ((now_.align & TA_BASELINE) == TA_BASELINE)
        top -= ascent;
      ops.text(left, top, size.cx, size.cy, now_.textColor,
               utf8(text.c_str(), static_cast<int>(text.size())), now_.clip);
      break;
    }
    default:
      ops.other("metafile record " + std::to_string(r.iType));
      break;
    }
  }

  DrawOpList ops;

private:
  State now_;
  std::vector<State> saved_;
  std::map<DWORD, Object> objects_;
};

} // namespace

DrawOpList metafileOps(HENHMETAFILE metafile) {
  std::vector<BYTE> bits(GetEnhMetaFileBits(metafile, 0, nullptr));
  GetEnhMetaFileBits(metafile, static_cast<UINT>(bits.size()), bits.data());
  Reader reader;
  for (size_t at = 0; at + sizeof(EMR) <= bits.size();) {
    const auto& r = *reinterpret_cast<const ENHMETARECORD*>(bits.data() + at);
    if (r.nSize < sizeof(EMR) || at + r.nSize > bits.size())
      break;
    reader.record(r);
    at += r.nSize;
  }
  return reader.ops;
}

} // namespace zvtest
