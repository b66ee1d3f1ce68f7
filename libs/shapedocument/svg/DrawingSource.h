/// A drawing's text, cleaned of what a renderer must not follow.
#pragma once

#include "svg/DrawingReport.h"

#include <QByteArray>
#include <QSet>

namespace shapedocument::drawing {

/// An SVG that stands for itself: without document type, entities and scripts, linked pictures embedded, group
/// opacities that let anything show through made full, so that all outlines are painted on the page itself.
struct DrawingSource
{
    QByteArray svg;
    QSet<QString> families; ///< lists of font families that texts ask for, as they are written
    DrawingReport report;
    QString error;
};

/// bytes: SVG, plain or compressed. Pictures are taken from baseFile's folder and those below only; from nowhere when it
/// is empty. keepOpacity: of groups; what they paint outside the page is not painted then.
DrawingSource CleanDrawing(const QByteArray& bytes, const QString& baseFile, bool keepOpacity);

} // namespace shapedocument::drawing
