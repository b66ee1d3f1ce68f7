/// The sub-commands. Each is one file with one of these functions, which declares the sub-command's arguments.
#pragma once

#include <functional>

namespace CLI {
class App;
}

/// What the chosen sub-command does once the arguments are parsed; answers the exit code. Throws Failure.
using Command = std::function<int()>;

void AddArray(CLI::App& app, Command& chosen);
void AddCheck(CLI::App& app, Command& chosen);
void AddGroup(CLI::App& app, Command& chosen);
void AddFit(CLI::App& app, Command& chosen);
void AddImport(CLI::App& app, Command& chosen);
void AddInfo(CLI::App& app, Command& chosen);
void AddLines(CLI::App& app, Command& chosen);
void AddRender(CLI::App& app, Command& chosen);
void AddRepair(CLI::App& app, Command& chosen);
void AddTransform(CLI::App& app, Command& chosen);
