#include "page_dialog.h"
#include "binding.h"

#include <QDialogButtonBox>
#include <QVBoxLayout>

namespace zvqt {

PageDialog::PageDialog(zv::PageObject& page, QWidget* parent) : QDialog(parent), page_(page) {
  setWindowTitle(fromAnsi(page.caption()));
  auto* layout = new QVBoxLayout(this);
  pageWidget_ = new PageWidget(page, this);
  layout->addWidget(pageWidget_);
  // The failure line has its room from the start, so the dialog keeps its size.
  failure_ = new QLabel(this);
  failure_->setWordWrap(true);
  failure_->setFixedHeight(2 * failure_->fontMetrics().lineSpacing() + 4);
  failure_->setStyleSheet(QStringLiteral("color: #a00000"));
  layout->addWidget(failure_);
  auto* buttons = new QDialogButtonBox(
      QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply, this);
  layout->addWidget(buttons);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  apply_ = buttons->button(QDialogButtonBox::Apply);
  // Enter in a text box must not close the page behind the user's back.
  ok_->setAutoDefault(false);
  ok_->setDefault(false);
  connect(buttons, &QDialogButtonBox::accepted, this, &PageDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &PageDialog::reject);
  connect(apply_, &QPushButton::clicked, this, [this] { apply(); });
  page_.site().onChangedChanged = [this] { showChanged(); };
  showChanged();
}

PageDialog::~PageDialog() {
  page_.site().onChangedChanged = nullptr;
}

void PageDialog::showChanged() {
  apply_->setEnabled(page_.site().Changed());
}

bool PageDialog::apply() {
  zv::Status status = page_.PropertyPage_ApplyChanges();
  if (!status.ok()) {
    failure_->setText(failureText(status));
    return false;
  }
  failure_->clear();
  page_.site().setChanged(false);
  if (onApplied)
    onApplied();
  return true;
}

QString PageDialog::failureText(const zv::Status& status) {
  // The page's one number typed as text is the period register; the other
  // settings are lists, boxes and labels that always hold a value.
  switch (status.number) {
  case 13:
    return tr("Not applied: the period register box is empty or holds no number. "
              "Enter a whole number from 0 to 255.");
  case 6:
    return tr("Not applied: the period register box holds a number too large. "
              "Enter a whole number from 0 to 255.");
  default:
    return tr("Not applied: %1 (run-time error %2).")
        .arg(QString::fromStdString(status.description))
        .arg(status.number);
  }
}

void PageDialog::accept() {
  // The labels raise no change, so OK applies whatever the page shows.
  if (!apply())
    return;
  QDialog::accept();
}

} // namespace zvqt
