/// Documents with all kinds of shapes, damaged at random places from a seed: how much of them the repair brings back.
/// SHAPEDOC_DAMAGES=1000 in the environment measures that many and prints the shares.
#include "check/StreamRepair.h"
#include "group/ShapeArray.h"
#include "image/CodeShapeImage.h"
#include "image/Pictures.h"
#include "support/Lists.h"
#include "support/StreamFile.h"
#include "text/ShapeText.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

using namespace test;
using namespace shapedocument;

namespace {

using Random = std::mt19937;

int Pick(Random& random, int low, int high)
{
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
}

CShapeVector* NewVector(Random& random)
{
    auto* shape = new CShapeVector;
    std::vector<QPointF> points;
    for (int i = Pick(random, 2, 40); i > 0; --i)
        points.emplace_back(Pick(random, 0, 30000) / 100.0, Pick(random, 0, 30000) / 100.0);
    std::vector<unsigned char> types(points.size(), ELINE_SEGMENT_STRAIGHT);
    shape->SetVectorType(EVECTOR_MIXED);
    shape->SetShapePoints(points, types);
    shape->SetColor(random() & 0xFFFFFF);
    return shape;
}

CShapeText* NewText(Random& random)
{
    auto* shape = new CShapeText;
    SText text;
    qstrncpy(text.pText, QByteArray::number(Pick(random, 0, 999999)).constData(), TEXT_BUFFER_SIZE);
    qstrncpy(text.font.szFamily, "Liberation Sans", sizeof text.font.szFamily);
    text.ptCenter = QPointF(Pick(random, 0, 300), Pick(random, 0, 300));
    shape->SetText(text);
    return shape;
}

template <class Image>
Image* NewImage(Random& random)
{
    auto* shape = new Image;
    cv::Mat picture(Pick(random, 4, 32), Pick(random, 1, 8) * 4, CV_8U);
    for (int i = 0; i < static_cast<int>(picture.total()); ++i)
        picture.data[i] = static_cast<uchar>(Pick(random, 0, 3) * 85);
    shape->SetOrgRect(QRectF(Pick(random, 0, 300), Pick(random, 0, 300), picture.cols, picture.rows), true);
    shape->SetImage(picture, false);
    return shape;
}

CShape* NewShape(Random& random, int depth);

template <class Group>
Group* NewGroup(Random& random, int depth)
{
    auto* group = new Group;
    for (int i = Pick(random, 1, 5); i > 0; --i) {
        CShape* member = NewShape(random, depth + 1);
        member->SetGroup(true);
        group->GetShapeList()->AddTail(member);
    }
    return group;
}

CShape* NewShape(Random& random, int depth)
{
    const int kind = Pick(random, 0, depth < 2 ? 19 : 15);
    if (kind < 11)
        return NewVector(random);
    if (kind < 13)
        return NewText(random);
    if (kind < 15)
        return NewImage<CShapeImage>(random);
    if (kind == 15) {
        auto* code = NewImage<CCodeShapeImage>(random);
        code->SetCodeText(QString::number(random()));
        return code;
    }
    if (kind < 19)
        return NewGroup<CShapeGroup>(random, depth);
    auto* array = NewGroup<CShapeArray>(random, depth);
    array->SetArrayInfo(Pick(random, 1, 4), Pick(random, 1, 4), 1, 1, 0, 0);
    return array;
}

QByteArray SavedBytes(CShapeList& list)
{
    StreamFile stream;
    list.Save(stream.File());
    stream.Rewind();
    return stream.File()->readAll();
}

QByteArray SavedBytes(CShape& shape)
{
    StreamFile stream;
    shape.Save(stream.File());
    stream.Rewind();
    return stream.File()->readAll();
}

/// The records of the shapes that are no groups, without their status word: repair may take the group bit out of it.
void AddRecords(CShapeList& list, std::multiset<QByteArray>& records)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        if (auto* group = dynamic_cast<CShapeGroup*>(list.GetShape(i)))
            AddRecords(*group->GetShapeList(), records);
        else
            records.insert(SavedBytes(*list.GetShape(i)).mid(4));
    }
}

/// What a plain reader makes of the stream.
std::multiset<QByteArray> ReadRecords(const QByteArray& bytes)
{
    StreamFile stream(bytes.toHex().toStdString());
    const Document list = MakeList<Document>();
    std::multiset<QByteArray> records;
    if (list->Read(stream.File(), 14) == 0)
        AddRecords(*list, records);
    return records;
}

Bytes View(const QByteArray& bytes)
{
    return {reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<size_t>(bytes.size())};
}

struct Damage
{
    QByteArray bytes;
    std::vector<ByteRange> hit; ///< in the undamaged stream
};

Damage Truncate(const QByteArray& bytes, Random& random)
{
    const int at = Pick(random, 0, static_cast<int>(bytes.size()) - 1);
    return {bytes.first(at), {{at, bytes.size()}}};
}

Damage FlipBytes(const QByteArray& bytes, Random& random)
{
    Damage damage{bytes, {}};
    for (int i = Pick(random, 1, 8); i > 0; --i) {
        const int at = Pick(random, 0, static_cast<int>(bytes.size()) - 1);
        damage.bytes[at] = static_cast<char>(damage.bytes[at] ^ Pick(random, 1, 255));
        damage.hit.push_back({at, at + 1});
    }
    return damage;
}

