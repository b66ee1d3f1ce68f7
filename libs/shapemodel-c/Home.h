/// Where shapes live: in a document, or detached with nothing else.
#pragma once

#include "Handles.h"
#include "document/DocumentFile.h"

#include "shape/Shape.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

class CShapeGroup;

namespace capi {

/// Owns its shapes. That of a detached shape holds just it, and no handle stands for the home itself.
class Home : public Workplace
{
public:
    explicit Home(bool isDetached) : Workplace(Kind::Document), detached(isDetached) {}

    const bool detached;
    shapedocument::Document list = shapedocument::NewDocument(); ///< to be used by who works on the home

    // Under the TableLock.
    sm_document handle = 0;                       ///< the last that was given for it; may stand for nothing any more
    std::unordered_map<CShape*, sm_shape> shapes; ///< those that have handles
};

/// What a shape's handle stands for. Its members change under the TableLock, by who works on the home.
class ShapeEntry : public Object
{
public:
    ShapeEntry() : Object(Kind::Shape) {}

    std::shared_ptr<Home> home;
    CShape* shape = nullptr;
    std::vector<CShapeGroup*> holders; ///< groups and arrays that it is a member of, from the outermost
};

/// A document for as long as a call works on it.
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

/// Shapes, and all of their homes, for as long as a call works on them.
class ShapesUse
{
public:
    /// Works on the homes of the shapes, and on that of the document where it is not 0. Throws Refusal, also for a
    /// shape that is given twice.
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

/// One shape for as long as a call works on it.
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

/// A handle of a shape in the home, held once more. The caller works on the home.
sm_shape HandleOf(const std::shared_ptr<Home>& home, CShape& shape, std::vector<CShapeGroup*> holders = {});

/// A handle of a new shape that is detached.
sm_shape Detached(std::unique_ptr<CShape> shape);

/// A handle of the document, held once more.
sm_document HandleOf(const std::shared_ptr<Home>& home);

/// Shapes that change their place: where they and their members stand from then on.
struct Move
{
    std::vector<std::shared_ptr<Home>> from; ///< their homes, each once
    std::shared_ptr<Home> to;
    std::unordered_set<CShape*> shapes;
    size_t oldDepth = 0;                  ///< holders of each of the shapes before
    std::vector<CShapeGroup*> newHolders; ///< and behind
};
/// All of them or, when it throws, none. Cost: O(handles of the former homes).
void MoveHandles(const Move& move);

/// A handle of any kind is held once less. Throws Refusal.
void GiveBack(sm_handle handle);

/// The handle of a shape that is about to be freed stands for nothing any more.
void DropHandle(const std::shared_ptr<Home>& home, CShape& shape);

} // namespace capi
