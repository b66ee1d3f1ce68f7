/// How the workbench looks: its themes, its icons, and the colours of everything that is painted.
#pragma once

#include <QColor>
#include <QIcon>

class QApplication;

namespace look {

/// Which palette the windows have.
enum class Theme
{
    System, ///< that of the desktop
    Light,
    Dark
};

/// Sets style and palette of the whole application. Windows that are open follow.
void Apply(QApplication& application, Theme theme);

/// Whether texts are lighter than what is behind them.
bool IsDark();

/// By its name as icon themes have it. With the desktop's theme its own icon where it has one, else the bundled one,
/// which is drawn in the palette's colours at any size. An unknown name gives an icon without a picture.
QIcon Icon(const QString& name);

/// The program's own icon.
QIcon ProgramIcon();

/// A square in the colour, for lists and menus.
QIcon Swatch(QRgb color);

// Of drawings, for the present palette.

QColor Outside();    ///< around the bed
QColor Bed();        ///< the sheet that lies on the machine
QColor BedEdge();    ///< around it
QColor Grid();       ///< fine lines
QColor CoarseGrid(); ///< every tenth of them
QColor RulerBack();  ///< behind the numbers of rulers
QColor RulerText();  ///< their numbers and ticks
QColor Marker();     ///< selection frames, handles and marquees
QColor Burned();     ///< what is engraved with the whole power
QColor Travel();     ///< moves of the head without burning
QColor Head();       ///< the head itself
QColor Problem();    ///< findings that spoil the work
QColor Hint();       ///< other findings

/// The colour of a shape's lines as they can be seen on the bed: lighter or darker than asked for where they would
/// vanish.
QColor LineColor(QRgb color);

} // namespace look
