#include "look/Buttons.h"

#include "look/Look.h"

#include <QToolButton>

namespace look {

QToolButton* LetterButton(const QString& letter, const QString& name)
{
    auto* button = new QToolButton;
    button->setText(letter);
    button->setToolTip(name);
    button->setAccessibleName(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

QToolButton* IconButton(const char* icon, const QString& name)
{
    QToolButton* button = LetterButton({}, name);
    button->setIcon(Icon(icon));
    return button;
}

} // namespace look
