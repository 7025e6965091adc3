// The property page in a dialog with OK, Cancel and Apply. Apply is enabled
// while the site's Changed flag is set; applying runs the page's apply and
// then clears the flag. OK applies what the page shows, then closes; a failed apply
// keeps the dialog open, at its size, with a sentence that says what to do.
// The page must outlive it.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <functional>

#include "page_widget.h"
#include "zelvor/objects.h"

namespace zvqt {

class PageDialog : public QDialog {
public:
  explicit PageDialog(zv::PageObject& page, QWidget* parent = nullptr);
  ~PageDialog() override;

  PageWidget* pageWidget() const { return pageWidget_; }
  QPushButton* applyButton() const { return apply_; }
  QPushButton* okButton() const { return ok_; }
  // Runs the page's apply; false when it failed.
  bool apply();
  // Runs after every successful apply (the host redraws its panel).
  std::function<void()> onApplied;

  void accept() override;
  QLabel* failureLabel() const { return failure_; }
  // The sentence a failed apply shows.
  static QString failureText(const zv::Status& status);

private:
  void showChanged();
  zv::PageObject& page_;
  PageWidget* pageWidget_;
  QLabel* failure_;
  QPushButton* ok_;
  QPushButton* apply_;
};

} // namespace zvqt
