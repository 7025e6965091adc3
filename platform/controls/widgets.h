// The controls of panels and pages: label, frame, line, text box, scroll bar,
// drop-down list, check box. See control.h for the notification contract.
#pragma once

#include <string>
#include <vector>

#include "control.h"

namespace zv {

class Label : public Control {
public:
  enum Alignment { LeftJustify = 0, RightJustify = 1, Center = 2 };
  explicit Label(std::string name) : Control("label", std::move(name)) {}
  const std::string& Caption() const { return caption_; }
  void setCaption(const std::string& c);
  int BorderStyle() const { return borderStyle_; } // 0 none, 1 single line
  void setBorderStyle(int b);
  int Alignment() const { return alignment_; }
  void setAlignment(int a);

private:
  std::string caption_;
  int borderStyle_ = 0;
  int alignment_ = LeftJustify;
};

class Frame : public Control {
public:
  explicit Frame(std::string name) : Control("frame", std::move(name)) {}
  const std::string& Caption() const { return caption_; }
  void setCaption(const std::string& c);

private:
  std::string caption_;
};

class Line : public Control {
public:
  explicit Line(std::string name) : Control("line", std::move(name)) {}
  float X1() const { return x1_; }
  float Y1() const { return y1_; }
  float X2() const { return x2_; }
  float Y2() const { return y2_; }
  void setPoints(float x1, float y1, float x2, float y2);
  Color BorderColor() const { return color_; }
  void setBorderColor(Color c);

private:
  float x1_ = 0, y1_ = 0, x2_ = 0, y2_ = 0;
  Color color_ = 0;
};

class TextBox : public Control {
public:
  explicit TextBox(std::string name) : Control("textbox", std::move(name)) {}
  const std::string& Text() const { return text_; }
  // Runs Change nested when the text really changes.
  void setText(const std::string& t);
  std::function<void()> Change;

private:
  std::string text_;
};

class ScrollBar : public Control {
public:
  explicit ScrollBar(std::string name) : Control("scrollbar", std::move(name)) {}
  int Value() const { return value_; }
  // A value outside Min..Max raises 380 (invalid property value).
  // Runs Change nested when the value really changes.
  void setValue(int v);
  int Min() const { return min_; }
  int Max() const { return max_; }
  void setRange(int min, int max);
  int SmallChange() const { return smallChange_; }
  int LargeChange() const { return largeChange_; }
  void setChanges(int small, int large);
  // A click on the top arrow (minus SmallChange, not below Min) or the
  // bottom arrow (plus SmallChange, not above Max).
  void arrowUp();
  void arrowDown();
  std::function<void()> Change;

private:
  int value_ = 0;
  int min_ = 0;
  int max_ = 32767;
  int smallChange_ = 1;
  int largeChange_ = 1;
};

class ComboBox : public Control {
public:
  explicit ComboBox(std::string name) : Control("combobox", std::move(name)) {}
  void Clear(); // empties the list; ListIndex becomes -1 without a Click
  void AddItem(const std::string& item);
  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::vector<std::string>& items() const { return items_; }
  int ListIndex() const { return listIndex_; }
  // -1 .. ListCount-1, else raises 380. Runs Click nested when it changes.
  void setListIndex(int i);
  std::function<void()> Click;

private:
  std::vector<std::string> items_;
  int listIndex_ = -1;
};

class CheckBox : public Control {
public:
  explicit CheckBox(std::string name) : Control("checkbox", std::move(name)) {}
  const std::string& Caption() const { return caption_; }
  void setCaption(const std::string& c);
  int Value() const { return value_; } // 0 clear, 1 set, 2 greyed
  // 0..2, else raises 380. Runs Click nested when the value really changes.
  void setValue(int v);
  std::function<void()> Click;

private:
  std::string caption_;
  int value_ = 0;
};

} // namespace zv
