#include "svg/DrawingSource.h"

#include "svg/FileKind.h"
#include "svg/LinkedPicture.h"
#include "svg/PagePainter.h"
#include "svg/ReferenceGraph.h"
#include "svg/StyleText.h"

#include <QBuffer>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <optional>
#include <utility>

namespace shapedocument::drawing {

namespace {

constexpr qsizetype kLargest = 256 << 20; ///< bytes, unpacked
constexpr int kDeepest = 1000;            ///< nested elements
constexpr int kMostElements = 1'000'000;
constexpr int kMostReferred = 300'000; ///< elements that references paint; some seconds
constexpr int kLettersPerCorner = 2;   ///< of a path's text at least
constexpr int kMostEmbedded = 3;       ///< drawings inside each other

struct Setting
{
    QString baseFile;
    bool keepOpacity = false;
    int embedded = 0; ///< drawings around this one
};

DrawingSource CleanAt(const QByteArray& bytes, const Setting& setting);

/// Copies a drawing element by element.
class Cleaner
{
public:
    Cleaner(const QByteArray& bytes, const Setting& setting) : m_out(&m_source.svg), m_setting(setting)
    {
        m_bytes.setData(bytes);
        m_bytes.open(QIODevice::ReadOnly);
        m_in.setDevice(&m_bytes);
        m_source.svg.reserve(bytes.size() + bytes.size() / 16); // doubling would hold twice as much
        m_in.setNamespaceProcessing(false);
        m_levels.push_back({});
    }

    DrawingSource Clean()
    {
        while (!m_in.atEnd() && m_source.error.isEmpty())
            Copy(m_in.readNext());
        if (m_in.hasError() && m_source.error.isEmpty())
            m_source.error =
                QString("is no SVG drawing (line %1: %2)").arg(m_in.lineNumber()).arg(m_in.errorString().simplified());
        if (m_source.error.isEmpty())
            JudgeReferences();
        if (m_hasText)
            m_source.families.unite(m_familiesOfRules);
        return std::move(m_source);
    }

private:
    struct Level
    {
        QString families; ///< that texts in it ask for
        bool inText = false;
        bool inStyle = false;
        bool inDefinition = false; ///< of a clip or mask, where effects are no loss
        bool inDefs = false;       ///< directly
        bool inFlow = false;
    };

    void JudgeReferences()
    {
        const ReferenceGraph::Extent extent = m_references.Measure();
        if (extent.depth > kMostNested)
            m_source.error = "nests its references too deep";
        else if (extent.elements > int64_t{m_elements} + kMostReferred)
            m_source.error = QString("paints more than %1 elements by references").arg(kMostReferred);
    }

    void Copy(QXmlStreamReader::TokenType token)
    {
        switch (token) {
        case QXmlStreamReader::StartElement:
            return Begin(LocalName(m_in.qualifiedName()));
        case QXmlStreamReader::EndElement:
            m_references.Close();
            m_levels.pop_back();
            return m_out.writeEndElement();
        case QXmlStreamReader::Characters:
            return CopyText();
        case QXmlStreamReader::EntityReference:
            m_source.error = QString("is no SVG drawing (line %1: entity '%2' is not declared)")
                                 .arg(m_in.lineNumber())
                                 .arg(m_in.name());
            return;
        case QXmlStreamReader::DTD:
            return NoteEntities();
        case QXmlStreamReader::ProcessingInstruction:
            if (m_in.processingInstructionTarget() == u"xml-stylesheet")
                m_source.report.Add(Departure::OtherFile);
            return;
        default:
            return;
        }
    }

    /// The text of entities in other files is not read: nothing stands where they are used.
    void NoteEntities()
    {
        for (const QXmlStreamEntityDeclaration& entity : m_in.entityDeclarations())
            if (!entity.systemId().isEmpty() && entity.notationName().isEmpty())
                m_source.report.Add(Departure::OtherFile);
    }

    static QStringView LocalName(QStringView name) { return name.mid(name.indexOf(u':') + 1); }

