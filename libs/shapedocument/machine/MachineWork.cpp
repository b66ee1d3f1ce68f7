#include "machine/MachineWork.h"

#include "machine/Engraving.h"

namespace shapedocument {

QRectF MachineWork::Rect() const
{
    if (!engraving || engraving->ShapeCount() == 0)
        return job.Rect();
    return job.PathCount() == 0 ? engraving->Rect() : job.Rect().united(engraving->Rect());
}

size_t MachineWork::ShapeNumber(const MachinePath& path) const
{
    return path.shape + (engraving ? engraving->ShapeCount() : 0);
}

} // namespace shapedocument
