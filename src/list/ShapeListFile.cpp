/// Document stream of the list: framing, and the upgrade of shapes that older versions wrote.
#include "geometry/PathSteps.h"
#include "host/ILog.h"
#include "image/ShapeImage.h"
#include "list/ShapeList.h"
#include "list/ShapeWalk.h"
#include "record/RecordFormat.h"
#include "record/RecordStream.h"
#include "shape/Shape.h"
#include "shape/ShapeCast.h"
#include "text/TextParameters.h"
#include "vector/OutlinePath.h"
#include "vector/ShapeVector.h"

#include <QFile>
#include <QGuiApplication>

#include <algorithm>
#include <exception>
#include <memory>

using shapes::ForEachShape;
using shapes::RecordReader;
using shapes::RecordWriter;

namespace {

/// Unlike ShapeDeleter it asks for no memory: shapes are freed here where there may be none left.
struct ReleaseShape
{
    void operator()(CShape* shape) const { CShape::Release(shape); }
};
using ReadShape = std::unique_ptr<CShape, ReleaseShape>;

constexpr int kReadFailed = 1;
constexpr int kUnknownTag = 5;

// Bytes. A letter becomes about a thousand bytes of outline. Once the outlines of a document exceed this memory,
// further texts stay texts, which look and are cut the same: memory must stay in proportion to the size of the file.
constexpr qint64 kOutlineRoom = 24LL * 1024 * 1024;
constexpr qint64 kOutlineRoomPerByte = 16;
constexpr qint64 kOutlinePerLetter = 1024;
constexpr qint64 kOutlinePerPoint = sizeof(QPointF) + 1;

/// The state that nested lists share while this thread reads them.
class Reading
{
public:
    explicit Reading(const QFile& file)
    {
        if (++s_depth > 1)
            return;
        s_outlineRoom = kOutlineRoom + kOutlineRoomPerByte * file.size();
        s_keptTexts = 0;
    }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
    ~Reading() { --s_depth; }

    bool TooDeep() const { return s_depth > shapes::kDeepestGroup + 1; }
    static bool HasRoomFor(qint64 letters) { return letters * kOutlinePerLetter <= s_outlineRoom; }
    static void SpendRoom(qint64 bytes) { s_outlineRoom -= bytes; }
    static void CountKeptText() { ++s_keptTexts; }
    /// One line for the whole document, once it is read.
    void LogKeptTexts(int version) const
    {
        if (s_depth == 1 && s_keptTexts > 0)
            ILog_WriteLogF(ELOG_NOTE, "%d texts of version %d stay texts: no fonts, or too large as outlines",
                           s_keptTexts, version);
    }

private:
    static thread_local int s_depth;
    static thread_local int s_keptTexts;
    static thread_local qint64 s_outlineRoom;
};
thread_local int Reading::s_depth = 0;
thread_local int Reading::s_keptTexts = 0;
thread_local qint64 Reading::s_outlineRoom = 0;

/// Counts the nested lists that this thread is saving; logs once per document that Read will refuse their depth.
class Saving
{
public:
    Saving()
    {
        if (++s_depth == 1)
            s_isTooDeep = false;
        if (s_depth <= shapes::kDeepestGroup + 1 || s_isTooDeep)
            return;
        s_isTooDeep = true;
        ILog_WriteLogF(ELOG_NOTE, "groups are nested beyond %d levels: what is saved cannot be read back",
                       shapes::kDeepestGroup);
    }
    Saving(const Saving&) = delete;
    Saving& operator=(const Saving&) = delete;
    ~Saving() { --s_depth; }

private:
    static thread_local int s_depth;
    static thread_local bool s_isTooDeep;
};
thread_local int Saving::s_depth = 0;
thread_local bool Saving::s_isTooDeep = false;

/// The shape's type; an image that holds a code is tagged as code image.
ESHAPE_TYPE TagOf(CShape* shape)
{
    auto* image = shapes::ShapeCast<CShapeImage>(shape, ESHAPE_IMAGE);
    return image && image->GetProperty() == CShapeImage::PROPERTY_CODE ? ESHAPE_CODEIMAGE : shape->GetShapeType();
}

/// Without fonts a text has no outline and stays a text.
bool HasFonts()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance());
}

