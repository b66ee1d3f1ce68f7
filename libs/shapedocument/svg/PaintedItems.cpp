#include "svg/PaintedItems.h"

#include "svg/Dashes.h"
#include "svg/PagePainter.h"
#include "svg/PathText.h"

#include <QBuffer>
#include <QColor>
#include <QXmlStreamReader>

#include <cmath>
#include <unordered_map>

namespace shapedocument::drawing {

namespace {

constexpr double kGrid = 2 / kGridPerMm; ///< mm; what rounding moves two equal points apart

/// The declarations of a style attribute, and further attributes, as Latin-1.
class Style
{
public:
    explicit Style(const QXmlStreamAttributes& attributes) : m_text(attributes.value("style").toLatin1()) {}

    std::string_view operator[](std::string_view name) const
    {
        std::string_view rest(m_text.constData(), m_text.size());
        while (!rest.empty()) {
            std::string_view one = rest.substr(0, rest.find(';'));
            rest.remove_prefix(std::min(one.size() + 1, rest.size()));
            one.remove_prefix(std::min(one.find_first_not_of(' '), one.size()));
            if (one.size() > name.size() && one.starts_with(name) && one[name.size()] == ':')
                return one.substr(name.size() + 1);
        }
        return {};
    }

    double Number(std::string_view name, double otherwise) const
    {
        std::string_view text = (*this)[name];
        return text.empty() ? otherwise : TakeNumber(text);
    }

private:
    QByteArray m_text;
};

/// What a fill or stroke colours with. No alpha: nothing shows.
struct Paint
{
    QRgb color = 0;
    double alpha = 0;
};

/// rgb(r%,g%,b%); black for anything else.
QRgb ColorOf(std::string_view text)
{
    constexpr std::string_view kBegin = "rgb(";
    constexpr double kPercent = 100;
    if (!text.starts_with(kBegin))
        return 0;
    text.remove_prefix(kBegin.size());
    double part[3];
    for (double& share : part) {
        share = std::clamp(TakeNumber(text) / kPercent, 0.0, 1.0);
        text.remove_prefix(text.starts_with('%'));
    }
    return QColor::fromRgbF(part[0], part[1], part[2]).rgb() & RGB_MASK;
}

/// The page's own points, which stand on its grid; written with six digits, they come back beside it.
QPainterPath OnGrid(QPainterPath path)
{
    const auto snapped = [](double mm) { return std::round(mm * kGridPerMm) / kGridPerMm; };
    for (int i = 0; i < path.elementCount(); ++i)
        path.setElementPositionAt(i, snapped(path.elementAt(i).x), snapped(path.elementAt(i).y));
    return path;
}

QStringView IdIn(QStringView reference)
{
    const qsizetype begin = reference.indexOf(u'#') + 1, end = reference.indexOf(u')');
    return begin == 0 ? QStringView() : reference.mid(begin, end < 0 ? -1 : end - begin);
}

struct Gradient
{
    Paint firstVisible;
    bool opaque = true;

    /// The alpha is below 1 where any stop lets something through.
    Paint Shown() const { return {firstVisible.color, opaque ? 1 : firstVisible.alpha / 2}; }
};

/// A pattern or a surface that is painted by reference.
struct Recorded
{
    std::vector<PaintedItem> items; ///< in its own coordinates
    QTransform matrix;              ///< of a pattern
    bool isPicture = false;         ///< of a pattern: painting with it places its only item
};

struct Embedded
{
    QByteArray file;
    QSize size;
};

class PageReader
{
public:
    PageReader(const PaintedPage& page, bool solid) : m_solid(solid)
    {
        m_bytes.setData(page.vectors);
        m_bytes.open(QIODevice::ReadOnly);
        m_in.setDevice(&m_bytes);
        m_levels.push_back({page.toMillimetres, nullptr, &m_page.items});
        m_in.setNamespaceProcessing(false);
    }

