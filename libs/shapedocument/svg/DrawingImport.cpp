#include "svg/DrawingImport.h"

#include "svg/ClipCut.h"
#include "svg/CoveredParts.h"
#include "svg/DrawingSource.h"
#include "svg/FontCheck.h"
#include "svg/HeldPictures.h"
#include "svg/PagePainter.h"
#include "svg/PaintedItems.h"
#include "svg/PictureCut.h"
#include "svg/PictureShape.h"
#include "svg/TextFit.h"
#include "svg/WholePage.h"

#include "document/FillMarker.h"
#include "image/ShapeImage.h"
#include "text/ShapeText.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>

namespace shapedocument {

using namespace drawing;

namespace {

constexpr double kBesidePage = 0.01; // mm by which rounding may move points beyond the page or a clip

bool IsInReach(const QRectF& rect)
{
    return std::abs(rect.left()) < kPageReach && std::abs(rect.right()) < kPageReach &&
           std::abs(rect.top()) < kPageReach && std::abs(rect.bottom()) < kPageReach;
}

/// The picture's edge on the page (mm), moved inwards by the distance that rounding may move a clip.
QPainterPath PictureEdge(const PaintedItem& item)
{
    const QTransform& place = item.onPage;
    const double x = std::min(kBesidePage / std::hypot(place.m11(), place.m12()), item.pixels.width() / 4.0);
    const double y = std::min(kBesidePage / std::hypot(place.m21(), place.m22()), item.pixels.height() / 4.0);
    QPainterPath edge;
    edge.addRect(QRectF(QPointF(), QSizeF(item.pixels)).adjusted(x, y, -x, -y));
    return place.map(edge);
}

/// Number of paths that show beyond the page, farther than by the rounding of the renderer's surfaces.
int CountBeyond(const std::vector<PaintedItem>& items, QSizeF page)
{
    constexpr double kRounding = 2 * kMmPerUnit;
    const QRectF around = QRectF(QPointF(), page).adjusted(-kRounding, -kRounding, kRounding, kRounding);
    return static_cast<int>(std::ranges::count_if(items, [&](const PaintedItem& item) {
        QRectF shown = item.path.boundingRect();
        for (const ClipArea* clip = item.clip.get(); clip; clip = clip->outer.get()) {
            const QRectF area = clip->area.boundingRect();
            if (AreApart(shown, area))
                return false;
            shown = QRectF(QPointF(std::max(shown.left(), area.left()), std::max(shown.top(), area.top())),
                           QPointF(std::min(shown.right(), area.right()), std::min(shown.bottom(), area.bottom())));
        }
        return !item.path.isEmpty() && !around.contains(shown);
    }));
}

/// Groups with an opacity have surfaces of the page's size, which lose what lies beyond it: counts that by a painting
/// without opacities.
void CountLost(const std::vector<PaintedItem>& items, DrawingSource& opaque, bool solid, const WorkProgress& progress,
               DrawingImport& result)
{
    DrawingImport whole;
    if (!PagesKeepPictures())
        HoldPictures(opaque);
    const int beyond = CountBeyond(PaintWhole(opaque, solid, whole, progress), whole.page);
    const int lost = whole.error.isEmpty() ? beyond - CountBeyond(items, result.page) : 1;
    result.report.Add(Departure::Missing, std::max(0, lost));
}

std::unique_ptr<CShape> NewOutline(PaintedItem& item, const DrawingOptions& options)
{
    auto shape = std::make_unique<CShapeVector>();
    if (options.flatten)
        shape->SetPath(&item.path);
    else
        shape->ConvertPainterPathToLocalShapePoints(item.path);
    shape->SetColor(item.color);
    if (options.fills && item.filled && !item.whiteFill)
        MarkAsFilled(*shape);
    return shape;
}

class Importer
{
public:
    Importer(DrawingImport& result, const DrawingOptions& options, const std::vector<SourceText>& texts)
        : m_result(result), m_options(options), m_texts(texts)
    {}

    /// Cuts the item at its clips, and at the page if requested.
    void Cut(PaintedItem& item)
    {
        if (!item.picture.isEmpty())
            return CutPicture(item);
        if (!IsInReach(item.path.controlPointRect()))
            return;
        bool cut = true;
        for (const ClipArea* clip = item.clip.get(); clip && !item.path.isEmpty(); clip = clip->outer.get())
            cut = CutAtClip(item.path, item.filled, EdgeOf(*clip)) && cut;
        if (m_options.crop && !item.path.isEmpty())
            cut = CutAtClip(item.path, item.filled, PageEdge()) && cut;
        m_result.report.Add(Departure::ClipKept, !cut);
    }