    void Begin(QStringView name)
    {
        const bool root = m_levels.size() == 1;
        if (root && name != u"svg")
            m_source.error = "is no SVG drawing";
        else if (m_levels.size() > kDeepest)
            m_source.error = "nests its elements too deep";
        else if (++m_elements > kMostElements)
            m_source.error = QString("has more than %1 elements").arg(kMostElements);
        if (!m_source.error.isEmpty())
            return;
        if (const auto kind = LeftOut(name))
            return Skip(*kind);
        const QXmlStreamAttributes attributes = m_in.attributes();
        Level level = m_levels.back();
        level.inText = level.inText || name == u"text";
        level.inStyle = name == u"style";
        level.inDefinition = level.inDefinition || name == u"clipPath" || name == u"mask" || name == u"pattern";
        level.inDefs = name == u"defs";
        level.inFlow = level.inFlow || name == u"flowRoot";
        m_flowHasText = m_flowHasText && name != u"flowRoot";
        m_references.Open(attributes.value("id").toString(), !m_levels.back().inDefs && !IsReferredTo(name));
        m_levels.push_back(level);
        m_out.writeStartElement(m_in.qualifiedName().toString());
        if (root)
            DeclareNames(attributes);
        m_corners = 1 + std::max(attributes.value("d").size(), attributes.value("points").size()) / kLettersPerCorner;
        for (const QXmlStreamAttribute& attribute : attributes)
            CopyAttribute(name, attribute);
        if (name == u"foreignObject" && !attributes.hasAttribute("requiredExtensions"))
            m_source.report.Add(Departure::ForeignObject);
        if (name == u"animate" || name == u"animateTransform" || name == u"animateMotion" || name == u"set")
            m_source.report.Add(Departure::Animation);
    }

    /// Whether an element is painted only where others refer to it.
    static bool IsReferredTo(QStringView name)
    {
        static const QSet<QString> names{"symbol",  "clipPath",       "mask",           "marker",
                                         "pattern", "linearGradient", "radialGradient", "filter"};
        return names.contains(name.toString());
    }

    std::optional<Departure> LeftOut(QStringView name) const
    {
        if (name == u"script")
            return Departure::Script;
        if (name == u"include" && m_in.qualifiedName().contains(u':'))
            return Departure::OtherFile;
        return {};
    }

    void Skip(Departure kind)
    {
        m_source.report.Add(kind);
        m_in.skipCurrentElement();
    }

    /// Roots without names, and links in drawings that forgot theirs, are meant as everybody reads them.
    void DeclareNames(const QXmlStreamAttributes& attributes)
    {
        if (!m_in.qualifiedName().contains(u':') && !attributes.hasAttribute("xmlns"))
            m_out.writeAttribute("xmlns", "http://www.w3.org/2000/svg");
        if (!attributes.hasAttribute("xmlns:xlink"))
            m_out.writeAttribute("xmlns:xlink", "http://www.w3.org/1999/xlink");
    }

    void CopyAttribute(QStringView element, const QXmlStreamAttribute& attribute)
    {
        const QString name = attribute.qualifiedName().toString();
        QString value = attribute.value().toString();
        if (name == u"href" || name == u"xlink:href")
            value = Resolve(element, value);
        else if (name == u"style" && !m_setting.keepOpacity)
            value = WithFullOpacity(value);
        else if (name == u"opacity" && !m_setting.keepOpacity)
            value = FullOpacity(value);
        NoteEffects(name, value);
        if (name == u"font-family")
            m_levels.back().families = value;
        else if (name == u"style" || name == u"font")
            for (const QString& families : FamiliesIn(name == u"font" ? "font:" + value : value))
                m_levels.back().families = families;
        static const QRegularExpression marker("marker[-a-z]*\\s*:\\s*url");
        const bool marks = name.startsWith(u"marker") || (name == u"style" && value.contains(marker));
        for (const QString& id : ReferencesIn(value))
            m_references.Refer(id, marks ? m_corners : 1);
        if (!value.isNull())
            m_out.writeAttribute(name, value);
    }