    PaintedItems Read()
    {
        while (!m_in.atEnd()) {
            const auto token = m_in.readNext();
            if (token == QXmlStreamReader::StartElement)
                Begin(m_in.name(), m_in.attributes());
            else if (token == QXmlStreamReader::EndElement)
                m_levels.pop_back();
        }
        if (m_in.hasError())
            m_page.error = "cannot be painted (" + m_in.errorString() + ")";
        if (!m_page.items.empty())
            m_page.items.erase(m_page.items.begin()); // the ground
        return std::move(m_page);
    }

private:
    /// What holds for the content of an element that is open.
    struct Level
    {
        QTransform toItems;
        std::shared_ptr<const ClipArea> clip;
        std::vector<PaintedItem>* items = nullptr; ///< where its content goes; null: nowhere
        QPainterPath* clipPath = nullptr;          ///< its content is a clip's
        Gradient* gradient = nullptr;
        Recorded* pattern = nullptr; ///< it is directly in one
    };

    void Begin(QStringView name, const QXmlStreamAttributes& attributes)
    {
        Level level = m_levels.back();
        level.pattern = nullptr;
        if (name == u"path")
            AddPath(PathOf(Text(attributes, "d")), attributes);
        else if (name == u"rect")
            AddPath(RectOf(attributes), attributes);
        else if (name == u"use")
            AddUse(attributes);
        else if (name == u"image")
            AddImage(attributes);
        else if (name == u"stop")
            AddStop(Style(attributes));
        else if (name == u"g" || name == u"symbol")
            BeginGroup(level, attributes);
        else if (name == u"clipPath")
            level.clipPath = &m_clips[attributes.value("id").toString()];
        else if (name.endsWith(u"Gradient"))
            level.gradient = &m_gradients[attributes.value("id").toString()];
        else if (name == u"pattern")
            BeginPattern(level, attributes);
        else if (name == u"mask" || name == u"filter" || name == u"defs")
            level.items = nullptr;
        m_levels.push_back(level);
    }

    std::string_view Text(const QXmlStreamAttributes& attributes, const char* name)
    {
        m_text = attributes.value(QLatin1String(name)).toLatin1();
        return {m_text.constData(), static_cast<size_t>(m_text.size())};
    }

    /// Groups among the definitions are drawn where they are used.
    void BeginGroup(Level& level, const QXmlStreamAttributes& attributes)
    {
        const QStringView clip = IdIn(attributes.value("clip-path"));
        if (!level.items) {
            BeginRecorded(level, attributes, {});
            return; // whose clip is the surface's own size
        }
        if (!clip.isEmpty()) {
            QPainterPath area = m_clips[clip.toString()];
            area.setFillRule(attributes.value("clip-rule") == u"evenodd" ? Qt::OddEvenFill : Qt::WindingFill);
            level.clip = std::make_shared<ClipArea>(ClipArea{OnGrid(level.toItems.map(area)), level.clip});
        }
        level.toItems = MatrixOf(Text(attributes, "transform")) * level.toItems;
    }

    void BeginRecorded(Level& level, const QXmlStreamAttributes& attributes, const QTransform& matrix)
    {
        Recorded& recorded = m_recorded[attributes.value("id").toString()];
        recorded = {{}, matrix};
        level = {{}, nullptr, &recorded.items};
    }

    void BeginPattern(Level& level, const QXmlStreamAttributes& attributes)
    {
        BeginRecorded(level, attributes, MatrixOf(Text(attributes, "patternTransform")));
        level.pattern = &m_recorded[attributes.value("id").toString()];
    }

    static QPainterPath RectOf(const QXmlStreamAttributes& attributes)
    {
        QPainterPath path;
        path.addRect(attributes.value("x").toDouble(), attributes.value("y").toDouble(),
                     attributes.value("width").toDouble(), attributes.value("height").toDouble());
        return path;
    }

    void AddStop(const Style& style)
    {
        Gradient* gradient = m_levels.back().gradient;
        if (!gradient)
            return;
        const Paint paint{ColorOf(style["stop-color"]), style.Number("stop-opacity", 1)};
        gradient->opaque = gradient->opaque && paint.alpha >= 1;
        if (gradient->firstVisible.alpha <= 0)
            gradient->firstVisible = paint;
    }

