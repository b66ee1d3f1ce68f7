/// A paint device that keeps every path painted on it, with its exact curves, instead of pixels.
#pragma once

#include <QColor>
#include <QPaintDevice>
#include <QPainterPath>
#include <QSize>

#include <functional>
#include <memory>
#include <vector>

/// One painted path in device coordinates. What was filled and then stroked is one path.
struct PaintedPath
{
    QPainterPath path;
    QRgb color = 0; ///< of the stroke when there is one, else of the fill; opaque
    bool filled = false;
    bool stroked = false;
    bool polygon = false; ///< painted as a closed polygon
};

/// Device coordinates are whatever the painter's transform yields; the size only answers those who ask for it.
class PathRecorder : public QPaintDevice
{
public:
    /// painted is called with the number of paths so far.
    PathRecorder(QSize size, std::function<void(size_t)> painted);
    ~PathRecorder() override;

    /// Everything with visible ink, in painting order.
    const std::vector<PaintedPath>& Paths() const;
    /// Number of pixel pictures painted, which are not kept.
    int PictureCount() const;

    QPaintEngine* paintEngine() const override;

protected:
    int metric(PaintDeviceMetric metric) const override;

private:
    class Engine;
    std::unique_ptr<Engine> m_engine;
    QSize m_size;
};

/// The path with every sub-path that encloses an area led back to its start when closed asks for it, and without
/// positions that nothing is drawn from.
QPainterPath MachineOutline(const QPainterPath& path, bool closed);
