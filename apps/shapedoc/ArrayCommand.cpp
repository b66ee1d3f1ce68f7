/// shapedoc array: repeats all shapes of a document over a grid.
#include "Commands.h"
#include "DocumentArguments.h"
#include "OpenDocument.h"
#include "document/Failure.h"
#include "document/InputFile.h"
#include "document/ShapeWalk.h"

#include "group/CellLimit.h"
#include "group/ShapeArray.h"

using namespace shapedocument;
using shapes::kMostCellsPerSide;

namespace {

struct ArrayOptions
{
    QString document;
    Target output;
    StreamFormat format;
    int rows = 1;
    int columns = 1;
    std::vector<double> gap{0, 0};
    std::vector<double> shift{0, 0};
    std::vector<int> deleted;
};

void DeleteCells(CShapeArray& array, const std::vector<int>& cells)
{
    const auto count = array.GetShapeArrayInfo().size();
    for (const int cell : cells) {
        if (cell < 0 || cell >= count)
            throw Failure{"--delete", QString("there is no cell %1 among %2").arg(cell).arg(count)};
        array.SetInvalid(cell);
    }
}

/// Throws Failure if the library has made fewer cells than asked for, or cells out of reach.
void ExpectAllCells(CShapeArray& array, const ArrayOptions& options)
{
    const qint64 wanted = qint64{options.rows} * options.columns, made = array.GetShapeArrayInfo().size();
    const QString cells = QString("%1 rows of %2 cells").arg(options.rows).arg(options.columns);
    if (made != wanted)
        throw Failure{"--rows, --cols", QString("%1 are too many (%2 of %3 made)").arg(cells).arg(made).arg(wanted)};
    if (!WithinReach(array.GetAllRect()))
        throw Failure{"--rows, --cols", cells + " go beyond a kilometre"};
}

int Array(const ArrayOptions& options)
{
    const QString name = options.document;
    const Document document = OpenDocument(name, options.format);
    ExpectNestable(*document, InputName(name));
    auto array = std::make_unique<CShapeArray>();
    array->SetShapeList(document.get());
    document->RemoveAll();
    array->SetArrayInfo(options.rows, options.columns, options.gap[0], options.gap[1], options.shift[0],
                        options.shift[1]);
    ExpectAllCells(*array, options);
    DeleteCells(*array, options.deleted);
    document->AddTail(array.release());
    SaveDocument(options.output, *document, options.format);
    return 0;
}

} // namespace

void AddArray(CommandLine& program)
{
    CommandArguments& command = program.AddCommand("array", "Repeat all shapes of a document over a grid of cells");
    const auto options = std::make_shared<ArrayOptions>();
    AddDocument(command, options->document);
    AddOutput(command, options->output).Required();
    AddStreamFormat(command, options->format);
    command.AddInteger("--rows=N", options->rows, {1, kMostCellsPerSide}, "number of rows");
    command.AddInteger("--cols=N", options->columns, {1, kMostCellsPerSide}, "number of columns");
    command.AddNumbers("--gap=COLUMNS,ROWS", options->gap, 2, kPlaces, "mm between neighbours");
    command.AddNumbers("--shift=X,Y", options->shift, 2, kPlaces,
                       "mm: odd rows move right by X, odd columns down by Y");
    command.AddIntegers("--delete=N,...", options->deleted, {0, kMostCellsPerSide * kMostCellsPerSide},
                        "cells to leave out, counted row by row from 0");
    command.AddExample("array badge.shapes -o sheet.shapes --rows 3 --cols 4 --gap 6,6", "twelve badges, 6 mm apart");
    command.Runs([options] { return Array(*options); });
}
