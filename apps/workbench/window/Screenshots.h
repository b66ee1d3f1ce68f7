/// Draws pictures of the window for the documentation.
#pragma once

#include <QStringList>

/// Makes a whole job in a new window, from a drawing and a picture to G-code, and draws six states into the folder as
/// workbench-1-import.png and so on. @return the program's exit code
int DrawScreenshots(const QString& folder, const QStringList& files);
