/// Tools that draw with one drag: rectangle, ellipse, regular polygon.
#pragma once

#include "canvas/CanvasTool.h"

#include "list/ShapeOwner.h"

#include <QLineF>

#include <optional>

class CShapeVector;

/// A drag makes one shape. Enter asks for its measures instead; Escape cancels.
class BoxTool : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    void Press(const CanvasPoint& point) override;
    void Drag(const CanvasPoint& point) override;
    void Release(const CanvasPoint& point) override;
    bool Key(QKeyEvent& event) override;
    void Paint(QPainter& painter) override;
    void Leave() override;
    bool DragsWithKeys() const override { return true; }

protected:
    /// The outline for a drag from p1 to p2 (mm); false when there is none.
    virtual bool Shape(CShapeVector& vector, const QLineF& drag) const = 0;
    /// The drag adjusted by the keys: Shift makes equal sides.
    virtual QLineF Adjusted(const QLineF& drag, Qt::KeyboardModifiers keys) const;
    /// Asks for the measures; nothing when the user cancels.
    virtual std::optional<QLineF> AskDrag();
    /// The command's name in the menu.
    virtual QString Name() const = 0;

private:
    ShapeOwner Made(const QLineF& drag) const;
    void Insert(const QLineF& drag);

    std::optional<QLineF> m_drag; ///< mm
};

/// Shift draws a square.
class RectangleTool : public BoxTool
{
public:
    using BoxTool::BoxTool;
    QString Hint() const override;

protected:
    bool Shape(CShapeVector& vector, const QLineF& drag) const override;
    QString Name() const override;
};

/// Shift draws a circle.
class EllipseTool : public BoxTool
{
public:
    using BoxTool::BoxTool;
    QString Hint() const override;

protected:
    bool Shape(CShapeVector& vector, const QLineF& drag) const override;
    QString Name() const override;
};

/// From the centre to a corner; plus and minus change the number of sides.
class PolygonTool : public BoxTool
{
public:
    using BoxTool::BoxTool;
    bool Key(QKeyEvent& event) override;
    QString Hint() const override;

protected:
    bool Shape(CShapeVector& vector, const QLineF& drag) const override;
    QLineF Adjusted(const QLineF& drag, Qt::KeyboardModifiers) const override { return drag; }
    std::optional<QLineF> AskDrag() override;
    QString Name() const override;

private:
    int m_sides = 6;
};
