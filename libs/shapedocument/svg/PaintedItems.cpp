#include "svg/PaintedItems.h"

#include "svg/ClipCut.h"
#include "svg/Dashes.h"
#include "svg/HeldPictures.h"
#include "svg/PagePainter.h"
#include "svg/PageStyle.h"
#include "svg/PaintServers.h"
#include "svg/PathText.h"

#include <QXmlStreamReader>

#include <cmath>
#include <optional>
#include <unordered_map>
#include <utility>

namespace shapedocument::drawing {

namespace {

constexpr double kGrid = 2 / kGridPerMm; ///< mm; the distance of two equal points after rounding

/// Puts points back on the page's grid: the page's text has six digits, which moves them.
QPainterPath OnGrid(QPainterPath path)
{
    const auto snapped = [](double mm) { return std::round(mm * kGridPerMm) / kGridPerMm; };
    for (int i = 0; i < path.elementCount(); ++i)
        path.setElementPositionAt(i, snapped(path.elementAt(i).x), snapped(path.elementAt(i).y));
    return path;
}

/// What a clip of upright rectangles leaves of rect; nothing for other clips.
std::optional<QRectF> LeftBy(const ClipArea* clip, QRectF rect)
{
    for (; clip; clip = clip->outer.get()) {
        if (!IsUprightRect(clip->area))
            return {};
        rect = rect.intersected(clip->area.boundingRect());
    }
    return rect;
}

bool AreClose(const QPointF& a, const QPointF& b)
{
    return std::abs(a.x() - b.x()) <= 2 * kGrid && std::abs(a.y() - b.y()) <= 2 * kGrid;
}

/// Cairo leaves out a clip that hides nothing of a fill, and cuts one to what is painted; a wide stroke needs more.
bool ClipAlike(const ClipArea* a, const ClipArea* b, const QPainterPath& path)
{
    if (a == b)
        return true;
    const QRectF rect = path.boundingRect();
    const std::optional<QRectF> left = LeftBy(a, rect), other = LeftBy(b, rect);
    return left && other && AreClose(left->topLeft(), other->topLeft()) &&
           AreClose(left->bottomRight(), other->bottomRight());
}

Qt::FillRule RuleOf(QStringView name)
{
    return name == u"evenodd" ? Qt::OddEvenFill : Qt::WindingFill;
}

struct Embedded
{
    QByteArray file;
    QSize size;
};

/// What a filter puts over each other, the topmost first. From 1.18 on cairo paints pictures whose edge is repeated, as
/// librsvg's are, anew and over the whole page, together with all that lies over them: the page below has the rest.
using Composed = std::vector<QString>;
/// In the place of such a picture's file: none that can be read, so that the picture is told to be left out.
constexpr char kPaintedAnew[] = "painted anew";

} // namespace

class PageReader::Content
{
public:
    Content(const QTransform& toMillimetres, bool solid, const std::vector<HeldPicture>& held, const ItemVisit& visit)
        : m_solid(solid), m_held(held), m_visit(visit)
    {
        m_levels.push_back({toMillimetres, nullptr, &m_items});
        m_in.setNamespaceProcessing(false);
    }

    void Feed(QByteArrayView bytes)
    {
        constexpr qsizetype kPiece = 65536; // limits memory: the reader keeps a piece as UTF-16
        for (; !bytes.empty(); bytes = bytes.sliced(std::min(kPiece, bytes.size()))) {
            m_in.addData(bytes.first(std::min(kPiece, bytes.size())).toByteArray());
            ReadOn();
        }
    }

    QString Finish()
    {
        ShowAllBut(0);
        const bool whole = m_in.error() == QXmlStreamReader::PrematureEndOfDocumentError && m_levels.size() == 1;
        return whole ? QString()
                     : QString("cannot be painted (line %1 of its page: %2)")
                           .arg(m_in.lineNumber())
                           .arg(m_in.errorString());
    }

private:
    /// Reads all bytes so far; the reader reports their end as an error until more are added.
    void ReadOn()
    {
        for (auto token = m_in.readNext(); token != QXmlStreamReader::Invalid; token = m_in.readNext()) {
            if (m_items.size() > 1)
                ShowAllBut(1); // the next one may merge with the last
            if (token == QXmlStreamReader::StartElement)
                Begin(m_in.name(), m_in.attributes());
            else if (token == QXmlStreamReader::EndElement)
                m_levels.pop_back();
        }
    }

    void ShowAllBut(size_t last)
    {
        const auto end = m_items.end() - static_cast<std::ptrdiff_t>(last);
        for (auto item = m_items.begin(); item != end; ++item)
            if (std::exchange(m_hasGround, true)) // the first is the ground
                m_visit(*item);
        m_items.erase(m_items.begin(), end);
    }

