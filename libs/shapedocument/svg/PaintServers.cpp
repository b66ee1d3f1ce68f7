#include "svg/PaintServers.h"

#include "svg/PageStyle.h"

#include <numeric>

namespace shapedocument::drawing {

namespace {

QString IdOf(std::string_view paint)
{
    return IdIn(QString::fromLatin1(paint.data(), static_cast<qsizetype>(paint.size()))).toString();
}

std::shared_ptr<const ClipArea> PlacedClip(const std::shared_ptr<const ClipArea>& clip, const QTransform& place,
                                           const std::shared_ptr<const ClipArea>& around)
{
    if (!clip)
        return around;
    return std::make_shared<ClipArea>(ClipArea{place.map(clip->area), PlacedClip(clip->outer, place, around)});
}

} // namespace

void Gradient::AddStop(const Paint& stop)
{
    opaque = opaque && stop.alpha >= 1;
    if (firstVisible.alpha <= 0)
        firstVisible = stop;
}

int Recorded::TiledPictures() const
{
    if (isPicture)
        return 0;
    return std::accumulate(items.begin(), items.end(), 0, [](int sum, const PaintedItem& item) {
        return sum + item.tiledPictures + (item.picture.isEmpty() ? 0 : 1);
    });
}

const Recorded* PaintServers::FindRecorded(const QString& id) const
{
    const auto found = m_recorded.find(id);
    return found == m_recorded.end() ? nullptr : &found->second;
}

const Recorded* PaintServers::PatternOf(std::string_view paint) const
{
    return paint.starts_with("url(") ? FindRecorded(IdOf(paint)) : nullptr;
}

Paint PaintServers::PaintOf(std::string_view paint, double alpha) const
{
    if (paint.empty() || paint.starts_with("none"))
        return {};
    if (!paint.starts_with("url("))
        return {ColorOf(paint), alpha};
    const auto gradient = m_gradients.find(IdOf(paint));
    if (gradient != m_gradients.end())
        return gradient->second.Shown();
    const Recorded* pattern = PatternOf(paint);
    return pattern && !pattern->items.empty() ? Paint{pattern->items.front().color, 0.5} : Paint{};
}

PaintedItem Placed(const PaintedItem& item, const QTransform& place, const std::shared_ptr<const ClipArea>& clip)
{
    PaintedItem placed = item;
    placed.path = place.map(item.path);
    placed.onPage = item.onPage * place;
    placed.clip = PlacedClip(item.clip, place, clip);
    return placed;
}

} // namespace shapedocument::drawing
