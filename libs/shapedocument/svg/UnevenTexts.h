/// Finds texts that the renderer paints at a wrong place.
#pragma once

#include <QTransform>

#include <vector>

class QXmlStreamAttributes;

namespace shapedocument::drawing {

/// Receives a drawing's elements in order. Where the scales of a text along x and y differ, the renderer (librsvg 2.54)
/// takes the widths of its runs as too long or too short by their ratio. Texts that are centred, that end at their
/// place or that have a run after another one are then shifted.
class UnevenTexts
{
public:
    void Open(QStringView name, const QXmlStreamAttributes& attributes);
    void AddWords(QStringView words);
    void AddRules(const QString& rules);
    /// Whether the element that ends is such a text.
    bool Close();

private:
    struct Level
    {
        QTransform scale;
        bool anchored = false; ///< placed by its middle or its end
        bool isText = false;
    };
    std::vector<Level> m_levels{Level()};
    bool m_anchoringRule = false; ///< a rule sets an anchor; it may apply to any text
    bool m_hasWords = false;      ///< the open text has words so far
    bool m_goesOn = false;        ///< its words continue in another run
};

} // namespace shapedocument::drawing