    void Add(PaintedItem& item)
    {
        if (!item.picture.isEmpty())
            return AddPicture(item);
        if (item.path.isEmpty())
            return;
        if (!IsInReach(item.path.controlPointRect()))
            return m_result.report.Add(Departure::OutOfReach);
        if (!IsOnPage(item.path.boundingRect()))
            m_result.report.Add(Departure::BeyondPage);
        m_result.report.Add(Departure::Dashes, item.dashesKept);
        m_result.report.Add(Departure::Picture, item.tiledPictures);
        if (item.text < 0 || !AddText(item))
            m_result.shapes.push_back(NewOutline(item, m_options));
    }

private:
    bool AddText(const PaintedItem& item)
    {
        const SourceText& text = m_texts[static_cast<size_t>(item.text)];
        FittedTexts shapes = FitTexts(text.words, FamiliesInUse(text.familyLists), item.path, item.color);
        m_result.report.Add(Departure::TextOutlined, shapes.empty());
        m_result.report.Add(Departure::TextByWord, shapes.size() > 1);
        std::ranges::move(shapes, std::back_inserter(m_result.shapes));
        return !shapes.empty();
    }

    ClipEdge PageEdge() const
    {
        QPainterPath page;
        page.addRect(QRectF(QPointF(), m_result.page));
        return ClipEdge(page);
    }

    /// Cached, because neighbouring items share their clips.
    const ClipEdge& EdgeOf(const ClipArea& clip)
    {
        constexpr size_t kMostEdges = 16; // enough for the nested clips of a few neighbours
        if (const auto known = m_edges.find(&clip); known != m_edges.end())
            return known->second;
        if (m_edges.size() >= kMostEdges)
            m_edges.clear();
        return m_edges.emplace(&clip, ClipEdge(clip.area)).first->second;
    }

    /// Cuts a picture at its clips; removes one that they hide.
    void CutPicture(PaintedItem& item)
    {
        const QPainterPath whole = PictureEdge(item);
        QPainterPath shown = whole;
        bool cut = true;
        for (const ClipArea* clip = item.clip.get(); clip; clip = clip->outer.get())
            cut = CutAtClip(shown, true, EdgeOf(*clip)) && cut;
        if (m_options.crop)
            cut = CutAtClip(shown, true, PageEdge()) && cut;
        if (shown.isEmpty())
            return item.picture.clear();
        if (shown != whole)
            cut = KeepShown(item, shown, kBesidePage) && cut;
        m_result.report.Add(Departure::PictureCut, !cut);
    }

    bool IsOnPage(const QRectF& rect) const
    {
        return rect.left() >= -kBesidePage && rect.top() >= -kBesidePage &&
               rect.right() <= m_result.page.width() + kBesidePage &&
               rect.bottom() <= m_result.page.height() + kBesidePage;
    }

    void AddPicture(const PaintedItem& item)
    {
        if (auto picture = NewPicture(item))
            m_result.shapes.push_back(std::move(picture));
        else
            m_result.report.Add(Departure::Picture);
    }

    DrawingImport& m_result;
    const DrawingOptions& m_options;
    const std::vector<SourceText>& m_texts;
    std::map<const ClipArea*, ClipEdge> m_edges; ///< the items keep the clips alive
};

} // namespace

DrawingImport ImportDrawing(QByteArray bytes, const QString& baseFile, const DrawingOptions& options,
                            const WorkProgress& progress)
{
    DrawingImport result;
    DrawingSource source = CleanDrawing(bytes, baseFile, {options.visible, options.textAsText}, progress);
    DrawingSource opaque;
    if (source.hasOpacity)
        opaque = CleanDrawing(bytes, baseFile, {false, options.textAsText}, progress);
    bytes = {}; // no longer needed, and large
    result.report = source.report;
    result.error = source.error;
    if (!result.error.isEmpty())
        return result;
    if (!PagesKeepPictures())
        HoldPictures(source);
    AddReplacedFonts(source.families, result.report);
    if (source.farElements > 0 && !PagesKeepFarPaths())
        result.report.Add(Departure::OutOfReach, source.farElements);
    std::vector<PaintedItem> items = PaintWhole(source, options.solid, result, progress);
    if (source.hasOpacity && result.error.isEmpty())
        CountLost(items, opaque, options.solid, progress, result);
    Importer importer(result, options, source.texts);
    WorkWatch cutting(progress, WorkStep::Cutting, items.size());
    for (PaintedItem& item : items) {
        importer.Cut(item);
        cutting.Next();
    }
    if (options.visible)
        result.report.Add(Departure::CoverKept, static_cast<int>(CutAwayCovered(items, progress)));
    WorkWatch shaping(progress, WorkStep::Shaping, items.size());
    for (PaintedItem& item : items) {
        importer.Add(item);
        item = {};
        shaping.Next();
    }
    return result;
}

} // namespace shapedocument
