/// Homes of shapes: a document, or a list with a single detached shape.
#pragma once

#include "Handles.h"
#include "document/DocumentFile.h"

#include "shape/Shape.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

class CShapeGroup;

namespace capi {

/// Owns its shapes. That of a detached shape holds only this shape, and has no handle.
class Home : public Workplace
{
public:
    explicit Home(bool isDetached) : Workplace(Kind::Document), detached(isDetached) {}

    const bool detached;
    shapedocument::Document list = shapedocument::NewDocument(); ///< use only while working on the home (Work)

    // Under the TableLock.
    sm_document handle = 0;                       ///< the last one given for it; may be invalid by now
    std::unordered_map<CShape*, sm_shape> shapes; ///< the shapes that have handles
};

/// The object of a shape's handle. Its members are changed under the TableLock, while working on the home.
class ShapeEntry : public Object
{
public:
    ShapeEntry() : Object(Kind::Shape) {}

    std::shared_ptr<Home> home;
    CShape* shape = nullptr;
    std::vector<CShapeGroup*> holders; ///< groups and arrays around the shape, the outermost first
};

/// Gives a call sole use of a document while it lives.
class DocumentUse
{
public:
    /// Throws Refusal.
    explicit DocumentUse(sm_document handle);

    CShapeList& List() const { return *m_home->list; }
    const std::shared_ptr<Home>& TheHome() const { return m_home; }

private:
    std::shared_ptr<Home> m_home;
    Work m_work;
};

/// Gives a call sole use of shapes and of all their homes while it lives.
class ShapesUse
{
public:
    /// Takes the homes of the shapes, and that of the document where it is not 0. Throws Refusal, also for a shape that
    /// is given twice.
    explicit ShapesUse(const sm_shape* handles, size_t count, sm_document document = 0);

    struct Shape
    {
        sm_shape handle;
        std::shared_ptr<Home> home;
        CShape* shape;
        std::vector<CShapeGroup*> holders;
    };
    const std::vector<Shape>& Shapes() const { return m_shapes; }
    const std::shared_ptr<Home>& DocumentHome() const { return m_document; }

private:
    std::vector<std::shared_ptr<Home>> FindHomes(const sm_shape* handles, size_t count, sm_document document);

    std::vector<Shape> m_shapes;
    std::shared_ptr<Home> m_document;
    std::vector<Work> m_works;
};

/// Gives a call sole use of a shape and its home while it lives.
class ShapeUse
{
public:
    /// Throws Refusal.
    explicit ShapeUse(sm_shape handle);

    CShape& operator*() const { return *m_shape; }
    CShape* operator->() const { return m_shape; }

    /// The shape as one of that class. Throws Refusal (SM_WRONG_KIND).
    template <class Class>
    Class& As() const
    {
        auto* shape = dynamic_cast<Class*>(m_shape);
        if (!shape)
            RefuseKind();
        return *shape;
    }

    const std::shared_ptr<Home>& TheHome() const { return m_home; }
    const std::vector<CShapeGroup*>& Holders() const { return m_holders; }

private:
    [[noreturn]] void RefuseKind() const;
    Work WorkOn(sm_shape handle);

    std::shared_ptr<Home> m_home;
    CShape* m_shape = nullptr;
    std::vector<CShapeGroup*> m_holders;
    Work m_work;
};

/// A handle of a shape in the home, counted up. The caller must be working on the home.
sm_shape HandleOf(const std::shared_ptr<Home>& home, CShape& shape, std::vector<CShapeGroup*> holders = {});

/// A handle of a new, detached shape.
sm_shape Detached(std::unique_ptr<CShape> shape);

/// A handle of the document, counted up.
sm_document HandleOf(const std::shared_ptr<Home>& home);

/// A move of shapes, with their members, to another home or group.
struct Move
{
    std::vector<std::shared_ptr<Home>> from; ///< their homes, each once
    std::shared_ptr<Home> to;
    std::unordered_set<CShape*> shapes;
    size_t oldDepth = 0;                  ///< number of holders of each of the shapes before the move
    std::vector<CShapeGroup*> newHolders; ///< holders of the shapes after the move
};
/// Updates the handles of moved shapes: all of them or, when it throws, none. Cost: O(handles of the former homes).
void MoveHandles(const Move& move);

/// Counts a handle of any kind down. Throws Refusal.
void GiveBack(sm_handle handle);

/// Makes the handle of a shape that is about to be freed invalid.
void DropHandle(const std::shared_ptr<Home>& home, CShape& shape);

} // namespace capi
