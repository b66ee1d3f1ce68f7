#include "vector/CurveFit.h"

#include "host/ICurveSimulate.h"
#include "shape/PointRuns.h"
#include "shape/ShapeTypes.h"
#include "vector/PluginLibrary.h"

#include <algorithm>
#include <mutex>
#include <stdexcept>

namespace shapes {

namespace {

constexpr QLatin1StringView kPluginName("CurveSimulate");

struct Outline
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;

    void Append(const Outline& run)
    {
        const auto count = static_cast<std::ptrdiff_t>(std::min(run.points.size(), run.types.size()));
        points.insert(points.end(), run.points.begin(), run.points.begin() + count);
        types.insert(types.end(), run.types.begin(), run.types.begin() + count);
    }
};

/// The plug-in's interface, sought once per process; null when there is none. The box about a failure is shown after
/// the search is over, by the call that made it: the box's event loop may come back here.
ICurveSimulate* CurveInterface()
{
    QString message;
    static ICurveSimulate* const simulate = [&message] {
        PluginLoad load = LoadPluginInterface(kPluginName, true);
        message = std::move(load.message);
        return load.pluginInterface;
    }();
    ShowPluginMessage(message);
    return simulate;
}

Outline FittedRuns(ICurveSimulate& simulate, const std::vector<QPointF>& points,
                   const std::vector<unsigned char>& types)
{
    Outline fitted, run;
    for (const PointRun range : PointRuns(types, points.size())) {
        const auto begin = static_cast<std::ptrdiff_t>(range.begin), end = static_cast<std::ptrdiff_t>(range.end);
        run.points.assign(points.begin() + begin, points.begin() + end);
        run.types.assign(types.begin() + begin, types.begin() + end);
        simulate.Prepare(run.points);
        simulate.Optimize(run.points, run.types);
        if (!range.IsEmpty() && (run.points.empty() || run.types.empty()))
            throw std::runtime_error("a run came back empty");
        fitted.Append(run);
        if (range.end < points.size()) {
            fitted.points.emplace_back(0, 0);
            fitted.types.push_back(ELINE_SEGMENT_SEPARATOR);
        }
    }
    return fitted;
}

} // namespace

void FitOutline(const std::vector<QPointF>& points, const std::vector<unsigned char>& types,
                std::vector<QPointF>& outPoints, std::vector<unsigned char>& outTypes)
{
    if (ArePluginsReleased())
        return;
    ICurveSimulate* simulate = CurveInterface();
    if (!simulate || points.size() != types.size())
        return;
    // A plug-in keeps between two calls what the first has prepared: one thread at a time. A thread may come back to it
    // from within, through a box of the plug-in's own.
    static std::recursive_mutex calls;
    const std::lock_guard lock(calls);
    try {
        const Outline fitted = FittedRuns(*simulate, points, types);
        outPoints.insert(outPoints.end(), fitted.points.begin(), fitted.points.end());
        outTypes.insert(outTypes.end(), fitted.types.begin(), fitted.types.end());
    } catch (...) {
        LogPluginException(kPluginName);
    }
}

} // namespace shapes
