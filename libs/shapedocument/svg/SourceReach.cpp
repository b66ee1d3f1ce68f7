#include "svg/SourceReach.h"

#include "plane/Length.h"
#include "svg/PagePainter.h"
#include "svg/PathReach.h"
#include "svg/SourceNumbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace shapedocument::drawing {

namespace {

constexpr double kPercent = 100;
constexpr double kReachOfAny = 1e100; ///< nothing is drawn so far away

/// They paint letters, or fit what stands elsewhere into other places.
bool ReachesAnywhere(QStringView name)
{
    static const QSet<QString> names{"text", "symbol", "marker", "pattern"};
    return names.contains(name.toString());
}

bool IsGradient(QStringView name)
{
    return name.endsWith(u"Gradient") || name == u"stop";
}

QByteArray Letters(QStringView text)
{
    return text.toLatin1();
}

std::string_view ViewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<size_t>(bytes.size())};
}

/// In user units; 0 for the font's size, and for what is unknown.
double UnitOf(std::string_view name)
{
    constexpr double kInch = 96;
    constexpr std::array<std::pair<std::string_view, double>, 7> kUnits{{{"", 1},
                                                                         {"px", 1},
                                                                         {"in", kInch},
                                                                         {"mm", kInch / kMmPerInch},
                                                                         {"cm", kInch / kMmPerInch * 10},
                                                                         {"pt", kInch / 72},
                                                                         {"pc", kInch / 6}}};
    const auto* const unit = std::ranges::find(kUnits, name, &std::pair<std::string_view, double>::first);
    return unit == kUnits.end() ? 0 : unit->second;
}

/// Not of a longer name such as text-transform or stroke-width, which drawing programs write into each style; else -1.
qsizetype PlaceOf(QByteArrayView property, const QByteArray& declarations)
{
    qsizetype at = declarations.indexOf(property);
    while (at > 0 && declarations[at - 1] == '-')
        at = declarations.indexOf(property, at + 1);
    return at;
}

bool Sets(const QByteArray& declarations, QByteArrayView property)
{
    return PlaceOf(property, declarations) >= 0;
}

/// What the style or else an attribute says.
QByteArray ValueOf(QLatin1String property, const QXmlStreamAttributes& attributes, const QByteArray& style)
{
    const qsizetype at = PlaceOf(property, style);
    if (at < 0)
        return Letters(attributes.value(property)).trimmed();
    const qsizetype begin = style.indexOf(':', at) + 1, end = style.indexOf(';', begin);
    return style.mid(begin, end < 0 ? -1 : end - begin).trimmed();
}

bool SetsSize(const QByteArray& declarations)
{
    return Sets(declarations, "width") || Sets(declarations, "height");
}

/// The ids that a use may name; only one that begins with # counts, and the prefix may be any.
QSet<QString> ReferencesOf(const QXmlStreamAttributes& attributes)
{
    QSet<QString> ids;
    for (const QXmlStreamAttribute& attribute : attributes)
        if (attribute.qualifiedName().endsWith(u"href") && attribute.value().startsWith(u'#'))
            ids << attribute.value().mid(1).toString();
    return ids;
}

/// Of a box at any place: as far away as it is large.
double BoxReach(double largest)
{
    return 2 * largest;
}

std::array<double, 4> FourNumbers(std::string_view text)
{
    std::array<double, 4> numbers{};
    for (double& number : numbers)
        number = ReadSourceNumber(text).value_or(0);
    return numbers;
}

/// What a percentage of the root is of.
double PageSide(const QXmlStreamAttributes& root)
{
    constexpr double kDefaultPage = 300;
    const QByteArray box = Letters(root.value("viewBox"));
    const std::array<double, 4> sides = FourNumbers(ViewOf(box));
    return box.isEmpty() ? kDefaultPage : std::max(sides[2], sides[3]);
}

} // namespace

void SourceReach::Enter(Level& level, const ReachFrame& inner)
{
    level.frame.Enter(inner);
    level.wide.Enter({std::max(1.0, inner.scale), inner.shift});
}

void SourceReach::Hide(Level& level, const QXmlStreamAttributes& attributes, const QByteArray& style)
{
    level.isGone = level.isGone || ValueOf(QLatin1String("display"), attributes, style).startsWith("none");
    const QByteArray visibility = ValueOf(QLatin1String("visibility"), attributes, style);
    level.isInvisible = visibility.startsWith("hidden") || visibility.startsWith("collapse") ||
                        (level.isInvisible && !visibility.startsWith("visible"));
}

