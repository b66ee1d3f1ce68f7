// Jobs from and into text, so that a failure reads itself.
#pragma once

#include "machine/MachineJob.h"

#include <QString>

#include <string>

/// A run of a job under test.
struct TestRun
{
    unsigned int color;
    std::vector<shapedocument::JobPoint> points;
    shapedocument::PathKind kind = shapedocument::PathKind::Cut;
    size_t shape = 0; ///< 0: the run's number
    bool exact = false;
};

shapedocument::MachineJob JobOf(const std::vector<TestRun>& runs);

/// Of "x,y x,y(bulge) x,y; x,y …", a run and a shape each, of one colour. In front of the points may stand * for
/// another colour, > for a lead-in, < for a lead-out, = for an exact run and "2:" for the shape's number.
shapedocument::MachineJob JobOf(const QString& text);

/// "shape: x,y x,y(bulge) x,y; …" in thousandths of a millimetre.
std::string TextOf(const shapedocument::MachineJob& job);
