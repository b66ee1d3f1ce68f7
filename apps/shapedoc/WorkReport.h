/// What is told of a document's work, in words or as marks in a picture.
#pragma once

#include "machine/JobReport.h"

class CommandArguments;
class CommandOption;
class CShapeList;
class PreparedWork;
struct JobArguments;

/// --gap.
CommandOption AddGapOption(CommandArguments& command, double& widestGap);

/// Of the work that was made of the document, which is still there behind it. Throws Failure, naming file.
shapedocument::JobReport ReportOfWork(PreparedWork& work, CShapeList& document, const JobArguments& arguments,
                                      double widestGap, const QString& file);
