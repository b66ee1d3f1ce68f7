#include "document/WorkDocument.h"

#include "document/ListEntries.h"
#include "document/Questions.h"
#include "document/Recovery.h"
#include "document/ShapeWalk.h"

#include "fit/OutlineFit.h"
#include "geometry/RectUnion.h"
#include "image/ImageStores.h"
#include "list/ShapeListView.h"
#include "list/ShapeOwner.h"
#include "shape/Shape.h"

#include <QFileInfo>

#include <algorithm>
#include <thread>
#include <unordered_map>
#include <utility>

namespace {

constexpr int kAutosaveInterval = 60'000; // ms

/// The stores of the process, shared by all documents.
std::shared_ptr<ImageStores> SharedStores()
{
    static std::weak_ptr<ImageStores> s_stores;
    std::shared_ptr<ImageStores> stores = s_stores.lock();
    if (!stores)
        s_stores = stores = std::make_shared<ImageStores>();
    return stores;
}

/// Makes the library search for the curve-fitting plug-in now. It does so once, when the first outline needs it; if
/// there is none it shows a message box, whose event loop would run in the middle of an edit, but not on another
/// thread. The command that fits curves reports a missing plug-in.
void LookForFittingOnce()
{
    static const bool s_looked = [] {
        std::thread([] { shapedocument::IsFittingOn(); }).join();
        return true;
    }();
    (void)s_looked;
}

/// Updates the outlines of pictures, which otherwise stay as they were until requested.
void BringUpToDate(CShapeList& list)
{
    shapedocument::ForEachShape(list, [](CShape& shape, int) {
        if (shape.GetShapeType() == ESHAPE_IMAGE || shape.GetShapeType() == ESHAPE_CODEIMAGE)
            shape.UpdatePainterPath();
    });
}

void FreeAll(const std::vector<CShape*>& shapes)
{
    const ShapeListOwner doomed = NewShapeList();
    for (CShape* shape : shapes)
        doomed->AddTail(shape);
}

std::vector<PlacedShape> Placed(const std::vector<CShape*>& shapes, int at)
{
    std::vector<PlacedShape> placed;
    for (CShape* shape : shapes)
        placed.push_back({at++, shape});
    return placed;
}

} // namespace

WorkDocument::WorkDocument(Questions& questions, QObject* parent)
    : QObject(parent), m_questions(questions), m_stores(SharedStores()), m_shapes(NewShapeList()),
      m_recovery(std::make_unique<Recovery>()), m_aside(questions)
{
    LookForFittingOnce();
    m_autosave.setSingleShot(true);
    m_autosave.setInterval(kAutosaveInterval);
    connect(&m_autosave, &QTimer::timeout, this, &WorkDocument::Autosave);
    connect(&m_undo, &QUndoStack::indexChanged, this, [this] {
        if (!m_autosave.isActive())
            m_autosave.start();
        if (m_wasModified != IsModified())
            SetSavedState(m_savedState);
    });
}

WorkDocument::~WorkDocument()
{
    m_undo.disconnect(this);
    m_selection.clear();
    m_undo.clear(); // commands own shapes, whose pixels are in the stores
}

QString WorkDocument::Title() const
{
    return m_path.isEmpty() ? tr("Untitled") : QFileInfo(m_path).fileName();
}

void WorkDocument::Select(std::vector<CShape*> shapes)
{
    std::unordered_set<const CShape*> seen;
    std::erase_if(shapes, [&](CShape* shape) {
        return !shape || shape->IsHide() || shape->IsLock() || !seen.insert(shape).second;
    });
    if (shapes != m_selection)
        SetSelection(std::move(shapes));
}

void WorkDocument::SetSelection(std::vector<CShape*> shapes)
{
    m_selection = std::move(shapes);
    m_selected = {m_selection.begin(), m_selection.end()};
    emit SelectionChanged();
}

void WorkDocument::SetDrawColor(unsigned int color)
{
    if (std::exchange(m_drawColor, color) != color)
        emit DrawColorChanged();
}

QRectF WorkDocument::SelectionRect() const
{
    shapes::RectUnion around;
    for (CShape* shape : m_selection)
        around.Add(shape->GetRect(false));
    return around.Result();
}

std::vector<int> WorkDocument::PlacesOf(const std::vector<CShape*>& shapes) const
{
    const std::unordered_set<const CShape*> sought(shapes.begin(), shapes.end());
    std::vector<int> places;
    for (unsigned int i = 0; i < m_shapes->GetCount() && places.size() < sought.size(); ++i)
        if (sought.contains(m_shapes->GetShape(i)))
            places.push_back(static_cast<int>(i));
    return places;
}

std::vector<CShape*> WorkDocument::InOrder(const std::vector<CShape*>& shapes) const
{
    std::vector<CShape*> ordered;
    for (const int place : PlacesOf(shapes))
        ordered.push_back(m_shapes->GetShape(static_cast<unsigned int>(place)));
    return ordered;
}

bool WorkDocument::Change(const QString& name, const std::vector<CShape*>& shapes,
                          const std::function<bool(CShape&)>& edit)
{
    std::vector<int> places;
    std::vector<CShape*> copies;
    for (const int place : PlacesOf(shapes)) {
        ShapeOwner copy(m_shapes->GetShape(static_cast<unsigned int>(place))->Clone());
        if (!edit(*copy))
            continue;
        places.push_back(place);
        copies.push_back(copy.release());
    }
    return PushCopies(name, places, copies);
}