    /// The state for the content of an open element.
    struct Level
    {
        QTransform toItems;
        std::shared_ptr<const ClipArea> clip;
        std::vector<PaintedItem>* items = nullptr; ///< receives its content; null: ignored
        QPainterPath* clipPath = nullptr;          ///< receives its content's outlines, if it is a clip
        Gradient* gradient = nullptr;
        Recorded* pattern = nullptr; ///< set for the direct children of a pattern
        Composed* filter = nullptr;
        bool masked = false;
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
            level.gradient = &m_servers.NewGradient(attributes.value("id").toString());
        else if (name == u"pattern")
            BeginPattern(level, attributes);
        else if (name == u"feImage" && level.filter)
            level.filter->push_back(IdIn(attributes.value("xlink:href")).toString());
        else if (name == u"mask" || name == u"filter" || name == u"defs")
            level.items = nullptr;
        if (name == u"filter")
            level.filter = &m_composed[attributes.value("id").toString()];
        m_levels.push_back(level);
    }

    std::string_view Text(const QXmlStreamAttributes& attributes, const char* name)
    {
        m_text = attributes.value(QLatin1String(name)).toLatin1();
        return {m_text.constData(), static_cast<size_t>(m_text.size())};
    }

    /// Groups among the definitions are recorded, and placed where they are used.
    void BeginGroup(Level& level, const QXmlStreamAttributes& attributes)
    {
        const QStringView clip = IdIn(attributes.value("clip-path"));
        if (!level.items) {
            BeginRecorded(level, attributes, {});
            return; // its clip is only the surface's own size
        }
        if (!clip.isEmpty()) {
            QPainterPath area = m_clips[clip.toString()];
            if (attributes.hasAttribute("clip-rule")) // cairo from 1.18 on has it at the clip's path
                area.setFillRule(RuleOf(attributes.value("clip-rule")));
            level.clip =
                std::make_shared<ClipArea>(ClipArea{WithoutSeams(OnGrid(level.toItems.map(area))), level.clip});
        }
        level.toItems = PlaceOf(Text(attributes, "transform")) * level.toItems;
        level.masked |= attributes.hasAttribute("mask");
        AddComposed(level, IdIn(attributes.value("filter")).toString());
    }

    void AddComposed(Level& level, const QString& filter)
    {
        const auto composed = m_composed.find(filter);
        if (composed == m_composed.end() || composed->second.empty())
            return;
        AddRecorded(level, composed->second.back(), level.toItems); // the page below
        const size_t drawn = level.items->size();
        for (size_t i = 0; i + 1 < composed->second.size(); ++i)
            AddRecorded(level, composed->second[i], level.toItems);
        for (size_t i = drawn; i < level.items->size(); ++i)
            if (!(*level.items)[i].picture.isEmpty())
                (*level.items)[i].picture = kPaintedAnew;
        level.items = nullptr; // of the group itself, its size alone
    }

    void AddRecorded(const Level& level, const QString& id, const QTransform& place)
    {
        const Recorded* recorded = m_servers.FindRecorded(id);
        if (!recorded || level.items == &recorded->items)
            return;
        for (const PaintedItem& item : recorded->items) {
            level.items->push_back(Placed(item, place, level.clip));
            level.items->back().opaque = item.opaque && !level.masked;
        }
    }

    Recorded& BeginRecorded(Level& level, const QXmlStreamAttributes& attributes, const QTransform& matrix)
    {
        Recorded& recorded = m_servers.NewRecorded(attributes.value("id").toString(), matrix);
        level = {{}, nullptr, &recorded.items};
        return recorded;
    }

    void BeginPattern(Level& level, const QXmlStreamAttributes& attributes)
    {
        Recorded& recorded = BeginRecorded(level, attributes, PlaceOf(Text(attributes, "patternTransform")));
        level.pattern = &recorded;
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
        if (Gradient* gradient = m_levels.back().gradient)
            gradient->AddStop({ColorOf(style["stop-color"]), style.Number("stop-opacity", 1)});
    }

