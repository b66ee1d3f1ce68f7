/// Reading G-code: the moves of a machine's head, and the power on each.
#pragma once

#include "shapedocument_export.h"

#include <QPointF>
#include <QString>

#include <map>
#include <optional>
#include <vector>

class QIODevice;

namespace shapedocument {

/// One straight move of the head.
struct GcodeMove
{
    QPointF from;      ///< mm, as the machine counts: y usually upwards
    QPointF to;        ///< mm
    double power = 0;  ///< S word; 0 while the laser is off, as it always is on G0
    double feed = 0;   ///< mm per minute; 0 on G0
    double height = 0; ///< mm, z
};

/// Reads G-code as GRBL and Marlin in laser mode take it: G0 to G3 (with I and J), G20, G21, G90 and G91, M3 to M5,
/// with words that stay until they change. Other G, M and T words are counted.
class SHAPEDOCUMENT_EXPORT GcodeMoves
{
public:
    /// device is borrowed and read from where it stands.
    explicit GcodeMoves(QIODevice& device);

    /// The next straight move, arcs in pieces; nothing at the end. Moves without length are skipped. Cost: O(length of
    /// the line).
    std::optional<GcodeMove> Next();

    /// G, M and T words that were not understood, by name, with their number.
    const std::map<QString, size_t>& Ignored() const { return m_ignored; }

private:
    struct Words;

    SHAPEDOCUMENT_NO_EXPORT void Apply(const Words& words);
    SHAPEDOCUMENT_NO_EXPORT void Obey(char letter, double number);
    SHAPEDOCUMENT_NO_EXPORT void Go(const Words& words);
    SHAPEDOCUMENT_NO_EXPORT QPointF Target(const Words& words) const;

    QIODevice& m_device;
    std::map<QString, size_t> m_ignored;
    int m_motion = 0;
    bool m_on = false;
    bool m_relative = false;
    double m_unit = 1; ///< mm
    double m_power = 0;
    double m_feed = 0;
    double m_height = 0;
    QPointF m_place;

    // The move being returned, in one piece or several.
    GcodeMove m_move;
    QPointF m_centre;
    double m_sweep = 0; ///< radians, of an arc
    int m_piece = 0;
    int m_pieces = 0;
    QPointF m_end;
};

} // namespace shapedocument
