/// Looking up the one value of the configuration file that every rebuilt polyline asks for.
#include "Drawings.h"
#include "Goals.h"

#include "host/UiPermissionsManager.h"
#include "vector/ShapeVector.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using namespace bench;

QString ResourcesDir()
{
    const bool etchwright = CUiPermissionsManager::GetInstance()->GetThemeName() == QLatin1String("Etchwright");
    const QString dir = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                        (etchwright ? "/../Etchwright/Resources" : "/../Cutterwise/Resources");
    if (!QDir(dir).exists())
        QDir(dir).mkpath(".");
    return QDir::cleanPath(dir);
}

bool SettingsEachTime()
{
    const QSettings settings(ResourcesDir() + "/Data/cfg.ini", QSettings::IniFormat);
    return settings.value(QString("%1%2%3").arg("APP_CFG", "/", "KEY_OPTIMIZATION"), 1).toInt() != 0;
}

/// While it lives, a configuration folder of its own, optionally with a file that turns fitting off.
class Configuration
{
public:
    explicit Configuration(bool file) : m_before(qgetenv("XDG_CONFIG_HOME"))
    {
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
        const QString data = ResourcesDir() + "/Data";
        if (!file)
            return;
        QDir().mkpath(data);
        QFile ini(data + "/cfg.ini");
        (void)ini.open(QIODevice::WriteOnly);
        ini.write("[APP_CFG]\nKEY_OPTIMIZATION=0\n");
    }
    Configuration(const Configuration&) = delete;
    Configuration& operator=(const Configuration&) = delete;
    ~Configuration()
    {
        if (m_before.isNull())
            qunsetenv("XDG_CONFIG_HOME");
        else
            qputenv("XDG_CONFIG_HOME", m_before);
    }

private:
    QByteArray m_before;
    QTemporaryDir m_folder;
};

Sides LookUps(bool file)
{
    const auto configuration = std::make_shared<Configuration>(file);
    const SharedList empty = Drawing(0, 0); // Optimising an empty list does nothing but the look-up.
    return {{[configuration, empty] { empty->OptimizeShapeList(true); }},
            {[configuration] { benchmark::DoNotOptimize(SettingsEachTime()); }}};
}

void AddPointByPoint(QPainterPath& path, const std::vector<QPointF>& points)
{
    path.moveTo(points[0]);
    for (size_t i = 1; i < points.size(); ++i)
        path.lineTo(points[i]);
}

/// Polylines look the value up at every rebuild.
Sides RebuiltPolylines()
{
    const auto configuration = std::make_shared<Configuration>(true);
    const SharedList list = Drawing(10'000, 100);
    std::vector<std::vector<QPointF>> outlines;
    std::vector<unsigned char> types;
    VisitShapes(*list, [&](CShape& shape) {
        dynamic_cast<CShapeVector&>(shape).SetVectorType(EVECTOR_POLYLINE);
        shape.GetShapePathData(outlines.emplace_back(), types);
    });
    const auto rebuild = [configuration, list] { VisitShapes(*list, [](CShape& shape) { shape.GetPath(true); }); };
    const auto plain = [outlines, paths = std::vector<QPainterPath>(outlines.size())]() mutable {
        for (size_t i = 0; i < outlines.size(); ++i) {
            benchmark::DoNotOptimize(SettingsEachTime());
            paths[i] = QPainterPath();
            AddPointByPoint(paths[i], outlines[i]);
        }
    };
    return {{rebuild}, {plain}};
}

const bool kRegistered = Register({
    {.name = "C1 configuration look-up, the file is there",
     .against = "QSettings each time",
     .goal = AtMost(0.28),
     .sides = [] { return LookUps(true); }},
    {.name = "C1 configuration look-up, no file",
     .against = "QSettings each time",
     .goal = AtMost(0.4),
     .sides = [] { return LookUps(false); }},
    {.name = "C2 rebuilding 10,000 polylines with the look-up",
     .against = "QSettings each time, moveTo and lineTo per point",
     .goal = AtMost(0.4),
     .sides = RebuiltPolylines},
});

} // namespace
