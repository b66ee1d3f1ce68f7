#include "svg/DrawingSource.h"

#include "svg/EffectNotes.h"
#include "svg/FileKind.h"
#include "svg/LetterPlaces.h"
#include "svg/LinkedPicture.h"
#include "svg/PagePainter.h"
#include "svg/ReferenceGraph.h"
#include "svg/SourceFault.h"
#include "svg/SourceNames.h"
#include "svg/SourceReach.h"
#include "svg/SourceTexts.h"
#include "svg/StyleText.h"
#include "svg/UnevenTexts.h"

#include <QBuffer>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace shapedocument::drawing {

namespace {

constexpr qsizetype kLargest = 256 << 20; ///< bytes, unpacked
constexpr int kDeepest = 1000;            ///< nested elements
constexpr int kMostElements = 1'000'000;
constexpr int kMostReferred = 300'000; ///< elements painted by references; takes some seconds
constexpr int kLettersPerCorner = 2;   ///< least letters of a path's text for each corner
constexpr int kMostEmbedded = 3;       ///< levels of drawings inside drawings

struct Setting
{
    QString baseFile;
    SourceOptions options;
    const WorkProgress& progress;
    int embedded = 0; ///< drawings around this one
};

DrawingSource CleanAt(const QByteArray& bytes, const Setting& setting);

/// Copies a drawing element by element.
class Cleaner
{
public:
    Cleaner(const QByteArray& bytes, const Setting& setting)
        : m_out(&m_source.svg), m_setting(setting),
          m_watch(setting.progress, WorkStep::Reading, static_cast<size_t>(bytes.size()))
    {
        if (setting.options.markTexts)
            m_newIds = UnusedIdBegin(bytes, "text-");
        m_bytes.setData(bytes);
        m_bytes.open(QIODevice::ReadOnly);
        m_in.setDevice(&m_bytes);
        m_source.svg.reserve(bytes.size() + bytes.size() / 16); // growing by doubling could hold twice as much
        m_in.setNamespaceProcessing(false);
        m_levels.push_back({});
    }

    DrawingSource Clean()
    {
        while (!m_in.atEnd() && m_source.error.isEmpty())
            CopyNext();
        if (m_in.hasError() && m_source.error.isEmpty())
            m_source.error = QString("is no SVG drawing (line %1: %2)")
                                 .arg(LineOfFault(m_in, m_bytes.data()))
                                 .arg(m_in.errorString().simplified());
        if (m_source.error.isEmpty())
            JudgeReferences();
        m_source.families = m_texts.Families();
        m_source.texts = m_texts.ExtractTexts();
        m_source.reach = m_reach.Bound();
        m_source.farElements = m_reach.FarElements();
        return std::move(m_source);
    }

private:
    struct Level
    {
        bool inStyle = false;
        bool inText = false;
        bool hasContent = false;   ///< other than white space
        bool inDefinition = false; ///< of a clip, mask or pattern, where effects are not noted
        bool inDefs = false;       ///< its parent is a defs element
        bool isReferredTo = false; ///< painted where others refer to it, or inside such an element
    };

    void JudgeReferences()
    {
        const ReferenceGraph::Extent extent = m_references.Measure();
        if (extent.depth > kMostNested)
            m_source.error = "nests its references too deep";
        else if (extent.elements > int64_t{m_elements} + kMostReferred)
            m_source.error = QString("paints more than %1 elements by references").arg(kMostReferred);
    }

    void CopyNext()
    {
        m_watch.At(static_cast<size_t>(m_bytes.pos()));
        Copy(m_in.readNext());
    }

    void Copy(QXmlStreamReader::TokenType token)
    {
        switch (token) {
        case QXmlStreamReader::StartElement:
            return Begin(LocalName(m_in.qualifiedName()));
        case QXmlStreamReader::EndElement:
            if (m_space && !m_levels.back().hasContent)
                m_out.writeCharacters(QString(u' ')); // a rule may select empty elements, which this one is not
            m_space = false;
            m_references.Close();
            m_reach.Close();
            m_texts.Close();
            m_places.Close();
            m_source.report.Add(Departure::TextBeside, m_unevenTexts.Close());
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
            return NoteEntities(m_in.entityDeclarations(), m_source.report);
        case QXmlStreamReader::ProcessingInstruction:
            if (m_in.processingInstructionTarget() == u"xml-stylesheet")
                m_source.report.Add(Departure::OtherFile);
            return;
        default:
            return;
        }
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
        if (const auto kind = LeftOut(name, m_in.qualifiedName().contains(u':')))
            return Skip(*kind);
        const QXmlStreamAttributes attributes = m_in.attributes();
        if (const QString prefix = UndeclaringName(attributes); !prefix.isEmpty()) {
            m_source.error =
                QString("is no SVG drawing (line %1: '%2' declares nothing)").arg(m_in.lineNumber()).arg(prefix);
            return;
        }
        m_space = false;
        m_levels.back().hasContent = true;
        Level level = m_levels.back();
        level.hasContent = false;
        level.inStyle = name == u"style";
        level.inText = level.inText || name == u"text";
        level.inDefinition = level.inDefinition || name == u"clipPath" || name == u"mask" || name == u"pattern";
        level.inDefs = name == u"defs";
        level.isReferredTo = level.isReferredTo || level.inDefs || IsReferredTo(name);
        m_references.Open(attributes.value("id").toString(), !m_levels.back().inDefs && !IsReferredTo(name));
        m_levels.push_back(level);
        m_reach.Open(name, attributes);
        m_texts.Open(name, attributes);
        m_places.Open(name, attributes);
        m_unevenTexts.Open(name, attributes);
        m_out.writeStartElement(m_in.qualifiedName().toString());
        m_names.Declare(m_in.qualifiedName(), attributes, root, m_out);
        m_corners = 1 + std::max(attributes.value("d").size(), attributes.value("points").size()) / kLettersPerCorner;
        for (const QXmlStreamAttribute& attribute : attributes)
            CopyAttribute(name, attribute);
        if (name == u"text" && m_setting.options.markTexts)
            BeginText(attributes);
        NoteElement(name, attributes, m_source.report);
    }

