/// Documents with all kinds of shapes, damaged at random places from a seed: how much of them the repair brings back.
/// SHAPEDOC_DAMAGES=1000 in the environment measures that many and prints the shares.
#include "check/StreamRepair.h"
#include "document/ShapeWalk.h"
#include "support/EveryKind.h"

#include <algorithm>
#include <random>
#include <set>

using namespace test;
using namespace shapedocument;

namespace {

using Random = std::mt19937;
using Records = std::multiset<QByteArray>;

int Pick(Random& random, int low, int high)
{
    return low + static_cast<int>(random() % static_cast<unsigned>(high - low + 1));
}

/// One of the kinds, of a place and colour of its own; in five of which, two in a group.
CShape* NewShape(CShapeList& kinds, Random& random)
{
    if (Pick(random, 0, 4) == 0) {
        const std::vector<CShape*> members{NewShape(kinds, random), NewShape(kinds, random)};
        for (CShape* member : members)
            member->SetGroup(true);
        return MakeGroup(members).release();
    }
    CShape* shape = kinds.GetShape(random() % kinds.GetCount())->Clone();
    shape->Offset(Pick(random, 1, 30000) / 100.0, Pick(random, 1, 30000) / 100.0);
    shape->SetColor(random() & 0xFFFFFF);
    return shape;
}

QByteArray NewStream(CShapeList& kinds, Random& random)
{
    const Document made = MakeList<Document>();
    for (int i = Pick(random, 10, 40); i > 0; --i)
        made->AddTail(NewShape(kinds, random));
    return StreamOf(*ListFrom(StreamOf(*made)));
}

/// The records of the shapes that are no groups, without their status word: repair may take the group bit out of it.
/// None when a plain reader finds a fault.
Records RecordsOf(const QByteArray& stream)
{
    StreamFile file;
    file.Fill(stream);
    const Document list = MakeList<Document>();
    Records records;
    if (list->Read(file.File(), 14) == 0)
        ForEachShape(*list, [&](CShape& shape, int) {
            if (!MembersOf(shape))
                records.insert(StreamOf(shape).mid(4));
        });
    return records;
}

/// What stands in place of some bytes.
struct Hit
{
    qsizetype at, size;
    QByteArray instead;
};
using Hits = std::vector<Hit>;

Hits Truncate(const QByteArray& bytes, Random& random)
{
    const int at = Pick(random, 0, static_cast<int>(bytes.size()) - 1);
    return {{at, bytes.size() - at, {}}};
}

Hits FlipBytes(const QByteArray& bytes, Random& random)
{
    Hits hits(static_cast<size_t>(Pick(random, 1, 8)));
    for (Hit& hit : hits) {
        const int at = Pick(random, 0, static_cast<int>(bytes.size()) - 1);
        hit = {at, 1, QByteArray(1, static_cast<char>(bytes[at] ^ Pick(random, 1, 255)))};
    }
    return hits;
}

/// A block of a tenth at most is gone, or zeros stand in its place.
template <bool zeros>
Hits HitBlock(const QByteArray& bytes, Random& random)
{
    const int size = Pick(random, 1, static_cast<int>(bytes.size()) / 10);
    const int at = Pick(random, 0, static_cast<int>(bytes.size()) - size);
    return {{at, size, QByteArray(zeros ? size : 0, '\0')}};
}

struct Kind
{
    const char* name;
    Hits (*pick)(const QByteArray&, Random&);
    double least; ///< share of the intact shapes that must come back
    size_t records = 0, intact = 0, saved = 0, plain = 0;
};

size_t CommonCount(const Records& a, const Records& b)
{
    Records common;
    std::set_intersection(a.begin(), a.end(), b.begin(), b.end(), std::inserter(common, common.end()));
    return common.size();
}

/// Damages, repairs and counts.
void DamageAndCount(Kind& kind, const QByteArray& stream, const Records& records, Random& random, bool measured)
{
    const Hits hits = kind.pick(stream, random);
    QByteArray damaged = stream;
    for (const Hit& hit : hits)
        damaged.replace(hit.at, hit.size, hit.instead);
    const QByteArray repaired = SavedStream(Span(damaged), SalvageStream(Span(damaged), 0, 14));
    const auto fault = CheckStream(Span(repaired), 0, 14).fault;
    EXPECT_FALSE(fault) << fault->path.toStdString();
    Records intact, before;
    for (const QByteArray& record : records) {
        const int64_t at = stream.indexOf(record) - 8; // tag and status word
        const int64_t end = at + 8 + record.size();
        const auto follows = [&](const Hit& hit) { return end <= hit.at; };
        if (std::ranges::all_of(hits, [&](const Hit& hit) { return follows(hit) || at >= hit.at + hit.size; }))
            intact.insert(record);
        if (std::ranges::all_of(hits, follows))
            before.insert(record);
    }
    const Records saved = RecordsOf(repaired);
    EXPECT_EQ(CommonCount(before, saved), before.size()) << "lost before the first damaged byte";
    EXPECT_LE(saved.size() - CommonCount(records, saved), records.size() - intact.size()) << "that nobody has drawn";
    kind.records += records.size();
    kind.intact += intact.size();
    kind.saved += CommonCount(intact, saved);
    kind.plain += measured ? CommonCount(intact, RecordsOf(damaged)) : 0;
}

TEST(Damage, seeded_damages_leave_nearly_all_intact_shapes)
{
    const int measured = qEnvironmentVariableIntValue("SHAPEDOC_DAMAGES"), damages = measured > 0 ? measured : 60;
    Kind damageKinds[] = {{"cut short", Truncate, 1.0},
                          {"1 to 8 bytes changed", FlipBytes, 0.98},
                          {"a block cut out", HitBlock<false>, 0.98},
                          {"a block of zeros", HitBlock<true>, 0.98}};
    const Stores stores;
    const Document kinds = EveryKind();
    Random random(20240607);
    for (int done = 0; done < damages;) {
        const QByteArray stream = NewStream(*kinds, random);
        const Records records = RecordsOf(stream);
        ASSERT_FALSE(CheckStream(Span(stream), 0, 14).fault);
        for (Kind& kind : damageKinds)
            for (int i = 0; i < 5 && done < damages; ++i, ++done)
                DamageAndCount(kind, stream, records, random, measured > 0);
    }
    for (const Kind& kind : damageKinds) {
        EXPECT_GE(static_cast<double>(kind.saved), kind.least * static_cast<double>(kind.intact)) << kind.name;
        if (measured > 0)
            std::printf("%s: %zu of %zu shapes intact, saved %zu, plain reader %zu\n", kind.name, kind.intact,
                        kind.records, kind.saved, kind.plain);
    }
}

} // namespace
