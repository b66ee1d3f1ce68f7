/// A drawing's text, cleaned of what a renderer must not follow.
#pragma once

#include "document/WorkProgress.h"
#include "svg/DrawingReport.h"
#include "svg/SourceTexts.h"

#include <QByteArray>
#include <QSet>

#include <vector>

namespace shapedocument::drawing {

/// An SVG that stands for itself: without document type, entities and scripts, linked pictures embedded, group
/// opacities that let anything show through made full, so that all outlines are painted on the page itself.
struct DrawingSource
{
    QByteArray svg;
    QSet<QString> families;        ///< lists of font families that texts ask for, as they are written
    std::vector<SourceText> texts; ///< where they are marked
    double reach = 0; ///< bounds the painted points' coordinates on the page in user units; may be infinite
    DrawingReport report;
    QString error;
};

struct SourceOptions
{
    bool keepOpacity = false; ///< of groups; what they paint outside the page is not painted then
    bool markTexts = false;   ///< every text has an id
};

/// bytes: SVG, plain or compressed. Pictures are taken from baseFile's folder and those below only; from nowhere when
/// it is empty. Throws Stopped.
DrawingSource CleanDrawing(const QByteArray& bytes, const QString& baseFile, const SourceOptions& options,
                           const WorkProgress& progress);

} // namespace shapedocument::drawing
