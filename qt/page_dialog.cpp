#include "page_dialog.h"

#include <QDialogButtonBox>
#include <QVBoxLayout>

namespace zvqt {

PageDialog::PageDialog(zv::PageObject& page, QWidget* parent) : QDialog(parent), page_(page) {
  setWindowTitle(QString::fromStdString(page.caption()));
  auto* layout = new QVBoxLayout(this);
  pageWidget_ = new PageWidget(page, this);
  layout->addWidget(pageWidget_);
  failure_ = new QLabel(this);
  failure_->setVisible(false);
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
    failure_->setText(tr("Apply failed: run-time error %1: %2")
                          .arg(status.number)
                          .arg(QString::fromStdString(status.description)));
    failure_->setVisible(true);
    return false;
  }
  failure_->setVisible(false);
  page_.site().setChanged(false);
  if (onApplied)
    onApplied();
  return true;
}

void PageDialog::accept() {
  // The labels raise no change, so OK applies whatever the page shows.
  if (!apply())
    return;
  QDialog::accept();
}

} // namespace zvqt
