// A property page's controls as widgets, placed from their twips, the
// children of a frame inside the frame's box, in the keyboard order of their
// tab indexes. The focus follows the page's site both ways. The page object
// must outlive the widget.
#pragma once

#include <QWidget>
#include <string>

#include "zelvor/objects.h"
#include "view_factory.h"

namespace zvqt {

class PageWidget : public QWidget {
public:
  explicit PageWidget(zv::PageObject& page, QWidget* parent = nullptr);
  ~PageWidget() override;
  // The view of the named control, or nullptr.
  QWidget* viewOf(const std::string& name) const;

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void showFocus();
  zv::PageObject& page_;
  ViewMap views_;
};

} // namespace zvqt
