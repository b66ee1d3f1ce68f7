#include "document/TextFindings.h"

#include "document/ShapeWalk.h"

#include "check/StoredTexts.h"
#include "list/ShapeList.h"
#include "text/ShapeText.h"

#include <QChar>
#include <QFile>
#include <QFontInfo>
#include <QGlyphRun>
#include <QRawFont>
#include <QStringList>
#include <QTextLayout>

#include <algorithm>
#include <cstring>

namespace shapedocument {

namespace {

constexpr qsizetype kMostNames = 12; ///< characters named in one line
constexpr char32_t kLastOfFirstPlane = 0xFFFF;

/// The family that the font engine uses; the same if it is installed.
QString FamilyInUse(const QString& family)
{
    return QFontInfo(QFont(family)).family();
}

/// Whether the font or one of its substitutes has a glyph for the letter, not only a box.
bool HasGlyph(const QFont& font, char32_t letter)
{
    QTextLayout layout(QString::fromUcs4(&letter, 1), font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = line.glyphRuns();
    return std::all_of(runs.begin(), runs.end(), [](const QGlyphRun& run) {
        // If no font supports the script, the platform draws boxes that belong to no font file.
        return !run.glyphIndexes().contains(0) && !run.rawFont().fontTable("head").isEmpty();
    });
}

/// Letters of these scripts change shape or order depending on their neighbours.
bool IsJoinedScript(QChar::Script script)
{
    return (script >= QChar::Script_Devanagari && script <= QChar::Script_Sinhala) || script == QChar::Script_Tibetan ||
           script == QChar::Script_Myanmar || script == QChar::Script_Khmer || script == QChar::Script_Mongolian;
}

bool NeedsItsNeighbours(char32_t letter)
{
    const QChar::Direction direction = QChar::direction(letter);
    const QChar::JoiningType joining = QChar::joiningType(letter);
    return direction == QChar::DirR || direction == QChar::DirAL || QChar::isMark(letter) ||
           (joining != QChar::Joining_None && joining != QChar::Joining_Transparent) ||
           (QChar::isLetter(letter) && IsJoinedScript(QChar::script(letter)));
}

QString CodePoint(char32_t letter)
{
    return QString("U+%1").arg(uint(letter), 4, 16, QChar('0')).toUpper();
}

void AddLetters(QStringList& lines, const char* trouble, QList<char32_t> letters)
{
    if (letters.isEmpty())
        return;
    std::sort(letters.begin(), letters.end());
    letters.erase(std::unique(letters.begin(), letters.end()), letters.end());
    QStringList names;
    for (const char32_t letter : letters.first(std::min(letters.size(), kMostNames)))
        names << CodePoint(letter);
    if (letters.size() > kMostNames)
        names << QString("%1 more").arg(letters.size() - kMostNames);
    lines << QString("%1: %2").arg(trouble, names.join(", "));
}

void AddFamilies(QStringList& lines, const QList<QString>& families)
{
    QStringList replaced;
    for (const QString& family : families)
        if (const QString used = FamilyInUse(family); family.compare(used, Qt::CaseInsensitive) != 0)
            replaced << QString("\"%1\" by \"%2\"").arg(family, used);
    if (!replaced.isEmpty())
        lines << "fonts that are not installed are replaced: " + replaced.join(", ");
}

} // namespace

void TextFindings::Add(const QString& family, const QString& text)
{
    QSet<char32_t>& letters = m_letters[family];
    for (const uint letter : text.toUcs4())
        letters.insert(letter);
}

void TextFindings::Add(CShapeText& shape)
{
    const SText text = shape.GetText();
    const auto held = [](const char* buffer, size_t size) {
        return QString::fromUtf8(buffer, static_cast<qsizetype>(strnlen(buffer, size - 1)));
    };
    Add(held(text.font.szFamily, sizeof text.font.szFamily), held(text.pText, TEXT_BUFFER_SIZE));
}

void TextFindings::Add(CShapeList& document)
{
    ForEachShape(document, [this](CShape& shape, int) {
        if (auto* text = dynamic_cast<CShapeText*>(&shape))
            Add(*text);
    });
}

void TextFindings::AddRecords(QFile& file, int version)
{
    const qint64 start = file.pos();
    const QByteArray stream = file.readAll();
    file.seek(start);
    const Bytes bytes(reinterpret_cast<const unsigned char*>(stream.constData()), static_cast<size_t>(stream.size()));
    for (const StoredText& stored : StoredTexts(bytes, 0, version))
        Add(stored.family, stored.text);
}

size_t TextFindings::LetterCount() const
{
    size_t count = 0;
    for (const QSet<char32_t>& letters : m_letters)
        count += static_cast<size_t>(letters.size());
    return count;
}

QStringList TextFindings::Lines(const WorkProgress& progress) const
{
    WorkWatch watch(progress, WorkStep::Texts, LetterCount());
    QList<char32_t> boxes, alone, flat;
    for (auto family = m_letters.cbegin(); family != m_letters.cend(); ++family) {
        QFont font(family.key());
        for (const char32_t letter : family.value()) {
            watch.Next();
            if (QChar::isSpace(letter) || QChar::category(letter) == QChar::Other_Control) {
                if (letter != U' ' && letter != U'\n')
                    flat << letter;
            } else if (letter > kLastOfFirstPlane || !HasGlyph(font, letter)) {
                boxes << letter;
            } else if (NeedsItsNeighbours(letter)) {
                alone << letter;
            }
        }
    }
    QStringList lines;
    AddFamilies(lines, m_letters.keys());
    AddLetters(lines, "boxes, or nothing, stand for characters that no font has or that lie beyond the first plane",
               boxes);
    AddLetters(lines, "letters are set one by one from left to right, which these need otherwise", alone);
    AddLetters(lines, "white space and control characters that take no room", flat);
    return lines;
}

} // namespace shapedocument
