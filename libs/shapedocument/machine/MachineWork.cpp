#include "machine/MachineWork.h"

#include "machine/Engraving.h"

#include <algorithm>

namespace shapedocument {

QRectF MachineWork::Rect() const
{
    if (EngravedShapes() == 0)
        return job.Rect();
    return job.PathCount() == 0 ? engraving->Rect() : job.Rect().united(engraving->Rect());
}

size_t MachineWork::EngravedShapes() const
{
    return engraving ? engraving->ShapeCount() : 0;
}

size_t MachineWork::ShapeNumber(const MachinePath& path) const
{
    return path.shape + EngravedShapes();
}

size_t MachineWork::ForEachRow(const std::function<void(const EngraveRow&)>& take) const
{
    size_t rows = 0, read = 0;
    if (!engraving)
        return rows;
    const auto count = [&] { // white rows, too: a white picture takes as long as a black one
        ++read;
        if (progress)
            progress(std::min(read, engraving->RowCount()), engraving->RowCount());
    };
    engraving->ForEachRow(
        [&](const EngraveRow& row) {
            take(row);
            ++rows;
        },
        count);
    return rows;
}

} // namespace shapedocument
