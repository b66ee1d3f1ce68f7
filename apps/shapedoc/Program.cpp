#include "Program.h"

#include "CommandLine.h"
#include "Commands.h"

namespace {

void Describe(ProgramText& text)
{
    text.examples = {{"import badge.svg -o badge.shapes", "A drawing becomes a document"},
                     {"lines badge.shapes -o badge.gcode --feed 900", "The document's lines for the machine"},
                     {"render badge.shapes -o badge.png --lines", "A picture of the order in which the machine goes"}};
    text.exitCodes = {{"0", "done"},
                      {"1", "failed; one line on standard error says why, and outputs are as they were"},
                      {"2", "wrong arguments; nothing was done"},
                      {"3", "check: the document is faulty; repair: nothing could be saved"},
                      {"4", "import --strict: something is not as it is painted; the document was written. "
                            "lines --strict: something lies outside the bed; nothing was written. "
                            "report: the work would not be what the drawing shows"}};
    text.environment = {{"SHAPEHOST_LOG", "file that the library's log is appended to; without it the log is dropped"},
                        {"SHAPEHOST_THEME", "name of the theme, in whose folder the configuration lies"},
                        {"XDG_CONFIG_HOME", "where the configuration is looked for, instead of ~/.config"},
                        {"TMPDIR", "where jobs and piped inputs are kept for the while, instead of /tmp"},
                        {"LD_LIBRARY_PATH", "also where the curve-fitting plug-in is looked for"},
                        {"QT_QPA_PLATFORM", "how Qt draws; offscreen unless it is set"}};
}

} // namespace

void AddEverything(CommandLine& program, bool& verbose)
{
    program.General().AddFlag("-v,--verbose", verbose, "show the library's log");
    Describe(program.Text());
    AddArray(program);
    AddCheck(program);
    AddFit(program);
    AddGroup(program);
    AddImport(program);
    AddInfo(program);
    AddLines(program);
    AddRender(program);
    AddRepair(program);
    AddReport(program);
    AddTransform(program);
}
