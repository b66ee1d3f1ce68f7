#include "SvgReader.h"

#include "PathRecorder.h"
#include "Progress.h"
#include "document/Failure.h"

#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>

using namespace shapedocument;

namespace {

constexpr double kMmPerUnit = 25.4 / 96;
constexpr int kDeepest = 1000;        // nested elements; the renderer recurses into them
constexpr int kDeepestUse = 200;      // uses of what uses something
constexpr double kMostPainted = 1e7;  // elements, used ones each time
constexpr int kMostAttributes = 1000; // of an element

/// The drawing's text with all its lengths in user units, and what its root says about the page.
struct Source
{
    QByteArray svg;
    double width = 0; ///< user units; 0 when the root does not say
    double height = 0;
    QString aspect;         ///< preserveAspectRatio
    int linkedPictures = 0; ///< outside the drawing, and left there
};

QString Reference(const QXmlStreamAttributes& attributes)
{
    const QStringView plain = attributes.value("href");
    return (plain.isEmpty() ? attributes.value("xlink:href") : plain).toString();
}

/// What painting elements costs when uses paint what stands before them once more.
class UseCost
{
public:
    void Begin(const QXmlStreamReader& in)
    {
        m_open.push_back({in.attributes().value("id").toString(), {}});
        if (in.name() == QLatin1String("use"))
            m_open.back().cost.Add(m_known.value(Reference(in.attributes()).mid(1)), 1);
    }

    /// Whether what has ended is bearable.
    bool End()
    {
        const Open ended = m_open.back();
        m_open.pop_back();
        if (!ended.id.isEmpty())
            m_known[ended.id] = ended.cost;
        if (!m_open.empty())
            m_open.back().cost.Add(ended.cost, 0);
        return ended.cost.elements <= kMostPainted && ended.cost.uses <= kDeepestUse;
    }

private:
    struct Cost
    {
        double elements = 1;
        int uses = 0; ///< inside each other

        void Add(const Cost& other, int level)
        {
            elements += other.elements;
            uses = std::max(uses, other.uses + level);
        }
    };
    struct Open
    {
        QString id;
        Cost cost;
    };

