/// shapedoc group: binds all shapes of a document into one group.
#include "Commands.h"
#include "DocumentArguments.h"
#include "document/InputFile.h"
#include "document/ShapeWalk.h"

#include "group/ShapeGroup.h"

#include "OpenDocument.h"

using namespace shapedocument;

namespace {

struct GroupOptions
{
    QString document;
    Target output;
    StreamFormat format;
};

int Group(const GroupOptions& options)
{
    const QString name = options.document;
    const Document document = OpenDocument(name, options.format);
    ExpectNestable(*document, InputName(name));
    auto group = std::make_unique<CShapeGroup>();
    group->GetShapeList()->AddTail(*document);
    document->RemoveAll();
    for (unsigned int i = 0; i < group->GetShapeList()->GetCount(); ++i)
        group->GetShapeList()->GetShape(i)->SetGroup(true);
    group->ResetPath();
    document->AddTail(group.release());
    SaveDocument(options.output, *document, options.format);
    return 0;
}

} // namespace

void AddGroup(CommandLine& program)
{
    CommandArguments& command = program.AddCommand("group", "Bind all shapes of a document into one group");
    const auto options = std::make_shared<GroupOptions>();
    AddDocument(command, options->document);
    AddOutput(command, options->output).Required();
    AddStreamFormat(command, options->format);
    command.AddExample("group badge.shapes -o group.shapes", "one group of all shapes");
    command.Runs([options] { return Group(*options); });
}
