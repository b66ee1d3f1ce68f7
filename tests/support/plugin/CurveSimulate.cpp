/// A plug-in that does what a test tells it. Built with WITHOUT_NEW or WITHOUT_RELEASE it lacks that entry, with
/// NULL_INTERFACE it calls itself unavailable.
#include "ScriptedPlugin.h"

#include "host/ICurveSimulate.h"

#include <cstdio>

namespace {

class ScriptedPlugin final : public ICurveSimulate
{
public:
    void Reserved() override { script.calls += "reserved; "; }
    void Prepare(std::vector<QPointF>& points) override
    {
        script.calls += "prepare " + std::to_string(points.size()) + "; ";
    }
    void Optimize(std::vector<QPointF>& points, std::vector<unsigned char>& types) override
    {
        script.calls += "optimize " + std::to_string(points.size()) + "/" + std::to_string(types.size()) + "; ";
        if (script.optimize)
            script.optimize(points, types);
    }

    test::PluginScript script;
};

/// Shows whether the interface is released before the plug-in's own statics go.
struct Statics
{
    ~Statics() { std::puts("statics gone"); }
};
Statics s_statics;
ScriptedPlugin s_plugin;

} // namespace

extern "C" CURVE_SIMULATE_ENTRY test::PluginScript* Script()
{
    return &s_plugin.script;
}

#ifndef WITHOUT_NEW
ICurveSimulate* NewInterface()
{
#ifdef NULL_INTERFACE
    return nullptr;
#else
    return &s_plugin;
#endif
}
#endif

#ifndef WITHOUT_RELEASE
void ReleaseInterface(ICurveSimulate* simulate)
{
    std::puts(simulate == &s_plugin ? "interface released" : "foreign interface released");
}
#endif