ByteRange Block(const QByteArray& bytes, Random& random)
{
    const int size = Pick(random, 1, static_cast<int>(bytes.size()) / 10);
    const int at = Pick(random, 0, static_cast<int>(bytes.size()) - size);
    return {at, at + size};
}

Damage CutOut(const QByteArray& bytes, Random& random)
{
    const ByteRange block = Block(bytes, random);
    return {QByteArray(bytes).remove(block.begin, block.Size()), {block}};
}

Damage Overwrite(const QByteArray& bytes, Random& random)
{
    const ByteRange block = Block(bytes, random);
    return {QByteArray(bytes).replace(block.begin, block.Size(), QByteArray(block.Size(), '\0')), {block}};
}

struct Shares
{
    int damages = 0, records = 0, intact = 0, saved = 0, changed = 0, plain = 0;
};

struct Kind
{
    const char* name;
    Damage (*make)(const QByteArray&, Random&);
    double least; ///< share of the intact shapes that must come back
};

const Kind kKinds[] = {{"cut short", Truncate, 1.0},
                       {"1 to 8 bytes changed", FlipBytes, 0.98},
                       {"a block cut out", CutOut, 0.98},
                       {"a block of zeros", Overwrite, 0.98}};

size_t CommonCount(const std::multiset<QByteArray>& a, const std::multiset<QByteArray>& b)
{
    std::vector<QByteArray> common;
    std::set_intersection(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(common));
    return common.size();
}

class DamagedDocument
{
public:
    explicit DamagedDocument(Random& random)
    {
        const Document made = MakeList<Document>();
        for (int i = Pick(random, 10, 40); i > 0; --i)
            made->AddTail(NewShape(random, 0));
        StreamFile first(SavedBytes(*made).toHex().toStdString());
        const Document list = MakeList<Document>();
        EXPECT_EQ(list->Read(first.File(), 14), 0);
        m_bytes = SavedBytes(*list);
        AddRecords(*list, m_records);
    }

    const QByteArray& Stream() const { return m_bytes; }

    /// Damages, repairs and counts.
    void Run(const Kind& kind, Random& random, Shares& shares) const
    {
        const Damage damage = kind.make(m_bytes, random);
        const Salvage salvage = SalvageStream(View(damage.bytes), 0, 14);
        const QByteArray repaired = SavedStream(View(damage.bytes), salvage);
        EXPECT_FALSE(CheckStream(View(repaired), 0, 14).fault)
            << CheckStream(View(repaired), 0, 14).fault->path.toStdString();
        const std::multiset<QByteArray> saved = ReadRecords(repaired);
        std::multiset<QByteArray> intact, before;
        for (const QByteArray& record : m_records) {
            const int64_t at = m_bytes.indexOf(record) - 8; // tag and status word
            const int64_t end = at + 8 + record.size();
            const auto apart = [&](ByteRange hit) { return end <= hit.begin || at >= hit.end; };
            const auto follows = [&](ByteRange hit) { return end <= hit.begin; };
            if (std::all_of(damage.hit.begin(), damage.hit.end(), apart))
                intact.insert(record);
            if (std::all_of(damage.hit.begin(), damage.hit.end(), follows))
                before.insert(record);
        }
        EXPECT_EQ(CommonCount(before, saved), before.size()) << "lost before the first damaged byte";
        const size_t changed = saved.size() - CommonCount(m_records, saved);
        EXPECT_LE(changed, m_records.size() - intact.size()) << "shapes that nobody has drawn";
        ++shares.damages;
        shares.records += static_cast<int>(m_records.size());
        shares.intact += static_cast<int>(intact.size());
        shares.saved += static_cast<int>(CommonCount(intact, saved));
        shares.changed += static_cast<int>(changed);
        shares.plain += static_cast<int>(CommonCount(intact, ReadRecords(damage.bytes)));
    }

private:
    QByteArray m_bytes;
    std::multiset<QByteArray> m_records;
};

TEST(Damage, seeded_damages_leave_nearly_all_intact_shapes)
{
    const int wanted = qEnvironmentVariableIntValue("SHAPEDOC_DAMAGES");
    const int damages = wanted > 0 ? wanted : 60;
    const Stores stores;
    Random random(20240607);
    std::map<std::string, Shares> shares;
    for (int done = 0; done < damages;) {
        const DamagedDocument document(random);
        ASSERT_FALSE(CheckStream(View(document.Stream()), 0, 14).fault);
        for (const Kind& kind : kKinds)
            for (int i = 0; i < 5 && done < damages; ++i, ++done)
                document.Run(kind, random, shares[kind.name]);
    }
    for (const Kind& kind : kKinds) {
        const Shares& share = shares[kind.name];
        EXPECT_GE(share.saved, kind.least * share.intact) << kind.name;
        if (wanted > 0)
            std::printf("%s: %d damages, %d of %d shapes intact, saved %d (%.2f %%), with changes %d, plain reader %d "
                        "(%.2f %%)\n",
                        kind.name, share.damages, share.intact, share.records, share.saved,
                        100.0 * share.saved / share.intact, share.changed, share.plain,
                        100.0 * share.plain / share.intact);
    }
}

} // namespace
