/// The commands. Each is one file with one of these functions, which declares the command's arguments and what it does.
#pragma once

class CommandLine;

void AddArray(CommandLine& program);
void AddCheck(CommandLine& program);
void AddFit(CommandLine& program);
void AddGroup(CommandLine& program);
void AddImport(CommandLine& program);
void AddInfo(CommandLine& program);
void AddLines(CommandLine& program);
void AddRender(CommandLine& program);
void AddRepair(CommandLine& program);
void AddTransform(CommandLine& program);
