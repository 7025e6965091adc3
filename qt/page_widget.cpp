#include "page_widget.h"

#include <QEvent>

#include "binding.h"

namespace zvqt {

PageWidget::PageWidget(zv::PageObject& page, QWidget* parent) : QWidget(parent), page_(page) {
  setFixedSize(twipsToPixels(page.pageWidth()), twipsToPixels(page.pageHeight()));
  // The page's prompts fill their labels; a narrower face keeps them whole
  // where the default one is wide.
  QFont font = platformFont();
  font.setStretch(QFont::SemiCondensed);
  setFont(font);
  views_ = buildViews(page.controls(), *this);
  applyTabOrder(views_);
  for (const auto& [control, view] : views_)
    if (view && view->focusPolicy() != Qt::NoFocus)
      view->installEventFilter(this);
  page_.site().onFocusChanged = [this] { showFocus(); };
}

PageWidget::~PageWidget() {
  page_.site().onFocusChanged = nullptr;
}

QWidget* PageWidget::viewOf(const std::string& name) const {
  zv::Control* control = page_.control(name);
  auto found = views_.find(control);
  return found == views_.end() ? nullptr : found->second;
}

bool PageWidget::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    // The site learns where the user put the focus, so that the page's own
    // SetFocus to that control later still moves it.
    for (const auto& [control, view] : views_)
      if (view == watched)
        const_cast<zv::Control*>(control)->SetFocus();
  }
  return QWidget::eventFilter(watched, event);
}

void PageWidget::showFocus() {
  auto found = views_.find(page_.site().focus());
  if (found != views_.end() && found->second && !found->second->hasFocus())
    found->second->setFocus(Qt::OtherFocusReason);
}

} // namespace zvqt