/// The largest number, with its unit; percent are of whole. Words with digits inside are names and colours.
double SourceReach::LargestOf(std::string_view text, double whole)
{
    double largest = 0;
    m_anywhere = m_anywhere || text.find('\\') != text.npos; // may write any word in other letters
    while (!text.empty()) {
        const char letter = text.front();
        if (IsLetter(letter) || letter == '#' || letter == '_') {
            ReadWord(text);
            continue;
        }
        const auto number = ReadSourceNumber(text);
        if (!number) {
            text.remove_prefix(std::min<size_t>(1, text.size()));
            continue;
        }
        const bool percent = text.starts_with('%');
        const double unit = percent ? whole / kPercent : UnitOf(ReadLetters(text));
        m_anywhere = m_anywhere || unit == 0;
        m_beyondViewport = m_beyondViewport || (percent && std::abs(*number) > kPercent);
        largest = std::max(largest, std::abs(*number) * unit);
    }
    return largest;
}

/// The renderer leaves out what is more than one length.
std::optional<double> SourceReach::LengthOf(QStringView length, double whole)
{
    if (length.isEmpty())
        return {};
    const QByteArray letters = Letters(length);
    std::string_view rest = ViewOf(letters);
    bool isOne = ReadStrictNumber(rest).has_value();
    if (rest.starts_with('%'))
        rest.remove_prefix(1);
    else
        ReadLetters(rest);
    isOne = isOne && SkipAndCountCommas(rest) == 0 && rest.empty() && !letters.startsWith(',');
    m_anywhere = m_anywhere || !isOne;
    return LargestOf(ViewOf(letters), whole);
}

/// Of an svg element: what its view box makes of its content. Of the root, a side that is not given follows the box.
ReachFrame SourceReach::EnterViewport(const QXmlStreamAttributes& attributes, Level& level)
{
    const bool root = m_levels.size() == 1;
    const QByteArray text = Letters(attributes.value("viewBox"));
    const auto [left, top, boxWidth, boxHeight] = FourNumbers(ViewOf(text));
    const double boxSide = std::max(boxWidth, boxHeight), outer = level.viewport;
    const auto width = LengthOf(attributes.value("width"), outer), height = LengthOf(attributes.value("height"), outer);
    const auto x = LengthOf(attributes.value("x"), outer), y = LengthOf(attributes.value("y"), outer);
    const double place = std::max(x.value_or(0), y.value_or(0));
    const QByteArray style = Letters(attributes.value("style"));
    const double styled = SetsSize(style) ? LargestOf(ViewOf(style), outer) : 0; // bounds its width and height
    const double side = std::max({width.value_or(outer), height.value_or(outer), styled});
    level.viewport = text.isEmpty() ? side : boxSide;
    if (text.isEmpty())
        return {1, place};
    m_anywhere = m_anywhere || !(boxWidth > 0 && boxHeight > 0);
    const double shorter = std::min(boxWidth, boxHeight);
    const double without = root ? width || height ? 0 : 1 : side / shorter;
    const double scale =
        std::max({width ? *width / boxWidth : without, height ? *height / boxHeight : without, styled / shorter});
    // where the box does not fill the viewport it may stand at either end
    return {scale, place + side + scale * (std::max(std::abs(left), std::abs(top)) + boxSide)};
}

double SourceReach::ReachOf(const QXmlStreamAttributes& attributes, double viewport)
{
    static const QSet<QString> lengths{"x",  "y",  "width", "height", "cx", "cy",     "r",           "rx",
                                       "ry", "x1", "y1",    "x2",     "y2", "points", "stroke-width"};
    double reach = 0;
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString name = attribute.qualifiedName().toString();
        const QByteArray value = Letters(attribute.value());
        if (name == u"d")
            reach = std::max(reach, ReachOfPath(ViewOf(value)));
        else if (name == u"style" || lengths.contains(name))
            reach = std::max(reach, BoxReach(LargestOf(ViewOf(value), viewport)));
        if (name == u"stroke-width" || (name == u"style" && value.contains("stroke-width")))
            m_ruleReach = std::max(m_ruleReach, BoxReach(LargestOf(ViewOf(value), viewport)));
        m_anywhere = m_anywhere || (name == u"style" && Sets(value, "transform"));
    }
    return reach;
}

void SourceReach::Note(const Level& level, double distance)
{
    double& reach = level.isClip ? m_clipReach : m_reach;
    const double farthest = level.wide.At(distance);
    m_anywhere = m_anywhere || !std::isfinite(farthest);
    if (!level.isClip && level.frame.At(distance) * kMmPerUnit > kPaintedReach)
        ++(level.isGone || level.isInvisible ? m_farHidden : m_farElements);
    reach = std::max(reach, level.frame.At(distance));
    m_wideReach = std::max(m_wideReach, farthest);
    m_widest.Include(level.wide);
    if (!level.isClip)
        m_largest.Include(level.frame);
}

