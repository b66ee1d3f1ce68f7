#include "render/GcodeDrawing.h"

#include "machine/EngraveRow.h"
#include "machine/GcodeMoves.h"

#include <QIODevice>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace shapedocument {

namespace {

QColor Burned(double power, double mostPower)
{
    return QColor::fromRgb(QRgb(std::lround(kWhite * (1 - power / mostPower))) * 0x010101U);
}

/// The rectangle burned by a horizontal move, such as a row; it meets those of its neighbours without a gap.
QRectF Strip(const GcodeMove& move, double beam)
{
    return {std::min(move.from.x(), move.to.x()), move.to.y() - beam / 2, std::abs(move.to.x() - move.from.x()), beam};
}

} // namespace

GcodeTrace TraceGcode(QIODevice& device)
{
    device.seek(0);
    GcodeMoves moves(device);
    GcodeTrace trace;
    double left = 0, right = 0, bottom = 0, top = 0;
    while (const auto move = moves.Next()) {
        if (move->power <= 0)
            continue;
        const auto [x1, x2] = std::minmax({move->from.x(), move->to.x()});
        const auto [y1, y2] = std::minmax({move->from.y(), move->to.y()});
        const bool first = trace.mostPower == 0;
        left = first ? x1 : std::min(left, x1);
        right = first ? x2 : std::max(right, x2);
        bottom = first ? y1 : std::min(bottom, y1);
        top = first ? y2 : std::max(top, y2);
        trace.mostPower = std::max(trace.mostPower, move->power);
    }
    trace.rect = QRectF(QPointF(left, bottom), QPointF(right, top));
    trace.ignored = moves.Ignored();
    return trace;
}

void DrawGcode(QPainter& painter, QIODevice& device, const GcodeTrace& trace, double beam)
{
    painter.save();
    painter.translate(0, trace.rect.top() + trace.rect.bottom());
    painter.scale(1, -1);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setCompositionMode(QPainter::CompositionMode_Darken);
    device.seek(0);
    GcodeMoves moves(device);
    while (const auto move = moves.Next()) {
        if (move->power <= 0)
            continue;
        const QColor color = Burned(move->power, trace.mostPower);
        if (move->from.y() == move->to.y()) {
            painter.fillRect(Strip(*move, beam), color);
        } else {
            painter.setPen(QPen(color, beam, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.drawLine(move->from, move->to);
        }
    }
    painter.restore();
}

} // namespace shapedocument
