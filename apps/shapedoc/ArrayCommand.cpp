/// shapedoc array: repeats all shapes of a document over a grid.
#include "Arguments.h"
#include "Commands.h"
#include "Failure.h"

#include "group/ShapeArray.h"

#include <CLI/CLI.hpp>

namespace {

struct ArrayOptions
{
    std::string document;
    std::string output;
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

int Array(const ArrayOptions& options)
{
    const Document document = ReadDocument(FileName(options.document), options.format);
    auto array = std::make_unique<CShapeArray>();
    array->SetShapeList(document.get());
    document->RemoveAll();
    array->SetArrayInfo(options.rows, options.columns, options.gap[0], options.gap[1], options.shift[0],
                        options.shift[1]);
    DeleteCells(*array, options.deleted);
    document->AddTail(array.release());
    WriteDocument(FileName(options.output), *document, options.format);
    return 0;
}

} // namespace

void AddArray(CLI::App& app, Command& chosen)
{
    constexpr int kMostPerSide = 10'000;
    CLI::App* command = app.add_subcommand("array", "Repeat all shapes of a document over a grid of cells");
    const auto options = std::make_shared<ArrayOptions>();
    AddDocument(*command, options->document);
    AddOutput(*command, options->output);
    AddStreamFormat(*command, options->format);
    const CLI::Range counts(1, kMostPerSide);
    command->add_option("--rows", options->rows, "number of rows")->check(counts)->capture_default_str();
    command->add_option("--cols", options->columns, "number of columns")->check(counts)->capture_default_str();
    AddNumbers(*command, "--gap", options->gap, 2, "COLUMNS,ROWS in mm between neighbours");
    AddNumbers(*command, "--shift", options->shift, 2, "X,Y in mm: odd rows move right by X, odd columns down by Y");
    command->add_option("--delete", options->deleted, "numbers of cells to leave out, counted row by row from 0")
        ->delimiter(',');
    command->callback([&chosen, options] { chosen = [options] { return Array(*options); }; });
}
