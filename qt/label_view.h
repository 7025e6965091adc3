// A label shown as a QLabel: caption, single-line border, alignment.
#pragma once

#include <QImage>
#include <QLabel>
#include <QStaticText>

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
  void prepareText(const QRect& area);
  void paintEdge();
  void fillEdge(QPainter& painter, const QColor& ink);
  void paintCaption(QPainter& painter, const QColor& ink);
  zv::Label& label_;
  ControlBinding binding_;
  // The caption laid out once, for as long as caption, area and font stay:
  // a panel's labels keep their captions while it repaints at every step.
  QStaticText shaped_;
  QString shapedText_;
  QSize shapedArea_;
  QFont shapedFont_;
  Qt::Alignment shapedAlignment_;
  bool shapedWrap_ = false;
  bool shapedValid_ = false;
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
