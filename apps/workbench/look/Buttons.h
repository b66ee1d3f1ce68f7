/// Small flat buttons.
#pragma once

#include <QString>

class QToolButton;

namespace look {

/// A button with an icon; its name is its tool tip. The caller gives it a parent.
QToolButton* IconButton(const char* icon, const QString& name);
/// A button with a letter instead of an icon.
QToolButton* LetterButton(const QString& letter, const QString& name);

} // namespace look
