// Texts of a canvas. Shaping and blending a text's glyphs costs more than the
// rest of a canvas, and from one step of a simulation to the next most of a
// panel's texts stay where they were, over the same pixels.
#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <string>

namespace zvqt {

// Draws the text with its top left at `at`, in the painter's font.
void drawText(QPainter& painter, QPointF at, const std::string& text, const QColor& color);

// The same, where `target` is the image the painter paints on, translated by
// whole pixels only, and `clip` the painter's clip on it. A text drawn at the
// same place onto the same pixels before is copied from what it made of them
// then: the same pixels as drawing it again.
void drawText(QPainter& painter, QImage& target, QRect clip, QPointF at, const std::string& text,
              const QColor& color);

} // namespace zvqt
