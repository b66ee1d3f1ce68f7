/// A drawing's text, without what a renderer must not follow.
#pragma once

#include "document/WorkProgress.h"
#include "svg/DrawingReport.h"
#include "svg/HeldPictures.h"
#include "svg/SourceTexts.h"

#include <QByteArray>
#include <QSet>

#include <vector>

namespace shapedocument::drawing {

/// A self-contained SVG: without document type, entities and scripts; linked pictures embedded; partial opacities of
/// groups made full, so that all outlines are painted on the page itself.
struct DrawingSource
{
    QByteArray svg;
    QSet<QString> families;        ///< lists of font families in texts, as written
    std::vector<SourceText> texts; ///< filled if SourceOptions::markTexts
    std::vector<HeldPicture> held; ///< filled by HoldPictures
    double reach = 0;    ///< upper bound of the painted points' coordinates on the page, in user units; may be infinite
    int farElements = 0; ///< that have points beyond kPaintedReach, as far as the source tells
    bool hasOpacity = false; ///< kept with SourceOptions::keepOpacity
    DrawingReport report;
    QString error;
};

struct SourceOptions
{
    bool keepOpacity = false; ///< of groups; these then paint nothing outside the page
    bool markTexts = false;   ///< gives every text an id
};

/// bytes: SVG, plain or compressed. Pictures are read only from baseFile's folder and those below; if it is empty, none
/// are. Throws Stopped.
DrawingSource CleanDrawing(const QByteArray& bytes, const QString& baseFile, const SourceOptions& options,
                           const WorkProgress& progress);

} // namespace shapedocument::drawing
