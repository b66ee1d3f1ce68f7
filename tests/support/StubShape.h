/// A shape whose results are scripted and whose calls are recorded.
#pragma once

#include "shape/Shape.h"
#include "support/Outline.h"

#include <functional>
#include <optional>
#include <utility>

namespace test {

class StubShape : public CShape
{
public:
    explicit StubShape(std::string shapeName = "stub", std::optional<QRectF> fixedRect = {},
                       ESHAPE_TYPE shapeType = ESHAPE_VECTOR)
        : name(std::move(shapeName)), rect(fixedRect), type(shapeType)
    {}
    ~StubShape() override { s_trace += (s_trace.empty() ? "~" : " ~") + name; }

    /// The traced calls and destructions since the last call, separated by blanks.
    static std::string TakeTrace() { return std::exchange(s_trace, {}); }

    std::string name;
    std::optional<QRectF> rect;   ///< answered by GetRect and carried along by Offset and Resize
    ESHAPE_TYPE type;             ///< answered by GetShapeType
    std::optional<bool> selected; ///< answered by IsSelect instead of the status bit
    std::string outlineFromBuild; ///< outline that building the painter path puts in place
    bool buildsPath = true;       ///< whether building leaves a painter path in place
    int builds = 0;               ///< calls of UpdatePainterPath
    std::function<void()> within; ///< called once, from GetRect, Clone or UpdatePainterPath, as a message box calls
    std::vector<bool> rectFlags;  ///< flags of the calls of GetRect

    using CShape::m_listPathData;
    using CShape::m_listPoints;
    using CShape::m_listTypes;
    using CShape::m_nColor;

    bool Offset(double dx, double dy) override
    {
        if (rect)
            rect->translate(dx, dy);
        return Trace("Offset", dx, dy) && CShape::Offset(dx, dy);
    }
    bool Resize(QRectF target) override { return Trace("Resize", target) && CShape::Resize(target); }
    bool RotateLeft(QPointF centre) override { return Trace("RotateLeft", centre) && CShape::RotateLeft(centre); }
    bool RotateRight(QPointF centre) override { return Trace("RotateRight", centre) && CShape::RotateRight(centre); }
    bool Rotate(double angle, QPointF centre, Qt::Axis axis) override
    {
        return Trace("Rotate", angle, centre, std::string(1, "XYZ"[axis])) && CShape::Rotate(angle, centre, axis);
    }
    bool MirrorX(double axis) override { return Trace("MirrorX", axis) && CShape::MirrorX(axis); }
    bool MirrorY(double axis) override { return Trace("MirrorY", axis) && CShape::MirrorY(axis); }
    bool MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool flag) override
    {
        return Trace("MirrorLine", p1, p2, flag) && CShape::MirrorFixedOrMovingLine(p1, p2, flag);
    }
    bool MirrorAttachLine(double value, bool vertical) override
    {
        return Trace("MirrorAttachLine", value, vertical) && CShape::MirrorAttachLine(value, vertical);
    }
    QRectF GetRect(bool flag) override
    {
        rectFlags.push_back(flag);
        CallWithin();
        return rect ? *rect : CShape::GetRect(flag);
    }
    bool IsSelect() override { return selected ? *selected : CShape::IsSelect(); }
    ESHAPE_TYPE GetShapeType() override { return type; }
    bool Hit(QPointF, int&) override { return false; }
    CShape* Clone() override
    {
        CallWithin();
        auto* clone = new StubShape(name + "'", rect, type);
        clone->Copy(this);
        return clone;
    }
    /// One polygon through all points.
    void UpdatePainterPath() override
    {
        ++builds;
        CallWithin();
        if (!buildsPath)
            return;
        if (!outlineFromBuild.empty())
            SetOutline(*this, std::exchange(outlineFromBuild, {}));
        NewPath()->addPolygon(QPolygonF(QList<QPointF>(m_listPoints.begin(), m_listPoints.end())));
    }

private:
    static std::string Text(double value) { return Number(value); }
    static std::string Text(QPointF value) { return Point(value); }
    static std::string Text(QRectF value) { return Rect(value); }
    static std::string Text(bool value) { return value ? "true" : "false"; }
    static std::string Text(const std::string& value) { return value; }

    void CallWithin()
    {
        if (const auto call = std::exchange(within, {}))
            call();
    }
    /// Notes "name.call(arguments)". Always true.
    template <class First, class... Others>
    bool Trace(const char* call, First first, Others... others)
    {
        s_trace += (s_trace.empty() ? "" : " ") + name + "." + call + "(" + Text(first);
        ((s_trace += "," + Text(others)), ...);
        s_trace += ")";
        return true;
    }

    static inline std::string s_trace;
};

template <class Stub = StubShape>
Stub Outlined(const std::string& outline)
{
    Stub shape;
    SetOutline(shape, outline);
    return shape;
}

} // namespace test
