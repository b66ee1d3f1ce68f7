/// The interface that a curve-fitting plug-in library offers.
#pragma once

#include <QPointF>

#include <vector>

/// Refits runs of an outline. Created by the plug-in's NewInterface, destroyed by its ReleaseInterface, never deleted.
/// Calls come from one thread at a time, not always the same one, and must not throw. The lists stay the caller's: keep
/// no pointer to them. See docs/plug-ins.md.
class ICurveSimulate
{
public:
    /// Not called by the library.
    virtual void Reserved() = 0;

    /// Announces the run that the next call of Optimize passes (model units).
    virtual void Prepare(std::vector<QPointF>& points) = 0;

    /// Replaces both lists in place by the fitted run: points (model units) and, per point, 0 straight, 1 member of a
    /// cubic triple (control, control, end) or 2 separator. The runs of an outline are taken if together they have
    /// fewer points.
    virtual void Optimize(std::vector<QPointF>& points, std::vector<unsigned char>& types) = 0;

protected:
    ~ICurveSimulate() = default;
};

#if defined(__GNUC__)
#define CURVE_SIMULATE_ENTRY __attribute__((visibility("default")))
#else
#define CURVE_SIMULATE_ENTRY
#endif

/// The first of the two functions that the plug-in library defines and exports: an interface, or null for
/// "unavailable". Called once in a process, when it is first needed.
extern "C" CURVE_SIMULATE_ENTRY ICurveSimulate* NewInterface();
/// The second one: frees what NewInterface returned, if that is not null.
extern "C" CURVE_SIMULATE_ENTRY void ReleaseInterface(ICurveSimulate* simulate);
