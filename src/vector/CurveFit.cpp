#include "vector/CurveFit.h"

#include "geometry/PointRuns.h"
#include "host/ICurveSimulate.h"
#include "host/ILog.h"
#include "shape/ShapeTypes.h"
#include "vector/OutlinePath.h"
#include "vector/PluginLibrary.h"

#include <algorithm>
#include <mutex>

namespace shapes {

namespace {

constexpr QLatin1StringView kPluginName("CurveSimulate");

struct Outline
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;

    OutlineView View() const { return {points, types}; }

    /// Cuts both lists to the length of the shorter one: a plug-in may return different lengths.
    void Pair()
    {
        const size_t count = std::min(points.size(), types.size());
        points.resize(count);
        types.resize(count);
    }

    void Append(const Outline& run)
    {
        points.insert(points.end(), run.points.begin(), run.points.end());
        types.insert(types.end(), run.types.begin(), run.types.end());
    }
};

struct Fit
{
    Outline outline;
    size_t runs = 0, refused = 0; ///< refused: runs that draw something and whose result could not be used
};

/// The plug-in's interface, looked for once per process; null when there is none. The call that looked shows the
/// message box about a failure, after the static object is complete: the box's event loop may call this function again.
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

/// Whether a run can be replaced by this: a plug-in may return anything.
bool IsUsable(const Outline& fitted)
{
    return AreFinite(fitted.points) && !HoldsStrayCurves(fitted.View()) && DrawsAnything(fitted.View());
}

/// Replaces a run by the plug-in's result if that is usable. False when it is not although the run itself was.
bool FitRun(ICurveSimulate& simulate, Outline& run)
{
    Outline fitted = run;
    simulate.Prepare(fitted.points);
    simulate.Optimize(fitted.points, fitted.types);
    fitted.Pair();
    if (!IsUsable(fitted))
        return !IsUsable(run);
    run = std::move(fitted);
    return true;
}

Fit FitRuns(ICurveSimulate& simulate, const OutlineView& outline)
{
    Fit fit;
    for (const PointRun range : PointRuns(outline.types, outline.points.size())) {
        const auto points = outline.points.subspan(range.begin, range.end - range.begin);
        const auto types = outline.types.subspan(range.begin, range.end - range.begin);
        Outline run{{points.begin(), points.end()}, {types.begin(), types.end()}};
        ++fit.runs;
        fit.refused += FitRun(simulate, run) ? 0U : 1U;
        fit.outline.Append(run);
        if (range.end < outline.points.size())
            fit.outline.Append({{QPointF(0, 0)}, {ELINE_SEGMENT_SEPARATOR}});
    }
    return fit;
}

} // namespace

bool IsCurveFitAvailable()
{
    return !ArePluginsReleased() && CurveInterface();
}

bool FitOutline(const std::vector<QPointF>& points, const std::vector<unsigned char>& types,
                std::vector<QPointF>& outPoints, std::vector<unsigned char>& outTypes, bool logFaults)
{
    if (ArePluginsReleased())
        return true;
    ICurveSimulate* simulate = CurveInterface();
    if (!simulate || points.size() != types.size())
        return true;
    // A plug-in keeps state from Prepare to Optimize, so one thread at a time may use it. The mutex is recursive
    // because a message box of the plug-in may run host code that comes back here.
    static std::recursive_mutex calls;
    const std::lock_guard lock(calls);
    try {
        const Fit fit = FitRuns(*simulate, {points, types});
        outPoints.insert(outPoints.end(), fit.outline.points.begin(), fit.outline.points.end());
        outTypes.insert(outTypes.end(), fit.outline.types.begin(), fit.outline.types.end());
        if (fit.refused > 0 && logFaults)
            ILog_WriteLogF(ELOG_NOTE, "%s: %zu of %zu runs came back unusable and keep their points",
                           kPluginName.latin1(), fit.refused, fit.runs);
        return fit.refused == 0;
    } catch (...) {
        if (logFaults)
            LogPluginException(kPluginName);
        return false;
    }
}

} // namespace shapes