void SourceReach::Open(QStringView name, const QXmlStreamAttributes& attributes)
{
    Level level = m_levels.back();
    if (m_levels.size() == 1)
        level.viewport = PageSide(attributes);
    level.isStyle = name == u"style";
    m_anywhere = m_anywhere || ReachesAnywhere(name);
    if (IsGradient(name)) {
        m_levels.push_back(level);
        return;
    }
    const QByteArray style = Letters(attributes.value("style"));
    if (level.isClip || name == u"clipPath") // whose clip would stand in yet another frame
        m_anywhere = m_anywhere || attributes.hasAttribute("clip-path") || style.contains("clip-path") ||
                     attributes.value("clipPathUnits") == u"objectBoundingBox";
    if (name == u"clipPath")
        level = {{}, {}, level.viewport, true, {}};
    if (name == u"image") { // without a size it is as large as its picture
        const bool hasSize = LengthOf(attributes.value("width"), level.viewport).has_value() &&
                             LengthOf(attributes.value("height"), level.viewport).has_value();
        m_anywhere = m_anywhere || !hasSize || attributes.value("preserveAspectRatio").contains(u"slice");
    }
    const std::optional<ReachFrame> frame = FrameOfTransforms(ViewOf(Letters(attributes.value("transform"))));
    m_anywhere = m_anywhere || !frame;
    Enter(level, frame.value_or(ReachFrame()));
    Hide(level, attributes, style);
    Note(level, ReachOf(attributes, level.viewport));
    if (name == u"svg" && attributes.hasAttribute("id"))
        m_viewports << attributes.value("id").toString();
    if (name == u"svg")
        Enter(level, EnterViewport(attributes, level));
    level.id = attributes.value("id").toString();
    level.holdsUse = false;
    m_levels.push_back(level);
    if (name == u"use")
        NoteUse(level, attributes);
}

void SourceReach::NoteUse(const Level& level, const QXmlStreamAttributes& attributes)
{
    ++m_uses;
    m_widestUse.Include(level.wide);
    for (const char* const side : {"x", "y"})
        m_usePlace = std::max(m_usePlace, LengthOf(attributes.value(side), level.viewport).value_or(0));
    m_usesInClips = m_usesInClips || level.isClip;
    const QSet<QString> used = ReferencesOf(attributes);
    m_used += used;
    if (attributes.hasAttribute("width") || attributes.hasAttribute("height"))
        m_fitted += used;
    for (auto open = m_levels.rbegin(); open != m_levels.rend() && !open->holdsUse; ++open) {
        open->holdsUse = true; // those around it are known from then on
        if (!open->id.isEmpty())
            m_holders << open->id;
    }
}

void SourceReach::Close()
{
    if (m_levels.back().isStyle)
        NoteRules(std::exchange(m_rules, {}));
    m_levels.pop_back();
}

void SourceReach::AddRules(const QString& rules)
{
    m_rules += Letters(rules);
}

void SourceReach::NoteRules(const QByteArray& text)
{
    m_anywhere = m_anywhere || Sets(text, "transform") || SetsSize(text) || text.contains("%");
    m_ruleReach = std::max(m_ruleReach, BoxReach(LargestOf(ViewOf(text), 0)));
    m_rulesShow = m_rulesShow || Sets(text, "display") || Sets(text, "visibility");
}

double SourceReach::ReachOfUses() const
{
    double reach = std::max(m_wideReach, m_widest.At(std::max(m_clipReach, m_ruleReach)));
    const size_t inARow = m_holders.intersects(m_used) ? m_uses : 1;
    for (size_t i = 0; i < inARow && reach < kReachOfAny; ++i)
        reach = m_widestUse.At(m_usePlace + reach);
    return m_usesInClips ? m_widest.At(reach) : reach;
}

int SourceReach::FarElements() const
{
    return m_farElements + (m_uses > 0 || m_rulesShow ? m_farHidden : 0);
}

double SourceReach::Bound() const
{
    // A rule's length may stand in a clip, whose content has frames of its own.
    const double ruleReach = m_clipReach > 0 ? m_widest.At(m_ruleReach) : m_ruleReach;
    const double alone = std::max(m_reach, m_largest.At(std::max(m_clipReach, ruleReach)));
    const double bound = m_uses > 0 ? std::max(alone, ReachOfUses()) : alone;
    const bool anywhere = m_anywhere || m_viewports.intersects(m_fitted) || (m_uses > 0 && m_beyondViewport);
    return anywhere ? std::numeric_limits<double>::infinity() : bound;
}

} // namespace shapedocument::drawing