    void AddPath(QPainterPath path, const QXmlStreamAttributes& attributes)
    {
        const Level& level = m_levels.back();
        if (level.clipPath) {
            level.clipPath->addPath(MachineOutline(path, Ink::Area, 0)); // closed, as all its edge cuts
            level.clipPath->setFillRule(RuleOf(attributes.value("clip-rule")));
        }
        if (!level.items || path.elementCount() < 2)
            return;
        const Style style(attributes);
        const Recorded* pattern = m_servers.PatternOf(style["fill"]);
        if (pattern && pattern->isPicture && !pattern->items.empty())
            return AddPicture(*pattern, path);
        const Paint fill = m_servers.PaintOf(style["fill"], style.Number("fill-opacity", 1));
        const QTransform toItems = PlaceOf(Text(attributes, "transform")) * level.toItems;
        if (const HeldPicture* held = FindHeld(m_held, fill, path))
            return AddHeld(*held, OnGrid(toItems.map(path)));
        const Paint stroke = m_servers.PaintOf(style["stroke"], style.Number("stroke-opacity", 1));
        if (!(fill.alpha > 0 || stroke.alpha > 0))
            return;
        PaintedItem item;
        item.filled = fill.alpha > 0;
        item.stroked = stroke.alpha > 0;
        item.opaque = fill.alpha >= 1 && !level.masked;
        item.whiteFill = item.filled && (fill.color & 0xFFFFFFU) == 0xFFFFFFU;
        item.color = item.stroked ? stroke.color : fill.color;
        item.clip = level.clip;
        for (const Recorded* tiled : {pattern, m_servers.PatternOf(style["stroke"])})
            item.tiledPictures += tiled ? tiled->TiledPictures() : 0;
        path.setFillRule(style["fill-rule"] == "evenodd" ? Qt::OddEvenFill : Qt::WindingFill);
        const QPainterPath whole = path;
        if (!item.filled && !m_solid)
            Dash(path, style, item);
        const QPainterPath drawn = OnGrid(toItems.map(whole));
        const Ink ink = !item.filled ? Ink::Line : item.stroked ? Ink::LineAndArea : Ink::Area;
        item.path = MachineOutline(item.dashed ? toItems.map(path) : drawn, ink, kGrid);
        if ((item.dashed || item.path.elementCount() > 1) && !MergesWithLast(item, drawn, *level.items))
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

    /// Merges the fill and the stroke of a path, which are painted one after the other.
    bool MergesWithLast(const PaintedItem& item, const QPainterPath& drawn, std::vector<PaintedItem>& items) const
    {
        if (items.empty())
            return false;
        PaintedItem& last = items.back();
        if (last.filled == item.filled || last.stroked == item.stroked || !IsSame(m_lastDrawn, drawn) ||
            !ClipAlike(last.clip.get(), item.clip.get(), drawn))
            return false;
        if (!item.clip || (last.clip && item.stroked))
            last.clip = item.clip; // the wider one
        if (item.stroked)
            last.color = item.color;
        else
            last.path = item.path; // closed, and without dashes
        last.dashed = last.dashesKept = false;
        last.opaque = last.opaque || item.opaque;
        last.whiteFill = last.whiteFill || item.whiteFill;
        last.filled = last.stroked = true;
        last.tiledPictures += item.tiledPictures;
        return true;
    }

    static bool IsSame(const QPainterPath& a, const QPainterPath& b)
    {
        if (a.elementCount() != b.elementCount())
            return false;
        for (int i = 0; i < a.elementCount(); ++i)
            if (!AreClose(a.elementAt(i), b.elementAt(i)))
                return false;
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

    /// corners: where HoldPictures puts them.
    void AddHeld(const HeldPicture& held, const QPainterPath& corners)
    {
        const Level& level = m_levels.back();
        const QPointF corner = corners.elementAt(0);
        const QPointF right = (QPointF(corners.elementAt(1)) - corner) / held.pixels.width();
        const QPointF down = (QPointF(corners.elementAt(2)) - corner) / held.pixels.height();
        PaintedItem item;
        item.picture = held.file;
        item.pixels = held.pixels;
        item.onPage = QTransform(right.x(), right.y(), down.x(), down.y(), corner.x(), corner.y());
        QPainterPath area;
        area.addRect(QRectF(QPointF(), QSizeF(held.pixels)));
        item.clip = std::make_shared<ClipArea>(ClipArea{item.onPage.map(area), level.clip});
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
        Level level = m_levels.back();
        if (!level.items)
            return;
        level.masked |= attributes.hasAttribute("mask");
        const QString id = IdIn(attributes.value("xlink:href")).toString();
        const QTransform place =
            QTransform::fromTranslate(attributes.value("x").toDouble(), attributes.value("y").toDouble()) *
            PlaceOf(Text(attributes, "transform")) * level.toItems;
        if (const auto image = m_images.find(id); image != m_images.end()) {
            PaintedItem item;
            item.picture = image->second.file;
            item.pixels = image->second.size;
            item.onPage = place;
            item.clip = level.clip;
            level.items->push_back(std::move(item));
            if (level.pattern)
                level.pattern->isPicture = true;
        } else {
            AddRecorded(level, id, place);
        }
    }

    QXmlStreamReader m_in;
    bool m_solid;
    const std::vector<HeldPicture>& m_held;
    const ItemVisit& m_visit;
    std::vector<PaintedItem> m_items; ///< of the page, not visited yet
    bool m_hasGround = false;
    std::vector<Level> m_levels;
    QByteArray m_text;
    QPainterPath m_lastDrawn; ///< of the last path, neither closed nor dashed
    std::unordered_map<QString, QPainterPath> m_clips;
    PaintServers m_servers;
    std::unordered_map<QString, Embedded> m_images;
    std::unordered_map<QString, Composed> m_composed; ///< by the filter's id
};

PageReader::PageReader(const QTransform& toMillimetres, bool solid, const std::vector<HeldPicture>& held,
                       const ItemVisit& visit)
    : m_content(std::make_unique<Content>(toMillimetres, solid, held, visit))
{}

PageReader::~PageReader() = default;

void PageReader::Feed(QByteArrayView bytes)
{
    m_content->Feed(bytes);
}

QString PageReader::Finish()
{
    return m_content->Finish();
}

} // namespace shapedocument::drawing