/// @param fieldBytes size of the record without its points; a text has no more letters than that
bool NeedsUpgrade(ESHAPE_TYPE tag, int version, qint64 fieldBytes)
{
    if (tag != ESHAPE_TEXT || version > shapes::kLastVersionOfOutlinedTexts)
        return tag == ESHAPE_VECTOR && version <= shapes::kLastVersionOfSplitVectors;
    const qint64 letters = std::min<qint64>(fieldBytes, TEXT_BUFFER_SIZE - 1);
    if (HasFonts() && Reading::HasRoomFor(letters))
        return true;
    Reading::CountKeptText();
    return false;
}

struct Subpath
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
};

/// Appends the sub-path, unless it is empty, as an EVECTOR_MIXED shape and empties it.
void AppendAsVector(Subpath& subpath, unsigned int color, CShapeList& list)
{
    if (subpath.points.empty())
        return;
    auto* vector = new CShapeVector;
    ReadShape owner(vector);
    vector->SetVectorType(EVECTOR_MIXED);
    vector->SetShapePoints(subpath.points, subpath.types);
    vector->SetColor(color);
    list.AddTail(vector);
    (void)owner.release();
    Reading::SpendRoom(static_cast<qint64>(sizeof(CShapeVector) + subpath.points.size() * kOutlinePerPoint));
    subpath = {};
}

/// Appends one vector shape per sub-path of the shape's outline. Status, guide line and id are not carried over.
void AppendAsVectors(CShape& shape, CShapeList& list)
{
    const QPainterPath* path = shape.GetPath(false);
    const QPainterPath outline = path ? *path : QPainterPath();
    if (shape.GetShapeType() == ESHAPE_TEXT && outline.isEmpty())
        return; // The lone move-to of a text that draws nothing only keeps its place.
    Subpath subpath;
    for (const shapes::PathStep& step : shapes::PathSteps(outline)) {
        if (step.IsMove())
            AppendAsVector(subpath, shape.GetColor(), list);
        if (step.IsMove() || !subpath.points.empty())
            shapes::AppendStep(step, subpath.points, subpath.types);
    }
    AppendAsVector(subpath, shape.GetColor(), list);
}

} // namespace

int CShapeList::Save(QFile* file)
{
    if (!file)
        return 0;
    const Saving saving;
    RecordWriter writer(*file);
    // A copy: a shape's own Save may run code that changes the list, but the count is already written.
    const std::vector<CShape*> shapes = m_listShapes;
    writer.Put(static_cast<uint32_t>(ShapeCount()));
    ForEachShape(shapes, [&](CShape* shape) {
        writer.Put(static_cast<uint32_t>(TagOf(shape)));
        if (const auto* vector = shapes::ExactCast<CShapeVector>(shape)) {
            vector->WriteRecord(writer);
        } else {
            writer.Flush(); // All others write to the file directly.
            shape->Save(file);
        }
    });
    return 0;
}

int CShapeList::Read(QFile* file, int version)
{
    if (!file)
        return 0;
    const Reading reading(*file);
    uint32_t count = 0;
    RecordReader(*file).Get(count);
    RemoveAll();
    int result = kReadFailed;
    try {
        result = reading.TooDeep() ? kUnknownTag : ReadEntries(*file, version, count);
    } catch (const std::exception&) { // Mostly no memory; no exception may reach the host.
    }
    if (result != 0)
        DeleteAll();
    else
        reading.LogKeptTexts(version);
    return result;
}

int CShapeList::ReadEntries(QFile& file, int version, unsigned int count)
{
    RecordReader reader(file, RecordReader::Ahead::Yes);
    for (unsigned int i = 0; i < count; ++i) {
        ESHAPE_TYPE tag{};
        if (!reader.Get(tag))
            return kUnknownTag;
        ReadShape shape(CShape::NewShape(tag));
        if (!shape)
            return kUnknownTag;
        qint64 fieldBytes = 0; // of shapes that read from the file directly
        if (auto* vector = shapes::ExactCast<CShapeVector>(shape.get())) {
            vector->ReadRecord(reader, version);
        } else {
            reader.GiveBack();
            const qint64 start = file.pos();
            if (const int result = shape->Read(&file, version); result != 0)
                return result;
            fieldBytes = file.pos() - start - static_cast<qint64>(shape->CommonRecordBytes());
        }
        if (NeedsUpgrade(tag, version, fieldBytes)) {
            AppendAsVectors(*shape, *this);
        } else {
            m_listShapes.push_back(shape.get());
            (void)shape.release();
        }
    }
    return 0;
}
