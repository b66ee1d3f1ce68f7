/// Signals and standard streams of the program.
#pragma once

/// Call first. Replaces a closed standard stream by one that fails, so that no file gets its descriptor; signals that
/// end the program remove its unfinished files; exceeding the limit of the file size becomes a write error.
void SetUpProcess();
