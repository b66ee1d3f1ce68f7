/// Edits that may fail.
#pragma once

#include <functional>

class WorkDocument;

/// What edit answers; false where it throws shapedocument::Failure, which the user is told.
bool Attempt(WorkDocument& document, const std::function<bool()>& edit);
