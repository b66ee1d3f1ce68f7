#include "edits/Attempt.h"

#include "document/Questions.h"
#include "document/WorkDocument.h"

#include "document/Failure.h"

bool Attempt(WorkDocument& document, const std::function<bool()>& edit)
{
    try {
        return edit();
    } catch (const shapedocument::Failure& failure) {
        document.Ask().Complain(failure.file + ": " + failure.reason);
        return false;
    }
}
