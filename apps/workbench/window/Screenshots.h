/// Pictures of the window for the pages.
#pragma once

#include <QStringList>

/// Goes through a whole job in a window of its own, from a drawing and a picture to G-code, and draws six states of it
/// into the folder as workbench-1-import.png and so on. @return the program's exit code
int DrawScreenshots(const QString& folder, const QStringList& files);
