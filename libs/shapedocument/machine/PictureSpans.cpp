#include "machine/PictureSpans.h"

#include "cores/OrderedWork.h"
#include "machine/Dither.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace shapedocument {

namespace {

/// Points of the picture that are read in one step: some 0.2 ms, and at most 400 KB of spans.
constexpr size_t kPointsInStep = 16 * 1024;
/// Dots of the steps that are under way at the same time: 13 MB with their spans. Where two steps for each thread are
/// more, fewer threads read; a single one holds one step.
constexpr size_t kMostDotsUnderWay = 512 * 1024;
/// Steps that pay for a thread: starting and ending it may last as long as two, longer where the cores are busy.
constexpr size_t kStepsForThread = 8;

/// Consecutive rows.
struct RowBlock
{
    RowBlock(size_t begin, size_t end, size_t dotsInRow)
        : first(begin), dots((end - begin) * dotsInRow), ranges(end - begin), ends(end - begin), m_dotsInRow(dotsInRow)
    {}

    std::span<unsigned char> DotsOf(size_t row) { return std::span(dots).subspan(row * m_dotsInRow, m_dotsInRow); }

    /// The row must be the one behind the last collected.
    std::span<const EngraveSpan> SpansOf(size_t row) const
    {
        const size_t begin = row > 0 ? ends[row - 1] : 0;
        return std::span(spans).subspan(begin, ends[row] - begin);
    }

    size_t first; ///< of the picture's rows; below, rows count from it
    std::vector<unsigned char> dots;
    std::vector<DotRange> ranges;
    std::vector<EngraveSpan> spans;
    std::vector<size_t> ends; ///< in spans, of each row

private:
    size_t m_dotsInRow;
};

class SpanMaker
{
public:
    SpanMaker(const PictureRows& rows, const EngraveOptions& options)
        : m_rows(rows), m_options(options), m_dither(options.dither ? rows.Dots() : 0)
    {}

    /// On any thread: what does not depend on other rows.
    void Read(RowBlock& block) const
    {
        for (size_t row = 0; row < block.ranges.size(); ++row) {
            block.ranges[row] = m_rows.Covered(block.first + row);
            m_rows.Read(block.first + row, block.ranges[row], block.DotsOf(row));
            if (!m_options.dither)
                Collect(block, row);
        }
    }

    /// In the order of the rows: a dithered row hands its errors to the next one.
    void Complete(RowBlock& block)
    {
        if (!m_options.dither)
            return;
        for (size_t row = 0; row < block.ranges.size(); ++row) {
            m_dither.Apply(block.DotsOf(row), block.ranges[row]);
            Collect(block, row);
        }
    }

private:
    void Collect(RowBlock& block, size_t row) const
    {
        const std::span<const unsigned char> dots = block.DotsOf(row);
        const DotRange range = block.ranges[row];
        const double pitch = 1 / m_options.linesPerMm, left = m_rows.Left();
        for (size_t i = range.begin; i < range.end;) {
            int least = dots[i], most = dots[i];
            const size_t begin = i++;
            if (most == kWhite)
                continue;
            for (; i < range.end && dots[i] != kWhite; ++i) {
                const int lower = std::min<int>(least, dots[i]), upper = std::max<int>(most, dots[i]);
                if (upper - lower > m_options.greyStep)
                    break;
                least = lower;
                most = upper;
            }
            block.spans.push_back({left + static_cast<double>(begin) * pitch, left + static_cast<double>(i) * pitch,
                                   static_cast<unsigned char>((least + most) / 2)});
        }
        block.ends[row] = block.spans.size();
    }

    const PictureRows& m_rows;
    const EngraveOptions& m_options;
    Dither m_dither;
};

size_t ThreadsThatPay(size_t steps)
{
    return steps < 2 * kStepsForThread ? 1 : std::min(CoreCount(), steps / kStepsForThread);
}

} // namespace

void ForEachRowOf(const PictureRows& rows, const EngraveOptions& options,
                  const std::function<void(size_t row, std::span<const EngraveSpan> spans)>& take, size_t threads)
{
    SpanMaker maker(rows, options);
    const size_t rowsInStep = std::max<size_t>(1, kPointsInStep / (rows.Dots() * rows.PointsPerDot()));
    const size_t wanted = threads > 0 ? threads : ThreadsThatPay(rows.Rows() / rowsInStep);
    const size_t held = kMostDotsUnderWay / (2 * rowsInStep * rows.Dots());
    OrderedWork work(std::max<size_t>(1, std::min(wanted, held)));
    for (size_t row = 0; row < rows.Rows(); row += rowsInStep) {
        const size_t end = std::min(row + rowsInStep, rows.Rows());
        const auto block = std::make_shared<RowBlock>(row, end, rows.Dots());
        const auto complete = [&maker, &take, block] {
            maker.Complete(*block);
            for (size_t i = 0; i < block->ranges.size(); ++i)
                take(block->first + i, block->SpansOf(i));
        };
        work.Add([&maker, block] { maker.Read(*block); }, complete);
    }
    work.Finish();
}

} // namespace shapedocument
