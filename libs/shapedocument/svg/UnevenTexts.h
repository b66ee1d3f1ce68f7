/// Texts that the renderer puts beside their places.
#pragma once

#include <QTransform>

#include <vector>

class QXmlStreamAttributes;

namespace shapedocument::drawing {

/// Fed with a drawing's elements in order. Where a text is scaled unevenly, the renderer takes the widths of its runs
/// as too long or too short by the ratio of both scales (librsvg 2.54): what is centred, ends at its place or follows
/// another run stands elsewhere.
class UnevenTexts
{
public:
    void Open(QStringView name, const QXmlStreamAttributes& attributes);
    void AddWords(QStringView words);
    void AddRules(const QString& rules);
    /// Whether the element that ends is a text that stands beside its place.
    bool Close();

private:
    struct Level
    {
        QTransform scale;
        bool anchored = false; ///< at its middle or its end
        bool isText = false;
    };
    std::vector<Level> m_levels{Level()};
    bool m_anchoringRule = false; ///< may hold for any text
    bool m_hasWords = false;      ///< of the text that is open
    bool m_goesOn = false;        ///< its words go on in another run
};

} // namespace shapedocument::drawing
