/// Laying out one line of a text, beside the font engine's bare outlines of the same letters and beside the plain
/// procedure, which asks a growing path for its rectangle after every letter.
#include "Goals.h"
#include "Growth.h"

#include "text/MakeText.h"
#include "text/PlainTextLayout.h"
#include "text/ShapeText.h"

#include <QFont>
#include <QGraphicsScene>
#include <QPen>

#include <benchmark/benchmark.h>

namespace {

using namespace bench;

struct Kind
{
    const char* name;
    const char* family;
    const char* letters;
    bool vertical = false;
};

constexpr const char* kLatin = "The quick brown fox jumps over the lazy dog, 0123456789; ";
constexpr const char* kHan = "\u4e00\u4e8c\u4e09\u6771\u4eac\u6587\u5b57\u91d1\u6c34\u6728";
constexpr Kind kSans{"sans", "Liberation Sans", kLatin};
constexpr Kind kSerif{"serif", "Liberation Serif", kLatin};
constexpr Kind kCjk{"CJK", "Noto Sans CJK SC", kHan};
constexpr Kind kColumns{"columns", "Noto Sans CJK SC", kHan, true};

/// One line of `count` letters.
SText Line(const Kind& kind, int count)
{
    QString line;
    while (line.size() < count)
        line += QString::fromUtf8(kind.letters);
    SText text = test::MakeText(line.first(count).toStdString(), kind.family);
    text.font.bVerticalText = kind.vertical;
    return text;
}

Side Rebuild(const Kind& kind, int count)
{
    const auto shape = std::make_shared<CShapeText>();
    SText text = Line(kind, count);
    shape->SetText(text);
    return {[shape] { shape->UpdatePainterPath(); }};
}

Side AddTextPerLetter(const Kind& kind, int count)
{
    const SText text = Line(kind, count);
    QFont font(kind.family);
    font.setPixelSize(static_cast<int>(text.font.dSize));
    return {[font, letters = QString::fromUtf8(text.pText)] {
        QPainterPath path;
        for (const QChar letter : letters)
            path.addText(0, 0, font, QString(letter));
        benchmark::DoNotOptimize(path.elementCount());
    }};
}

Side Plain(const Kind& kind, int count)
{
    return {[text = Line(kind, count)] { benchmark::DoNotOptimize(test::PlainOutline(text).elementCount()); }};
}

Row LettersRow(const Kind& kind)
{
    return {.name = std::string("X1 text of 500 letters, ") + kind.name,
            .against = "addText per letter, nothing measured",
            .goal = AtMost(3),
            .sides =
                [kind] {
                    return Sides{Rebuild(kind, 500), AddTextPerLetter(kind, 500)};
                },
            .rounds = 9};
}

Row LinearRow(const Kind& kind)
{
    return {.name = std::string("X1 text of 2,000 letters, ") + kind.name,
            .against = "500 letters",
            .goal = AtMost(5),
            .sides =
                [kind] {
                    return Sides{Rebuild(kind, 2000), Rebuild(kind, 500)};
                },
            .rounds = 9};
}

/// Texts of 50 letters on a grid that the positions lie all over.
using Texts = std::shared_ptr<std::vector<std::unique_ptr<CShapeText>>>;
constexpr int kTexts = 400, kColumnsOfTexts = 5;
constexpr QSizeF kPlace(800, 40);

Texts TextsOnGrid(int count)
{
    auto texts = std::make_shared<std::vector<std::unique_ptr<CShapeText>>>();
    for (int i = 0; i < count; ++i) {
        SText text = Line(kSans, 50);
        text.ptCenter = {(i % kColumnsOfTexts + 0.5) * kPlace.width(), (i / kColumnsOfTexts + 0.5) * kPlace.height()};
        texts->emplace_back(test::TextOf(text))->GetRect(false);
    }
    return texts;
}

std::vector<QPointF> Positions()
{
    std::vector<QPointF> positions;
    for (int i = 0; i < 20; ++i)
        positions.emplace_back(i % kColumnsOfTexts * kPlace.width() + 37.0 * i, 200.0 + 31.0 * i);
    return positions;
}

Side HitTexts(int count)
{
    return {[texts = TextsOnGrid(count), positions = Positions()] {
        int reach = 2;
        for (const QPointF p : positions)
            for (const auto& text : *texts)
                benchmark::DoNotOptimize(text->Hit(p, reach));
    }};
}

Side SceneOfTexts(int count)
{
    const auto scene = std::make_shared<QGraphicsScene>();
    const Texts texts = TextsOnGrid(count);
    for (const auto& text : *texts)
        scene->addPath(*text->GetPath(false), QPen(Qt::black, 0));
    return {[scene, positions = Positions()] {
        for (const QPointF p : positions)
            benchmark::DoNotOptimize(scene->items(p).size());
    }};
}

const bool kRegistered = Register({
    LettersRow(kSans),
    LettersRow(kSerif),
    LettersRow(kCjk),
    LettersRow(kColumns),
    LinearRow(kSans),
    LinearRow(kSerif),
    LinearRow(kCjk),
    LinearRow(kColumns),
    {.name = "X1 text of 500 letters, sans again",
     .against = "measured by whole rectangles",
     .goal = TimesFaster(4),
     .sides =
         [] {
             return Sides{Rebuild(kSans, 500), Plain(kSans, 500)};
         },
     .rounds = 5},
    GrowthRow("X2 20 mouse positions, 4,000 texts of 50 letters", 10 * kTexts, HitTexts),
    {.name = "X2 the same, 400 texts",
     .against = "QGraphicsScene::items",
     .goal = TimesFaster(5),
     .sides =
         [] {
             return Sides{HitTexts(kTexts), SceneOfTexts(kTexts)};
         },
     .rounds = 9},
});

} // namespace