bool WorkDocument::ChangeTogether(const QString& name, const std::vector<CShape*>& shapes,
                                  const std::function<bool(CShapeList&)>& edit)
{
    const std::vector<int> places = PlacesOf(shapes);
    std::vector<CShape*> copies;
    for (const int place : places)
        copies.push_back(m_shapes->GetShape(static_cast<unsigned int>(place))->Clone());
    if (copies.empty() || !edit(ShapeListView(copies).List())) {
        FreeAll(copies);
        return false;
    }
    return PushCopies(name, places, copies);
}

bool WorkDocument::PushCopies(const QString& name, const std::vector<int>& places, const std::vector<CShape*>& copies)
{
    ListChange change;
    change.inPlace = true;
    for (size_t i = 0; i < places.size(); ++i) {
        change.out.push_back({places[i], m_shapes->GetShape(static_cast<unsigned int>(places[i]))});
        change.in.push_back({places[i], copies[i]});
    }
    BringUpToDate(ShapeListView(copies).List());
    return Push(name, std::move(change));
}

bool WorkDocument::Insert(const QString& name, std::vector<CShape*> shapes, int at)
{
    std::erase(shapes, nullptr);
    const int count = static_cast<int>(m_shapes->GetCount());
    BringUpToDate(ShapeListView(shapes).List());
    return Push(name, {.out = {}, .in = Placed(shapes, at < 0 || at > count ? count : at)});
}

bool WorkDocument::Remove(const QString& name, const std::vector<CShape*>& shapes)
{
    return Replace(name, shapes, {});
}

bool WorkDocument::Replace(const QString& name, const std::vector<CShape*>& old, std::vector<CShape*> made)
{
    ListChange change;
    for (const int place : PlacesOf(old))
        change.out.push_back({place, m_shapes->GetShape(static_cast<unsigned int>(place))});
    const int count = static_cast<int>(m_shapes->GetCount());
    const int at = change.out.empty() ? count : change.out.back().place + 1 - static_cast<int>(change.out.size());
    BringUpToDate(ShapeListView(made).List());
    change.in = Placed(made, at);
    return Push(name, std::move(change));
}

bool WorkDocument::Reorder(const QString& name, const std::vector<CShape*>& order)
{
    const std::vector<CShape*> before = EntriesOf(*m_shapes);
    if (order == before || order.size() != before.size() ||
        std::unordered_set(order.begin(), order.end()) != std::unordered_set(before.begin(), before.end()))
        return false;
    ListChange change;
    for (size_t i = 0; i < order.size(); ++i) {
        if (order[i] == before[i])
            continue;
        change.out.push_back({static_cast<int>(i), before[i]});
        change.in.push_back({static_cast<int>(i), order[i]});
    }
    return Push(name, std::move(change));
}

bool WorkDocument::Push(const QString& name, ListChange change)
{
    if (change.out.empty() && change.in.empty())
        return false;
    m_undo.push(new ListCommand(*this, name, std::move(change))); // the stack owns it and calls redo
    return true;
}

void WorkDocument::Apply(const std::vector<PlacedShape>& out, const std::vector<PlacedShape>& in, bool inPlace)
{
    const std::vector<CShape*> before = EntriesOf(*m_shapes);
    std::vector<CShape*> after;
    size_t taken = 0, put = 0;
    for (size_t i = 0; i <= before.size(); ++i) {
        while (put < in.size() && in[put].place == static_cast<int>(after.size()))
            after.push_back(in[put++].shape);
        if (i == before.size())
            break;
        if (taken < out.size() && out[taken].place == static_cast<int>(i))
            ++taken;
        else
            after.push_back(before[i]);
    }
    m_shapes->RemoveAll();
    for (CShape* shape : after)
        m_shapes->AddTail(shape);
    std::vector<CShape*> left;
    for (const PlacedShape& placed : out)
        left.push_back(placed.shape);
    emit ShapesLeft(left);
    SelectAfter(out, in, inPlace);
    emit Changed();
}

/// Edited shapes, and shapes moved in the order, keep their selection; in other cases the added shapes are selected.
void WorkDocument::SelectAfter(const std::vector<PlacedShape>& out, const std::vector<PlacedShape>& in, bool inPlace)
{
    std::unordered_map<const CShape*, CShape*> now;
    for (size_t i = 0; i < out.size(); ++i)
        now[out[i].shape] = inPlace ? in[i].shape : nullptr;
    bool isNew = false;
    for (const PlacedShape& placed : in) {
        isNew = isNew || !now.contains(placed.shape);
        now[placed.shape] = placed.shape;
    }
    std::vector<CShape*> selection;
    if (isNew && !inPlace)
        for (const PlacedShape& placed : in)
            selection.push_back(placed.shape);
    else
        for (CShape* shape : m_selection)
            selection.push_back(now.contains(shape) ? now[shape] : shape);
    std::erase_if(selection, [](CShape* shape) { return !shape || shape->IsHide() || shape->IsLock(); });
    SetSelection(std::move(selection));
}