    /// Notes a text, and gives it an id by which it is found again on the page.
    void BeginText(const QXmlStreamAttributes& attributes)
    {
        if (m_levels.back().isReferredTo)
            return m_texts.BeginText({});
        QString id = attributes.value("id").toString();
        if (!attributes.hasAttribute("id")) {
            id = QString("%1%2").arg(m_newIds).arg(m_elements);
            m_out.writeAttribute("id", id);
        }
        m_texts.BeginText(id);
    }

    /// Whether an element is painted only where others refer to it.
    static bool IsReferredTo(QStringView name)
    {
        static const QSet<QString> names{"symbol",  "clipPath",       "mask",           "marker",
                                         "pattern", "linearGradient", "radialGradient", "filter"};
        return names.contains(name.toString());
    }

    void Skip(Departure kind)
    {
        m_source.report.Add(kind);
        m_in.skipCurrentElement();
    }

    void CopyAttribute(QStringView element, const QXmlStreamAttribute& attribute)
    {
        const QString name = attribute.qualifiedName().toString();
        QString value = DeclaredAddress(name, m_places.Kept(name, attribute.value().toString()));
        if (name == u"href" || name.endsWith(u":href")) // with any prefix
            value = Resolve(element, value);
        else if (name == u"style")
            value = KeptOr(WithFullOpacity(value), value);
        else if (name == u"opacity")
            value = KeptOr(FullOpacity(value), value);
        if (!m_levels.back().inDefinition)
            NoteEffects(name, value, m_source.report);
        if (name == u"font-family")
            m_texts.SetFamilies(value);
        else if (name == u"style" || name == u"font")
            for (const QString& families : FamiliesIn(name == u"font" ? "font:" + value : value))
                m_texts.SetFamilies(families);
        static const QRegularExpression marker("marker[-a-z]*\\s*:\\s*url");
        const bool marks = name.startsWith(u"marker") || (name == u"style" && value.contains(marker));
        for (const QString& id : ReferencesIn(value))
            m_references.Refer(id, marks ? m_corners : 1);
        if (!value.isNull())
            m_out.writeAttribute(name, value);
    }

    /// The reference as written to the copy; null where it is left out.
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
            DrawingSource inner = CleanAt(
                linked.bytes, {{}, {m_setting.options.keepOpacity, false}, m_setting.progress, m_setting.embedded + 1});
            linked.bytes = inner.svg;
            m_source.hasOpacity = m_source.hasOpacity || inner.hasOpacity;
            linked.kind = inner.error.isEmpty() ? LinkedKind::Drawing : LinkedKind::Missing;
        }
        if (linked.kind == LinkedKind::Missing || linked.kind == LinkedKind::Elsewhere) {
            m_source.report.Add(Departure::Picture);
            return {};
        }
        if (linked.kind == LinkedKind::Drawing)
            m_source.report.Add(Departure::EmbeddedDrawing);
        m_source.report.Add(Departure::PictureIncomplete, linked.incomplete);
        return DataUri(linked);
    }

    void CopyText()
    {
        if (m_levels.back().inStyle)
            return CopyRules(m_in.text().toString());
        if (!m_levels.back().inText && m_in.isWhitespace()) {
            m_space = true; // left out: each would cost the renderer as much as an element
            return;
        }
        m_levels.back().hasContent = true;
        m_texts.AddWords(m_in.text(), m_source.report);
        m_unevenTexts.AddWords(m_in.text());
        m_places.Write(m_in.text(), m_names.Prefix(), m_out);
    }

    void CopyRules(const QString& rules)
    {
        NoteRules(rules, m_source.report);
        m_unevenTexts.AddRules(rules);
        m_reach.AddRules(rules);
        for (const QString& id : ReferencesIn(rules))
            m_references.ReferFromRule(id);
        m_texts.AddFamiliesOfRules(FamiliesIn(rules));
        m_out.writeCharacters(KeptOr(WithFullOpacity(rules), rules));
    }

    /// The given text where opacities are kept, else the opaque one.
    QString KeptOr(const QString& opaque, const QString& given)
    {
        if (!m_setting.options.keepOpacity)
            return opaque;
        m_source.hasOpacity = m_source.hasOpacity || opaque != given;
        return given;
    }

    QBuffer m_bytes;
    QXmlStreamReader m_in;
    DrawingSource m_source;
    QXmlStreamWriter m_out;
    const Setting& m_setting;
    WorkWatch m_watch;
    std::vector<Level> m_levels;
    ReferenceGraph m_references;
    SourceReach m_reach;
    SourceTexts m_texts;
    LetterPlaces m_places;
    UnevenTexts m_unevenTexts;
    SourceNames m_names;
    QString m_newIds;     ///< start of the ids that the copy adds
    bool m_space = false; ///< white space outside of texts, not yet written
    int m_elements = 0;
    int64_t m_corners = 0; ///< upper bound for the open element
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

DrawingSource CleanDrawing(const QByteArray& bytes, const QString& baseFile, const SourceOptions& options,
                           const WorkProgress& progress)
{
    return CleanAt(bytes, {baseFile, options, progress, 0});
}

} // namespace shapedocument::drawing