    /// The reference as it is to stand in the copy; null where it may not.
    QString Resolve(QStringView element, const QString& reference)
    {
        if (reference.startsWith(u'#')) {
            m_references.Refer(reference.mid(1), 1);
            return reference;
        }
        if (element == u"a")
            return {};
        if (element != u"image") {
            if (element != u"feImage" && element != u"color-profile")
                m_source.report.Add(Departure::OtherFile);
            return {};
        }
        Linked linked = ResolvePicture(reference, m_setting.baseFile);
        if (linked.kind == LinkedKind::Drawing) {
            DrawingSource inner = CleanAt(linked.bytes, {{}, m_setting.keepOpacity, m_setting.embedded + 1});
            linked.bytes = inner.svg;
            linked.kind = inner.error.isEmpty() ? LinkedKind::Drawing : LinkedKind::Missing;
        }
        if (linked.kind == LinkedKind::Missing || linked.kind == LinkedKind::Elsewhere) {
            m_source.report.Add(Departure::Picture);
            return {};
        }
        if (linked.kind == LinkedKind::Drawing)
            m_source.report.Add(Departure::EmbeddedDrawing);
        return DataUri(linked);
    }

    void NoteEffects(const QString& name, const QString& value)
    {
        if (m_levels.back().inDefinition)
            return;
        const auto applies = [&](const char* property) {
            const QStringList values = name == QLatin1String(property) ? QStringList{value}
                                       : name == u"style"              ? ValuesOf(property, value)
                                                                       : QStringList();
            return !values.isEmpty() && values.last().contains(u'(');
        };
        m_source.report.Add(Departure::Filter, applies("filter"));
        m_source.report.Add(Departure::Mask, applies("mask"));
    }

    void CopyText()
    {
        const Level& level = m_levels.back();
        if (level.inStyle)
            return CopyRules(m_in.text().toString());
        if (!m_in.isWhitespace()) {
            m_hasText = m_hasText || level.inText;
            if (level.inText && !level.families.isEmpty())
                m_source.families << level.families;
            if (level.inFlow && !std::exchange(m_flowHasText, true))
                m_source.report.Add(Departure::FlowText);
        }
        m_out.writeCharacters(m_in.text().toString());
    }

    void CopyRules(const QString& rules)
    {
        m_source.report.Add(Departure::OtherFile, static_cast<int>(rules.count(QLatin1String("@import"))));
        for (const QString& value : ValuesOf("filter", rules))
            m_source.report.Add(Departure::Filter, value.contains(u'('));
        for (const QString& value : ValuesOf("mask", rules))
            m_source.report.Add(Departure::Mask, value.contains(u'('));
        for (const QString& id : ReferencesIn(rules))
            m_references.ReferFromRule(id);
        for (const QString& families : FamiliesIn(rules))
            m_familiesOfRules << families;
        m_out.writeCharacters(m_setting.keepOpacity ? rules : WithFullOpacity(rules));
    }

    QBuffer m_bytes;
    QXmlStreamReader m_in;
    DrawingSource m_source;
    QXmlStreamWriter m_out;
    const Setting& m_setting;
    std::vector<Level> m_levels;
    ReferenceGraph m_references;
    QSet<QString> m_familiesOfRules;
    int m_elements = 0;
    int64_t m_corners = 0; ///< of the element that is open, at most
    bool m_hasText = false;
    bool m_flowHasText = false; ///< the flow text that is open, or was last
};

DrawingSource Refused(const QString& reason)
{
    DrawingSource source;
    source.error = reason;
    return source;
}

DrawingSource CleanAt(const QByteArray& bytes, const Setting& setting)
{
    if (setting.embedded > kMostEmbedded)
        return Refused("embeds drawings too deep");
    if (bytes.isEmpty())
        return Refused("is empty");
    if (bytes.size() > kLargest)
        return Refused("is too large");
    if (IsCompressed(bytes)) {
        const QByteArray unpacked = Unpacked(bytes, kLargest);
        return unpacked.isNull() ? Refused("is damaged or too large when it is unpacked")
                                 : Cleaner(unpacked, setting).Clean();
    }
    if (const QString kind = KindOf(bytes); !kind.isEmpty())
        return Refused("is no SVG drawing: it is " + kind);
    return Cleaner(bytes, setting).Clean();
}

} // namespace

DrawingSource CleanDrawing(const QByteArray& bytes, const QString& baseFile, bool keepOpacity)
{
    return CleanAt(bytes, {baseFile, keepOpacity, 0});
}

} // namespace shapedocument::drawing
