/// Small flat buttons.
#pragma once

#include <QString>

class QToolButton;

namespace look {

/// A button with an icon; its name is shown as its tip. The caller gives it a parent.
QToolButton* IconButton(const char* icon, const QString& name);
/// The same with a letter in the place of an icon.
QToolButton* LetterButton(const QString& letter, const QString& name);

} // namespace look
