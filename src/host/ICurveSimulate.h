/// The interface that a curve-fitting plug-in library offers.
#pragma once

#include <QPointF>

#include <vector>

/// Refits runs of an outline. Created by the plug-in's NewInterface, destroyed by its ReleaseInterface, never deleted.
class ICurveSimulate
{
public:
    /// Not called by the library.
    virtual void Reserved() = 0;

    /// Announces the run that the next call of Optimize passes (model units).
    virtual void Prepare(std::vector<QPointF>& points) = 0;

    /// Replaces both lists in place by the fitted run: points and, per point, 0 straight, 1 member of a cubic triple
    /// (control, control, end) or 2 separator.
    virtual void Optimize(std::vector<QPointF>& points, std::vector<unsigned char>& types) = 0;

protected:
    ~ICurveSimulate() = default;
};

#if defined(__GNUC__)
#define CURVE_SIMULATE_ENTRY __attribute__((visibility("default")))
#else
#define CURVE_SIMULATE_ENTRY
#endif

/// The two entries that the plug-in library defines and exports. A null interface means "unavailable" and is not
/// handed to ReleaseInterface.
extern "C" CURVE_SIMULATE_ENTRY ICurveSimulate* NewInterface();
extern "C" CURVE_SIMULATE_ENTRY void ReleaseInterface(ICurveSimulate* simulate);
