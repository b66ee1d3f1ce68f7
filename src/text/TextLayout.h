/// Layout of a text character by character: the rectangles of its lines, and its outline.
#pragma once

#include "text/TextParameters.h"

#include <QFont>
#include <QHash>
#include <QList>
#include <QPainterPath>
#include <QRectF>
#include <QStringList>

#include <optional>

namespace shapes {

class PathExtent;

/// Lays out one text around the origin, in font pixels, before mirrors, scale, place and angle.
///
/// A line is measured along x on its baseline: every character is placed at the right edge of those measured before it,
/// plus the spacing. A space is measured as ".", so that it has a width, and in vertical writing every character as one
/// square ideograph. What is drawn differs: columns swap x and y, and spaces stay blank.
///
/// The cost is linear in the number of characters. Without a QGuiApplication there are no fonts, hence no lines.
class TextLayout
{
public:
    /// The text must outlive the layout.
    explicit TextLayout(const SText& text);

    /// Rectangle of every line as measured, empty lines included, aligned against each other. All have the first line's
    /// baseline.
    QList<QRectF> LineRects();

    /// The outline of all lines. Letters that draw nothing leave nothing behind.
    QPainterPath Outline();

private:
    QList<QRectF> LeftEdges();
    double LeftEdge(const QString& line);
    double Overhang(QChar letter);
    QRectF MeasuredRect(const QString& line) const;
    QRectF BlankLineRect();
    QPainterPath Piece(double x, double baseline, const QString& letters) const;
    QString Measured(QChar letter) const;
    double Behind(const PathExtent& reach) const;
    PathExtent DrawRow(const QString& line, double x, double baseline, QPainterPath& outline) const;
    PathExtent DrawColumn(const QString& line, const QRectF& rect, double baseline, QPainterPath& outline) const;

    const SText& m_text;
    QFont m_font;
    QStringList m_lines;
    std::optional<QRectF> m_blankLine; ///< null until measured
    QHash<QChar, double> m_overhang;   ///< how far letters reach left of where they are put
};

} // namespace shapes
