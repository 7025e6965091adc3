// A label shown as a QLabel: caption, single-line border, alignment.
#pragma once

#include <QImage>
#include <QLabel>

#include "binding.h"
#include "platform/controls/widgets.h"

namespace zvqt {

class LabelView : public QLabel {
public:
  LabelView(zv::Label& label, QWidget* parent = nullptr);

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void sync();
  QColor ink() const;
  void fillEdge(QPainter& painter, const QColor& ink);
  void paintCaption(QPainter& painter, const QColor& ink);
  zv::Label& label_;
  ControlBinding binding_;
  // The edge and caption as last painted, with what they were painted from.
  QImage picture_;
  QString pictureText_;
  QColor pictureInk_;
  QFont pictureFont_;
  Qt::Alignment pictureAlignment_;
  bool pictureWrap_ = false;
  bool pictureBoxed_ = false;
};

} // namespace zvqt
