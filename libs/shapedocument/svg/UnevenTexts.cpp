#include "svg/UnevenTexts.h"

#include "svg/PageStyle.h"
#include "svg/StyleText.h"

#include <QRegularExpression>
#include <QXmlStreamAttributes>

#include <cmath>
#include <numbers>
#include <utility>

namespace shapedocument::drawing {

namespace {

QTransform TransformOf(QStringView function, const std::vector<double>& numbers)
{
    const auto number = [&](size_t i, double otherwise) { return i < numbers.size() ? numbers[i] : otherwise; };
    const auto tangent = [&] { return std::tan(number(0, 0) * std::numbers::pi / 180); };
    if (function == u"matrix")
        return {number(0, 1), number(1, 0), number(2, 0), number(3, 1), 0, 0};
    if (function == u"scale")
        return QTransform::fromScale(number(0, 1), number(1, number(0, 1)));
    if (function == u"rotate")
        return QTransform().rotate(number(0, 0));
    if (function == u"skewX")
        return {1, 0, tangent(), 1, 0, 0};
    if (function == u"skewY")
        return {1, tangent(), 0, 1, 0, 0};
    return {};
}

/// The matrix of a transform list, without translations.
QTransform TransformIn(const QString& list)
{
    static const QRegularExpression function("(\\w+)\\s*\\(([^)]*)\\)");
    QTransform transform;
    for (auto matches = function.globalMatch(list); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const QByteArray numbers = match.captured(2).toLatin1();
        transform =
            TransformOf(match.captured(1), NumbersIn({numbers.constData(), size_t(numbers.size())})) * transform;
    }
    return transform;
}

/// The value of a property from the style attribute or its own attribute; empty for none.
QString Property(const QXmlStreamAttributes& attributes, const QString& name)
{
    const QStringList inStyle = ValuesOf(name, attributes.value("style").toString());
    return inStyle.isEmpty() ? attributes.value(name).toString() : inStyle.last();
}

/// A length's number and unit; the whole viewport where none is given.
std::pair<double, QString> LengthIn(const QXmlStreamAttributes& attributes, const QString& name)
{
    static const QRegularExpression length("^\\s*([-+.0-9eE]+?)([a-zA-Z%]*)\\s*$");
    const QRegularExpressionMatch match = length.match(Property(attributes, name));
    return match.hasMatch() ? std::pair(match.captured(1).toDouble(), match.captured(2))
                            : std::pair(100.0, QString("%"));
}

/// The scales of a view box that fills its viewport with any ratio of sides; only their ratio counts. isPage: where no
/// sides are given, or in percent, it is as large as the box; elsewhere these are taken as uneven.
QTransform ViewTransform(const QXmlStreamAttributes& attributes, bool isPage)
{
    const QByteArray box = attributes.value("viewBox").toLatin1();
    const std::vector<double> sides = NumbersIn({box.constData(), size_t(box.size())});
    const bool hasBox = sides.size() == 4 && sides[2] > 0 && sides[3] > 0;
    if (!hasBox || !attributes.value("preserveAspectRatio").contains(u"none"))
        return {};
    const auto [width, unit] = LengthIn(attributes, "width");
    const auto [height, heightUnit] = LengthIn(attributes, "height");
    const bool known = unit == heightUnit && unit != u"%";
    if (!known)
        return isPage ? QTransform() : QTransform::fromScale(2, 1);
    return QTransform::fromScale(width / sides[2], height / sides[3]);
}

bool IsUneven(const QTransform& scale)
{
    constexpr double kSlack = 0.002; // relative difference of the scales
    const double along = std::hypot(scale.m11(), scale.m12());
    return along > 0 && std::abs(std::abs(scale.determinant()) / (along * along) - 1) > kSlack;
}

bool IsAnchor(const QString& value)
{
    return value.contains(QLatin1String("middle")) || value.contains(QLatin1String("end"));
}

} // namespace

void UnevenTexts::Open(QStringView name, const QXmlStreamAttributes& attributes)
{
    Level level = m_levels.back();
    if (name == u"text")
        m_hasWords = m_goesOn = false;
    level.isText = name == u"text";
    if (const QString transform = Property(attributes, "transform"); !transform.isEmpty())
        level.scale = TransformIn(transform) * level.scale;
    level.scale = ViewTransform(attributes, m_levels.size() == 1) * level.scale;
    if (const QString anchor = Property(attributes, "text-anchor"); !anchor.isEmpty())
        level.anchored = IsAnchor(anchor);
    m_levels.push_back(level);
    if (name == u"tspan") {
        m_goesOn = m_goesOn || (m_hasWords && !attributes.hasAttribute("x"));
        for (Level& outer : m_levels)
            outer.anchored = outer.anchored || (outer.isText && level.anchored);
    }
}

void UnevenTexts::AddWords(QStringView words)
{
    m_hasWords = m_hasWords || !words.trimmed().isEmpty();
}

void UnevenTexts::AddRules(const QString& rules)
{
    for (const QString& anchor : ValuesOf("text-anchor", rules))
        m_anchoringRule = m_anchoringRule || IsAnchor(anchor);
}

bool UnevenTexts::Close()
{
    const Level level = m_levels.back();
    m_levels.pop_back();
    return level.isText && m_hasWords && IsUneven(level.scale) && (level.anchored || m_anchoringRule || m_goesOn);
}

} // namespace shapedocument::drawing
