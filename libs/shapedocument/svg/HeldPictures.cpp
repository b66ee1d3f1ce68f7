#include "svg/HeldPictures.h"

#include "svg/DrawingSource.h"
#include "svg/PaintServers.h"
#include "svg/SourceNames.h"

#include <QBuffer>
#include <QImageReader>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <cmath>

namespace shapedocument::drawing {

namespace {

/// What no drawing has by chance: a triangle three times in one path, with this opacity. Its colour is the index.
constexpr int kTriangles = 3;
constexpr double kHeldAlpha = 96 / 255.0, kAlphaStep = 0.5 / 255; // renderers may keep 8 bits of it

/// Copies a drawing and puts outlines in the place of its pictures.
class Holder
{
public:
    explicit Holder(DrawingSource& source)
        : m_source(source), m_in(source.svg), m_out(&m_svg), m_class(UnusedIdBegin(source.svg, "held-"))
    {
        m_in.setNamespaceProcessing(false);
    }

    void Hold()
    {
        while (!m_in.atEnd())
            Copy(m_in.readNext());
        m_source.svg = m_svg;
    }

private:
    void Copy(QXmlStreamReader::TokenType token)
    {
        if (token == QXmlStreamReader::StartElement)
            Begin(m_in.qualifiedName().toString());
        else if (token == QXmlStreamReader::EndElement)
            m_out.writeEndElement();
        else if (token == QXmlStreamReader::Characters)
            m_out.writeCharacters(m_inStyle ? WithOwnClass(m_in.text().toString()) : m_in.text().toString());
        if (token != QXmlStreamReader::Characters)
            m_inStyle = token == QXmlStreamReader::StartElement && m_in.qualifiedName().endsWith(u"style");
    }

    void Begin(const QString& name)
    {
        const QString local = name.mid(name.indexOf(u':') + 1);
        const QXmlStreamAttributes attributes = m_in.attributes();
        if (local == u"image") {
            const HeldPicture picture = PictureOf(attributes);
            if (!picture.pixels.isEmpty())
                return HoldPlace(name.chopped(local.size()), attributes, picture);
        }
        m_out.writeStartElement(name);
        m_out.writeAttributes(attributes);
    }

    /// Rules for pictures select what holds their places.
    QString WithOwnClass(QString rules) const
    {
        static const QRegularExpression picture("(?<=^|[\\s,>+~}/])image(?=\\s*[\\s,.#:\\[>+~{])");
        return rules.replace(picture, u'.' + m_class);
    }

    static bool IsLink(const QString& name) { return name == u"href" || name.endsWith(u":href"); }

    /// The embedded PNG or JPEG; without pixels for anything else.
    static HeldPicture PictureOf(const QXmlStreamAttributes& attributes)
    {
        QString link;
        for (const QXmlStreamAttribute& attribute : attributes) {
            const QString name = attribute.qualifiedName().toString();
            if (name == u"href" || (IsLink(name) && link.isEmpty()))
                link = attribute.value().toString();
        }
        if (!link.startsWith("data:image/png;") && !link.startsWith("data:image/jpeg;"))
            return {};
        QByteArray file = QByteArray::fromBase64(QStringView(link).mid(link.indexOf(u',') + 1).toLatin1());
        QBuffer buffer(&file);
        const QSize pixels = QImageReader(&buffer).size();
        return {file, pixels};
    }

    /// A group has what the picture has but for its frame; in it a view box takes the frame.
    void HoldPlace(const QString& prefix, const QXmlStreamAttributes& attributes, const HeldPicture& picture)
    {
        static const QSet<QString> frame{"x", "y", "width", "height", "overflow", "preserveAspectRatio", "class"};
        m_out.writeStartElement(prefix + "g");
        for (const QXmlStreamAttribute& attribute : attributes) {
            const QString name = attribute.qualifiedName().toString();
            if (!IsLink(name) && !frame.contains(name))
                m_out.writeAttribute(attribute);
        }
        m_out.writeAttribute("class", (attributes.value("class").toString() + u' ' + m_class).trimmed());
        m_out.writeStartElement(prefix + "svg");
        WriteFrame(attributes, picture.pixels);
        m_out.writeEmptyElement(prefix + "path");
        const QString triangle = QString("M0 0H%1L0 %2z").arg(picture.pixels.width()).arg(picture.pixels.height());
        m_out.writeAttribute("d", triangle.repeated(kTriangles));
        m_out.writeAttribute("style", QString("fill:#%1!important;fill-opacity:%2!important;stroke:none!important")
                                          .arg(m_source.held.size(), 6, 16, QChar(u'0'))
                                          .arg(kHeldAlpha));
        m_out.writeEndElement();
        m_out.writeEndElement();
        m_source.held.push_back(picture);
        m_in.skipCurrentElement();
    }

    void WriteFrame(const QXmlStreamAttributes& attributes, QSize pixels)
    {
        for (const QString name : {"x", "y", "width", "height", "overflow"}) {
            QString value = Given(attributes, name);
            if (value.isEmpty() && name == u"width")
                value = QString::number(pixels.width());
            else if (value.isEmpty() && name == u"height")
                value = QString::number(pixels.height());
            if (!value.isEmpty())
                m_out.writeAttribute(name, value);
        }
        m_out.writeAttribute("viewBox", QString("0 0 %1 %2").arg(pixels.width()).arg(pixels.height()));
        if (const QString fit = attributes.value("preserveAspectRatio").toString(); !fit.isEmpty())
            m_out.writeAttribute("preserveAspectRatio", fit);
    }

    /// What the style or else an attribute says; empty for "auto".
    static QString Given(const QXmlStreamAttributes& attributes, const QString& name)
    {
        const QRegularExpression declaration("(?:^|;)\\s*" + name + "\\s*:\\s*([^;!]+)");
        const auto declared = declaration.match(attributes.value("style").toString());
        const QString value = declared.hasMatch() ? declared.captured(1) : attributes.value(name).toString();
        return value.trimmed() == u"auto" && name != u"overflow" ? QString() : value.trimmed();
    }

    DrawingSource& m_source;
    QXmlStreamReader m_in;
    QByteArray m_svg;
    QXmlStreamWriter m_out;
    const QString m_class; ///< of what holds places
    bool m_inStyle = false;
};

} // namespace

void HoldPictures(DrawingSource& source)
{
    if (source.error.isEmpty() && source.svg.contains("image"))
        Holder(source).Hold();
}

const HeldPicture* FindHeld(const std::vector<HeldPicture>& held, const Paint& fill, const QPainterPath& path)
{
    constexpr int kElements = 4; // of a triangle
    const size_t index = fill.color & 0xFFFFFFU;
    if (index >= held.size() || std::abs(fill.alpha - kHeldAlpha) > kAlphaStep ||
        path.elementCount() < kTriangles * kElements)
        return nullptr;
    for (int i = kElements; i < kTriangles * kElements; ++i)
        if (path.elementAt(i) != path.elementAt(i % kElements))
            return nullptr;
    return &held[index];
}

} // namespace shapedocument::drawing
