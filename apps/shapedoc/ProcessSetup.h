/// What the program is to its surroundings: signals and standard streams.
#pragma once

/// To be called first. A closed standard stream is held by one that fails, so that no file takes its number; signals
/// that end the program remove its unfinished files; a limit of the file size shows as a write error.
void SetUpProcess();
