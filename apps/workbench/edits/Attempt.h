/// Edits that may fail.
#pragma once

#include <functional>

class WorkDocument;

/// Returns the result of edit; false where it throws shapedocument::Failure, which is shown to the user.
bool Attempt(WorkDocument& document, const std::function<bool()>& edit);
