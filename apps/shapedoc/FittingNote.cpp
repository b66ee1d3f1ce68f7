#include "FittingNote.h"

#include "Messages.h"
#include "fit/OutlineFit.h"

void SayWhetherFitted(std::FILE* stream)
{
    if (shapedocument::IsFittingOn())
        PrintLine(stream, "curve fitting was on");
}
