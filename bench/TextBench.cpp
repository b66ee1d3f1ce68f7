/// Laying out one line of a text, beside the font engine's bare outlines of the same letters and beside the plain
/// procedure, which asks a growing path for its rectangle after every letter.
#include "text/MakeText.h"
#include "text/PlainTextLayout.h"
#include "text/ShapeText.h"

#include <QFont>

#include <benchmark/benchmark.h>

namespace {

struct Kind
{
    const char* name;
    const char* family;
    const char* letters;
    bool vertical;
};

const Kind kKinds[] = {
    {"sans", "Liberation Sans", "The quick brown fox jumps over the lazy dog, 0123456789; ", false},
    {"serif", "Liberation Serif", "The quick brown fox jumps over the lazy dog, 0123456789; ", false},
    {"cjk", "Noto Sans CJK SC", "\u4e00\u4e8c\u4e09\u6771\u4eac\u6587\u5b57\u91d1\u6c34\u6728", false},
    {"columns", "Noto Sans CJK SC", "\u4e00\u4e8c\u4e09\u6771\u4eac\u6587\u5b57\u91d1\u6c34\u6728", true}};

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

void Rebuild(benchmark::State& state, const Kind& kind)
{
    SText text = Line(kind, static_cast<int>(state.range(0)));
    CShapeText shape;
    shape.SetText(text);
    for (auto _ : state)
        shape.UpdatePainterPath();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BareAddText(benchmark::State& state, const Kind& kind)
{
    const SText text = Line(kind, static_cast<int>(state.range(0)));
    QFont font(kind.family);
    font.setPixelSize(static_cast<int>(text.font.dSize));
    const QString letters = QString::fromUtf8(text.pText);
    for (auto _ : state) {
        QPainterPath path;
        for (const QChar letter : letters)
            path.addText(0, 0, font, QString(letter));
        benchmark::DoNotOptimize(path.elementCount());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Plain(benchmark::State& state, const Kind& kind)
{
    const SText text = Line(kind, static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(test::PlainOutline(text).elementCount());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

using Measure = void (*)(benchmark::State&, const Kind&);

void Register(const std::string& what, Measure measure, const Kind& kind, std::initializer_list<int> lengths)
{
    auto* run = benchmark::RegisterBenchmark((what + "/" + kind.name).c_str(), measure, kind);
    for (const int length : lengths)
        run->Arg(length);
    run->Unit(benchmark::kMillisecond);
}

const bool kRegistered = [] {
    for (const Kind& kind : kKinds) {
        Register("bare_addText", BareAddText, kind, {500, 2000, 4000});
        Register("rebuild", Rebuild, kind, {500, 2000, 4000});
        Register("plain", Plain, kind, {500, 2000});
    }
    return true;
}();

} // namespace