    const Recorded* PatternOf(std::string_view paint) const
    {
        const auto found = m_recorded.find(IdIn(QString::fromLatin1(paint.data(), paint.size())).toString());
        return found == m_recorded.end() ? nullptr : &found->second;
    }

    Paint PaintOf(std::string_view paint, double alpha) const
    {
        if (paint.empty() || paint.starts_with("none"))
            return {};
        if (!paint.starts_with("url("))
            return {ColorOf(paint), alpha};
        const auto gradient = m_gradients.find(IdIn(QString::fromLatin1(paint.data(), paint.size())).toString());
        if (gradient != m_gradients.end())
            return gradient->second.Shown();
        const Recorded* pattern = PatternOf(paint);
        return pattern && !pattern->items.empty() ? Paint{pattern->items.front().color, 0.5} : Paint{};
    }

    void AddPath(QPainterPath path, const QXmlStreamAttributes& attributes)
    {
        const Level& level = m_levels.back();
        if (level.clipPath)
            level.clipPath->addPath(path);
        if (!level.items || path.elementCount() < 2)
            return;
        const Style style(attributes);
        const Recorded* pattern = PatternOf(style["fill"]);
        if (pattern && pattern->isPicture && !pattern->items.empty())
            return AddPicture(*pattern, path);
        const Paint fill = PaintOf(style["fill"], style.Number("fill-opacity", 1));
        const Paint stroke = PaintOf(style["stroke"], style.Number("stroke-opacity", 1));
        if (!(fill.alpha > 0 || stroke.alpha > 0))
            return;
        PaintedItem item;
        item.filled = fill.alpha > 0;
        item.stroked = stroke.alpha > 0;
        item.opaque = fill.alpha >= 1;
        item.color = item.stroked ? stroke.color : fill.color;
        item.clip = level.clip;
        path.setFillRule(style["fill-rule"] == "evenodd" ? Qt::OddEvenFill : Qt::WindingFill);
        const QPainterPath whole = path;
        if (!item.filled && !m_solid)
            Dash(path, style, item);
        const QTransform toItems = MatrixOf(Text(attributes, "transform")) * level.toItems;
        const QPainterPath drawn = OnGrid(toItems.map(whole));
        const Ink ink = !item.filled ? Ink::Line : item.stroked ? Ink::LineAndArea : Ink::Area;
        item.path = MachineOutline(item.dashed ? toItems.map(path) : drawn, ink, kGrid);
        if (item.path.elementCount() > 1 && !MergesWithLast(item, drawn, *level.items))
            level.items->push_back(std::move(item));
        m_lastDrawn = drawn;
    }

    static void Dash(QPainterPath& path, const Style& style, PaintedItem& item)
    {
        const std::vector<double> lengths = NumbersIn(style["stroke-dasharray"]);
        if (lengths.empty())
            return;
        item.dashed = CutIntoDashes(path, lengths, style.Number("stroke-dashoffset", 0));
        item.dashesKept = !item.dashed;
    }

    /// Ends at the first word that is none.
    static std::vector<double> NumbersIn(std::string_view text)
    {
        std::vector<double> numbers;
        while (!text.empty()) {
            const size_t before = text.size();
            const double number = TakeNumber(text);
            if (text.size() == before)
                break;
            numbers.push_back(number);
        }
        return numbers;
    }

    /// Fill and stroke of a path are painted one after the other.
    bool MergesWithLast(const PaintedItem& item, const QPainterPath& drawn, std::vector<PaintedItem>& items) const
    {
        if (items.empty())
            return false;
        PaintedItem& last = items.back();
        if (last.filled == item.filled || last.stroked == item.stroked || item.clip != last.clip ||
            !IsSame(m_lastDrawn, drawn))
            return false;
        if (item.stroked)
            last.color = item.color;
        else
            last.path = item.path; // closed, and without dashes
        last.dashed = last.dashesKept = false;
        last.opaque = last.opaque || item.opaque;
        last.filled = last.stroked = true;
        return true;
    }

