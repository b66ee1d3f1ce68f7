/// Places of single letters: the renderer takes one place from each element only.
#pragma once

#include <QStringList>

#include <array>
#include <utility>
#include <vector>

class QXmlStreamAttributes;
class QXmlStreamWriter;

namespace shapedocument::drawing {

/// Fed with the elements of texts in order; makes an element of its own for each letter that has a place.
class LetterPlaces
{
public:
    void Open(QStringView name, const QXmlStreamAttributes& attributes);
    void Close() { m_levels.pop_back(); }
    /// What of an attribute stands in the copy: of a list of places the first one.
    QString Kept(const QString& attribute, const QString& value) const;
    /// prefix: of the names of the drawing's elements, as "svg:".
    void Write(QStringView words, const QString& prefix, QXmlStreamWriter& out);

private:
    static constexpr std::array kNames{"x", "y", "dx", "dy"};
    using Place = std::vector<std::pair<const char*, QString>>; ///< attributes

    struct Level
    {
        std::array<QStringList, kNames.size()> lists; ///< of one place each where the element has the attribute
        int start = 0;                                ///< letters before the element
        bool isText = false;                          ///< it is a text or in one
        bool keepsSpace = false;
    };

    bool HasMore() const;
    Place PlaceOf(int letter) const;
    bool Counts(QChar& letter);

    std::vector<Level> m_levels{Level()};
    int m_letter = 0; ///< of the text that is open
    bool m_afterSpace = true;
};

} // namespace shapedocument::drawing