    QHash<QString, Cost> m_known;
    std::vector<Open> m_open;
};

/// A length in user units where it carries a unit, else the text as it is. The renderer itself counts 90 units to the
/// inch.
QString InUserUnits(const QString& text)
{
    static const QHash<QString, double> units{{"px", 1},         {"in", 96},      {"mm", 96 / 25.4},
                                              {"cm", 96 / 2.54}, {"pt", 4.0 / 3}, {"pc", 16}};
    static const QRegularExpression length("^\\s*([-+]?[0-9.]+(?:[eE][-+]?[0-9]+)?)\\s*(px|in|mm|cm|pt|pc)\\s*$");
    if (text.isEmpty() || !(text.back().isLetter() || text.back().isSpace()))
        return text;
    const QRegularExpressionMatch match = length.match(text);
    bool number = false;
    const double value = match.captured(1).toDouble(&number) * units.value(match.captured(2));
    return number ? QString::number(value, 'g', 17) : text;
}

/// A length of the root in user units; 0 for none or a share of something unknown.
double PageLength(const QXmlStreamAttributes& attributes, const QString& name)
{
    const double length = InUserUnits(attributes.value(name).toString()).toDouble();
    return std::isfinite(length) && length > 0 ? length : 0;
}

/// Notes the page. A root without view box gets the one that leaves user units as they are.
void CopyRoot(const QXmlStreamAttributes& attributes, QXmlStreamWriter& out, Source& source)
{
    constexpr QSizeF kDefaultPage(300, 150);
    source.width = PageLength(attributes, "width");
    source.height = PageLength(attributes, "height");
    source.aspect = attributes.value("preserveAspectRatio").toString();
    if (attributes.hasAttribute("viewBox"))
        return;
    source.width = source.width > 0 ? source.width : kDefaultPage.width();
    source.height = source.height > 0 ? source.height : kDefaultPage.height();
    out.writeAttribute("viewBox", QString("0 0 %1 %2").arg(source.width, 0, 'g', 17).arg(source.height, 0, 'g', 17));
}

/// Pictures in other files are not looked for: the renderer would open whatever a drawing names.
void CopyElement(const QXmlStreamReader& in, QXmlStreamWriter& out, Source& source)
{
    const QString picture = in.name() == QLatin1String("image") ? Reference(in.attributes()) : QString();
    const bool linked = !picture.isEmpty() && !picture.trimmed().startsWith("data:");
    source.linkedPictures += linked;
    out.writeStartElement(in.qualifiedName().toString());
    for (const QXmlStreamAttribute& attribute : in.attributes())
        if (!linked || attribute.name() != QLatin1String("href"))
            out.writeAttribute(attribute.qualifiedName().toString(), InUserUnits(attribute.value().toString()));
}

Source ReadSource(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure{name, "cannot be opened: " + file.errorString()};
    QXmlStreamReader in(&file);
    in.setNamespaceProcessing(false);
    Source source;
    QXmlStreamWriter out(&source.svg);
    UseCost cost;
    int depth = 0;
    while (!in.atEnd()) {
        in.readNext();
        if (in.isStartElement()) {
            if (depth == 0 && in.name() != QLatin1String("svg"))
                throw Failure{name, "is no SVG drawing"};
            if (in.attributes().size() > kMostAttributes)
                throw Failure{name, QString("has an element with more than %1 attributes").arg(kMostAttributes)};
            CopyElement(in, out, source);
            cost.Begin(in);
            if (depth == 0)
                CopyRoot(in.attributes(), out, source);
            if (++depth > kDeepest)
                throw Failure{name, "nests its elements too deep"};
        } else if (!in.hasError()) {
            depth -= in.isEndElement();
            if (in.isEndElement() && !cost.End())
                throw Failure{name, "uses its elements too often inside each other"};
            out.writeCurrentToken(in);
        }
    }
    if (in.hasError())
        throw Failure{name, QString("is no SVG drawing (line %1: %2)").arg(in.lineNumber()).arg(in.errorString())};
    return source;
}

/// 0, 0.5 or 1: where the drawing lies in a page that is longer than it.
double Alignment(const QString& aspect, const char* low, const char* high)
{
    if (aspect.contains(QLatin1String(low)))
        return 0;
    return aspect.contains(QLatin1String(high)) ? 1 : 0.5;
}

/// Where the view box lies in millimetres.
QRectF PlaceOf(const QRectF& viewBox, const Source& source)
{
    QSizeF page(source.width, source.height);
    if (page.width() <= 0)
        page.setWidth(page.height() > 0 ? page.height() * viewBox.width() / viewBox.height() : viewBox.width());
    if (page.height() <= 0)
        page.setHeight(page.width() * viewBox.height() / viewBox.width());
    QSizeF size = page;
    if (!source.aspect.contains(QLatin1String("none")))
        size =
            viewBox.size().scaled(page, source.aspect.contains(QLatin1String("slice")) ? Qt::KeepAspectRatioByExpanding
                                                                                       : Qt::KeepAspectRatio);
    const QPointF corner((page.width() - size.width()) * Alignment(source.aspect, "xMin", "xMax"),
                         (page.height() - size.height()) * Alignment(source.aspect, "YMin", "YMax"));
    return {corner * kMmPerUnit, size * kMmPerUnit};
}

bool IsFinite(const QPainterPath& path)
{
    const QRectF bounds = path.controlPointRect();
    return std::isfinite(bounds.left()) && std::isfinite(bounds.right()) && std::isfinite(bounds.top()) &&
           std::isfinite(bounds.bottom());
}

} // namespace

SvgDrawing ReadSvg(const QString& name)
{
    const Source source = ReadSource(name);
    QSvgRenderer renderer;
    if (!renderer.load(source.svg))
        throw Failure{name, "is no SVG drawing"};
    const QRectF viewBox = renderer.viewBoxF();
    if (!(viewBox.width() > 0 && viewBox.height() > 0))
        throw Failure{name, "has no size"};
    Progress progress("reading paths");
    PathRecorder recorder(viewBox.size().toSize(), [&](size_t count) { progress.At(count, 0); });
    QPainter painter(&recorder);
    renderer.render(&painter, PlaceOf(viewBox, source));
    painter.end();

    SvgDrawing drawing;
    drawing.pictures = recorder.PictureCount() + source.linkedPictures;
    drawing.paths.reserve(recorder.Paths().size());
    for (const PaintedPath& painted : recorder.Paths()) {
        const QPainterPath outline = MachineOutline(painted.path, painted.filled || painted.polygon);
        if (!IsFinite(outline))
            throw Failure{name, "holds a coordinate that is no finite number"};
        if (outline.elementCount() > 1)
            drawing.paths.push_back({outline, painted.color});
    }
    return drawing;
}
