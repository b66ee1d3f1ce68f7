#include "svg/EffectNotes.h"

#include "svg/StyleText.h"

#include <QRegularExpression>

#include <algorithm>

namespace shapedocument::drawing {

namespace {

/// Whether the element sets rotations, widths or capitals of letters, which are not painted.
bool SetsLetters(const QXmlStreamAttributes& attributes)
{
    static const QRegularExpression turn("[1-9]");
    return attributes.hasAttribute("textLength") || attributes.value("rotate").contains(turn);
}

/// Whether the element has markers that are not painted: the renderer paints those of paths, lines and polygons only.
bool HasMarkersOfShapes(QStringView name, const QXmlStreamAttributes& attributes)
{
    if (name != u"rect" && name != u"circle" && name != u"ellipse")
        return false;
    static const QRegularExpression inStyle("marker[-a-z]*\\s*:\\s*url");
    const auto marks = [](const QXmlStreamAttribute& attribute) {
        return attribute.qualifiedName().startsWith(u"marker") ? attribute.value().contains(u'(')
               : attribute.qualifiedName() == u"style"         ? attribute.value().contains(inStyle)
                                                               : false;
    };
    return std::any_of(attributes.begin(), attributes.end(), marks);
}

bool HasSmallCapitals(const QString& declarations)
{
    static const QRegularExpression small("font(-variant[-a-z]*)?\\s*:[^;}]*small-caps");
    return declarations.contains(small);
}

/// Whether the attribute names a filter or a mask, not "none".
bool Applies(const QString& property, const QString& attribute, const QString& value)
{
    if (attribute == property)
        return value.contains(u'(');
    const QStringList values = attribute == u"style" ? ValuesOf(property, value) : QStringList();
    return !values.isEmpty() && values.last().contains(u'(');
}

} // namespace

std::optional<Departure> LeftOut(QStringView name, bool hasPrefix)
{
    if (name == u"script")
        return Departure::Script;
    if (name == u"include" && hasPrefix)
        return Departure::OtherFile;
    if (name == u"textPath")
        return Departure::TextOnPath;
    return {};
}

void NoteElement(QStringView name, const QXmlStreamAttributes& attributes, DrawingReport& report)
{
    if (name == u"foreignObject" && !attributes.hasAttribute("requiredExtensions"))
        report.Add(Departure::ForeignObject);
    if (name == u"animate" || name == u"animateTransform" || name == u"animateMotion" || name == u"set")
        report.Add(Departure::Animation);
    report.Add(Departure::Markers, HasMarkersOfShapes(name, attributes));
    if (name == u"text" || name == u"tspan")
        report.Add(Departure::Letters, SetsLetters(attributes));
}

void NoteEffects(const QString& attribute, const QString& value, DrawingReport& report)
{
    report.Add(Departure::Filter, Applies("filter", attribute, value));
    report.Add(Departure::Mask, Applies("mask", attribute, value));
    if (value.contains(QLatin1String("small-caps")))
        report.Add(Departure::Letters, HasSmallCapitals(attribute == u"style" ? value : attribute + ':' + value));
}

void NoteRules(const QString& rules, DrawingReport& report)
{
    report.Add(Departure::OtherFile, static_cast<int>(rules.count(QLatin1String("@import"))));
    report.Add(Departure::Letters, HasSmallCapitals(rules));
    for (const QString& value : ValuesOf("filter", rules))
        report.Add(Departure::Filter, value.contains(u'('));
    for (const QString& value : ValuesOf("mask", rules))
        report.Add(Departure::Mask, value.contains(u'('));
}

void NoteEntities(const QXmlStreamEntityDeclarations& entities, DrawingReport& report)
{
    for (const QXmlStreamEntityDeclaration& entity : entities)
        if (!entity.systemId().isEmpty() && entity.notationName().isEmpty())
            report.Add(Departure::OtherFile);
}

} // namespace shapedocument::drawing
