/// The program as its users see it: its commands, exit codes and environment.
#pragma once

class CommandLine;

void AddEverything(CommandLine& program, bool& verbose);