    static bool IsSame(const QPainterPath& a, const QPainterPath& b)
    {
        if (a.elementCount() != b.elementCount())
            return false;
        for (int i = 0; i < a.elementCount(); ++i) {
            const QPointF apart = QPointF(a.elementAt(i)) - QPointF(b.elementAt(i));
            if (std::abs(apart.x()) > 2 * kGrid || std::abs(apart.y()) > 2 * kGrid)
                return false;
        }
        return true;
    }

    void AddPicture(const Recorded& pattern, const QPainterPath& area)
    {
        const Level& level = m_levels.back();
        PaintedItem item = pattern.items.front();
        item.onPage = item.onPage * pattern.matrix * level.toItems;
        item.clip = std::make_shared<ClipArea>(ClipArea{level.toItems.map(area), level.clip});
        level.items->push_back(std::move(item));
    }

    void AddImage(const QXmlStreamAttributes& attributes)
    {
        const QStringView data = attributes.value("xlink:href");
        Embedded& image = m_images[attributes.value("id").toString()];
        image.file = QByteArray::fromBase64(data.mid(data.indexOf(u',') + 1).toLatin1());
        image.size = {attributes.value("width").toInt(), attributes.value("height").toInt()};
    }

    void AddUse(const QXmlStreamAttributes& attributes)
    {
        const Level& level = m_levels.back();
        if (!level.items)
            return;
        const QString id = IdIn(attributes.value("xlink:href")).toString();
        const QTransform place =
            QTransform::fromTranslate(attributes.value("x").toDouble(), attributes.value("y").toDouble()) *
            MatrixOf(Text(attributes, "transform")) * level.toItems;
        if (const auto image = m_images.find(id); image != m_images.end()) {
            PaintedItem item;
            item.picture = image->second.file;
            item.pixels = image->second.size;
            item.onPage = place;
            item.clip = level.clip;
            level.items->push_back(std::move(item));
            if (level.pattern)
                level.pattern->isPicture = true;
        } else if (const auto recorded = m_recorded.find(id); recorded != m_recorded.end()) {
            for (const PaintedItem& item : recorded->second.items) {
                level.items->push_back(Placed(item, place, level.clip));
                level.items->back().opaque = item.opaque && !attributes.hasAttribute("mask");
            }
        }
    }

    static PaintedItem Placed(const PaintedItem& item, const QTransform& place,
                              const std::shared_ptr<const ClipArea>& clip)
    {
        PaintedItem placed = item;
        placed.path = place.map(item.path);
        placed.onPage = item.onPage * place;
        placed.clip = PlacedClip(item.clip, place, clip);
        return placed;
    }

    static std::shared_ptr<const ClipArea> PlacedClip(const std::shared_ptr<const ClipArea>& clip,
                                                      const QTransform& place,
                                                      const std::shared_ptr<const ClipArea>& around)
    {
        if (!clip)
            return around;
        return std::make_shared<ClipArea>(ClipArea{place.map(clip->area), PlacedClip(clip->outer, place, around)});
    }

    QBuffer m_bytes; // read piece by piece; as bytes they would be decoded all at once
    QXmlStreamReader m_in;
    bool m_solid;
    PaintedItems m_page;
    std::vector<Level> m_levels;
    QByteArray m_text;
    QPainterPath m_lastDrawn; ///< as its item's path, neither closed nor dashed
    std::unordered_map<QString, QPainterPath> m_clips;
    std::unordered_map<QString, Gradient> m_gradients;
    std::unordered_map<QString, Recorded> m_recorded;
    std::unordered_map<QString, Embedded> m_images;
};

} // namespace

PaintedItems ReadPainted(const PaintedPage& page, bool solid)
{
    return PageReader(page, solid).Read();
}

} // namespace shapedocument::drawing
