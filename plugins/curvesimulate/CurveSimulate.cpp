/// The two entries of the curve-fitting plug-in, and the interface that it provides.
#include "RunFitter.h"

#include "host/ICurveSimulate.h"

#include <algorithm>

namespace {

class CurveSimulate final : public ICurveSimulate
{
public:
    void Reserved() override {}

    /// Optimize gets the same points again and keeps nothing between calls.
    void Prepare(std::vector<QPointF>&) override {}

    /// A run that holds anything but straight points is left as it is.
    void Optimize(std::vector<QPointF>& points, std::vector<unsigned char>& types) override
    {
        if (points.size() != types.size() ||
            std::any_of(types.begin(), types.end(), [](auto type) { return type != 0; }))
            return;
        curvesimulate::Outline outline = curvesimulate::FitRun(points);
        points = std::move(outline.points);
        types = std::move(outline.types);
    }
};

} // namespace

ICurveSimulate* NewInterface()
{
    return new CurveSimulate;
}

void ReleaseInterface(ICurveSimulate* simulate)
{
    delete static_cast<CurveSimulate*>(simulate);
}
