#include "svg/SourceTexts.h"

#include "svg/StyleText.h"

#include <QRegularExpression>

#include <utility>

namespace shapedocument::drawing {

namespace {

/// Whether the text names a shape or a width that its lines are to be wrapped in, which the renderer does not do.
bool AsksForWrapping(const QXmlStreamAttributes& attributes)
{
    const auto asks = [&](const QString& property) {
        const QStringList inStyle = ValuesOf(property, attributes.value("style").toString());
        const QString value = inStyle.isEmpty() ? attributes.value(property).toString() : inStyle.last();
        static const QRegularExpression shapeOrWidth("\\(|[1-9]");
        return value.contains(shapeOrWidth);
    };
    return asks("shape-inside") || asks("inline-size");
}

} // namespace

void SourceTexts::Open(QStringView name, const QXmlStreamAttributes& attributes)
{
    Level level = m_levels.back();
    if (name == u"text") {
        level.toWrap = AsksForWrapping(attributes);
        m_wrapIsTold = false;
    } else if (attributes.hasAttribute("x") || attributes.hasAttribute("y")) {
        level.toWrap = false; // a line that the editor has placed
    }
    level.inText = level.inText || name == u"text";
    level.inFlow = level.inFlow || name == u"flowRoot";
    level.isText = false;
    m_flowHasText = m_flowHasText && name != u"flowRoot";
    m_levels.push_back(level);
}

void SourceTexts::BeginText(const QString& id)
{
    m_levels.back().isText = m_inTaken = true;
    m_texts.push_back({id, {}, {}});
}

void SourceTexts::AddWords(QStringView words, DrawingReport& report)
{
    const Level& level = m_levels.back();
    if (m_inTaken)
        m_texts.back().words += words;
    if (words.trimmed().isEmpty())
        return;
    m_hasWords = m_hasWords || level.inText;
    if (level.toWrap && !std::exchange(m_wrapIsTold, true))
        report.Add(Departure::TextNotWrapped);
    if (level.inText) {
        m_families << level.families; // also where it is empty
        if (m_inTaken && !m_texts.back().familyLists.contains(level.families))
            m_texts.back().familyLists << level.families;
    }
    if (level.inFlow && !std::exchange(m_flowHasText, true))
        report.Add(Departure::FlowText);
}

void SourceTexts::Close()
{
    if (m_levels.back().isText) {
        m_inTaken = false;
        m_texts.back().words = m_texts.back().words.simplified();
        if (m_texts.back().words.isEmpty())
            m_texts.pop_back();
    }
    m_levels.pop_back();
}

/// Adds the families of rules to every text, because a rule may apply to any.
std::vector<SourceText> SourceTexts::ExtractTexts()
{
    for (SourceText& text : m_texts)
        text.familyLists += QStringList(m_familiesOfRules.begin(), m_familiesOfRules.end());
    return std::exchange(m_texts, {});
}

QSet<QString> SourceTexts::Families() const
{
    QSet<QString> families = m_families;
    if (m_hasWords && !m_familiesOfRules.isEmpty()) {
        families.remove({}); // the rules may apply to such a text
        families.unite(m_familiesOfRules);
    }
    return families;
}

} // namespace shapedocument::drawing
