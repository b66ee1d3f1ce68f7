#include "svg/LetterPlaces.h"

#include <QRegularExpression>
#include <QXmlStreamWriter>

#include <algorithm>

namespace shapedocument::drawing {

namespace {

constexpr QChar kUnbrokenSpace(0xA0); ///< as wide as a space, but kept at the start of an element

QStringList ListOf(const QString& value)
{
    static const QRegularExpression separators("[\\s,]+");
    return value.split(separators, Qt::SkipEmptyParts);
}

} // namespace

void LetterPlaces::Open(QStringView name, const QXmlStreamAttributes& attributes)
{
    Level level;
    level.isText = name == u"text" || (m_levels.back().isText && name != u"title" && name != u"desc");
    level.keepsSpace = m_levels.back().keepsSpace;
    if (attributes.hasAttribute("xml:space"))
        level.keepsSpace = attributes.value("xml:space") == u"preserve";
    if (name == u"text") {
        m_letter = 0;
        m_afterSpace = true;
    }
    level.start = m_letter;
    if (level.isText)
        for (size_t i = 0; i < kNames.size(); ++i)
            level.lists[i] = ListOf(attributes.value(QLatin1String(kNames[i])).toString());
    m_levels.push_back(std::move(level));
}

QString LetterPlaces::Kept(const QString& attribute, const QString& value) const
{
    if (m_levels.back().isText)
        for (size_t i = 0; i < kNames.size(); ++i)
            if (attribute == QLatin1String(kNames[i]) && m_levels.back().lists[i].size() > 1)
                return m_levels.back().lists[i].first();
    return value;
}

/// Whether the open elements have places for letters that follow.
bool LetterPlaces::HasMore() const
{
    return std::any_of(m_levels.begin(), m_levels.end(), [this](const Level& level) {
        return std::any_of(level.lists.begin(), level.lists.end(), [&](const QStringList& list) {
            return list.size() > 1 && list.size() > m_letter - level.start;
        });
    });
}

/// The letter's places, each from the innermost element that has one. The first place of a list belongs to the element
/// itself and is not returned.
LetterPlaces::Place LetterPlaces::PlaceOf(int letter) const
{
    Place place;
    for (size_t i = 0; i < kNames.size(); ++i)
        for (auto level = m_levels.rbegin(); level != m_levels.rend(); ++level)
            if (const int at = letter - level->start; at < level->lists[i].size()) {
                if (at > 0)
                    place.emplace_back(kNames[i], level->lists[i][at]);
                break;
            }
    return place;
}

/// Whether a character counts as a letter that may have a place. Unless space is kept, line ends are left out (letter
/// becomes null) and other white space counts once.
bool LetterPlaces::Counts(QChar& letter)
{
    const bool lineEnd = letter == u'\n' || letter == u'\r';
    const bool space = letter == u' ' || letter == u'\t' || lineEnd;
    const bool leftOut = space && !m_levels.back().keepsSpace && (lineEnd || m_afterSpace);
    if (leftOut)
        letter = QChar();
    if (leftOut || letter.isLowSurrogate())
        return false;
    m_afterSpace = space;
    if (space)
        letter = kUnbrokenSpace;
    return true;
}

void LetterPlaces::Write(QStringView words, const QString& prefix, QXmlStreamWriter& out)
{
    if (!m_levels.back().isText)
        return out.writeCharacters(words.toString());
    const bool split = HasMore();
    QString run;
    bool open = false;
    const auto write = [&] {
        out.writeCharacters(run);
        run.clear();
    };
    for (QChar letter : words) {
        if (Counts(letter)) {
            const Place place = split ? PlaceOf(m_letter) : Place();
            ++m_letter;
            if (!place.empty()) {
                write();
                if (open)
                    out.writeEndElement();
                out.writeStartElement(prefix + "tspan");
                for (const auto& [name, value] : place)
                    out.writeAttribute(QLatin1String(name), value);
                open = true;
            }
        }
        if (!letter.isNull())
            run += letter;
    }
    if (!split)
        run = words.toString();
    write();
    if (open)
        out.writeEndElement();
}

} // namespace shapedocument::drawing
