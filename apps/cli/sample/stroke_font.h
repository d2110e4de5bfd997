#ifndef APPS_CLI_SAMPLE_STROKE_FONT_H
#define APPS_CLI_SAMPLE_STROKE_FONT_H

#include <QString>

class QPainter;
class QPointF;

namespace sample
{

/// Letters made of pen strokes: captions look the same on every machine and need neither installed fonts nor a
/// GUI application object. Capitals, digits and a little punctuation; other characters are left blank.
double strokeTextWidth(const QString &text, double height);

/// Draws in the colour of the painter's pen; `origin` is the top left corner of the first letter.
void drawStrokeText(QPainter &painter, const QPointF &origin, double height, const QString &text);

} // namespace sample

#endif
