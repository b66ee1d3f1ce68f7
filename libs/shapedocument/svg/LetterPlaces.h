/// Splits texts into single letters where these have places: the renderer uses only one place of each element.
#pragma once

#include <QStringList>

#include <array>
#include <utility>
#include <vector>

class QXmlStreamAttributes;
class QXmlStreamWriter;

namespace shapedocument::drawing {

/// Receives the elements of texts in order, and writes an element for each letter that has a place.
class LetterPlaces
{
public:
    void Open(QStringView name, const QXmlStreamAttributes& attributes);
    void Close() { m_levels.pop_back(); }
    /// The value of an attribute in the copy: the first place of a list of places, else unchanged.
    QString Kept(const QString& attribute, const QString& value) const;
    /// Writes a piece of text to out. prefix: that of the drawing's element names, as "svg:".
    void Write(QStringView words, const QString& prefix, QXmlStreamWriter& out);

private:
    static constexpr std::array kNames{"x", "y", "dx", "dy"};
    using Place = std::vector<std::pair<const char*, QString>>; ///< attributes

    struct Level
    {
        std::array<QStringList, kNames.size()> lists; ///< the places in each of kNames' attributes
        int start = 0;                                ///< letters before the element
        bool isText = false;                          ///< a text, or an element in one
        bool keepsSpace = false;
    };

    bool HasMore() const;
    Place PlaceOf(int letter) const;
    bool Counts(QChar& letter);

    std::vector<Level> m_levels{Level()};
    int m_letter = 0; ///< index of the next letter in the open text
    bool m_afterSpace = true;
};

} // namespace shapedocument::drawing
