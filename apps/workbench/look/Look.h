/// The look of the workbench: themes, icons, and the colours of everything painted.
#pragma once

#include <QColor>
#include <QIcon>

class QApplication;

namespace look {

/// The palette of the windows.
enum class Theme
{
    System, ///< the desktop's palette
    Light,
    Dark
};

/// Sets style and palette of the whole application, open windows included.
void Apply(QApplication& application, Theme theme);

/// Whether texts are lighter than their background.
bool IsDark();

/// The icon with that name, as icon themes have it. In the theme System the desktop's icon if it has one, else the
/// bundled one, which is drawn in the palette's colours at any size. An unknown name gives an empty icon.
QIcon Icon(const QString& name);

/// The program's own icon.
QIcon ProgramIcon();

/// A square of that colour, for lists and menus.
QIcon Swatch(QRgb color);

// Colours of drawings, for the present palette.

QColor Outside();    ///< around the bed
QColor Bed();        ///< the sheet on the machine
QColor BedEdge();    ///< around it
QColor Grid();       ///< fine lines
QColor CoarseGrid(); ///< every tenth of them
QColor RulerBack();  ///< behind the numbers of rulers
QColor RulerText();  ///< their numbers and ticks
QColor Marker();     ///< selection frames, handles and marquees
QColor Burned();     ///< outlines that are filled with full power
QColor Card();       ///< with the dark palette: behind pictures, which burn in black in every palette
QColor Travel();     ///< moves of the head without burning
QColor Head();       ///< the head itself
QColor Problem();    ///< findings that spoil the work
QColor Hint();       ///< other findings

/// The colour in which a shape's lines are visible on the bed: lighter or darker than color where that would be hard to
/// see.
QColor LineColor(QRgb color);

} // namespace look
