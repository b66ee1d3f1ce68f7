#include "panels/GeometryPanel.h"

#include "edits/Transforms.h"
#include "look/Buttons.h"

#include "document/Reach.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

using shapedocument::kFarthest;

namespace {

constexpr double kShortest = 1e-3; // mm
constexpr int kDecimals = 3;

void AddField(QGridLayout* grid, int row, int column, const QString& letter, QDoubleSpinBox* field)
{
    auto* label = new QLabel(letter);
    label->setBuddy(field);
    grid->addWidget(label, row, column);
    grid->addWidget(field, row, column + 1);
}

} // namespace

GeometryPanel::GeometryPanel(WorkDocument& document, QWidget* parent)
    : Panel(document, parent), m_left(LengthField(tr("Left edge"), -kFarthest, kFarthest, kDecimals)),
      m_top(LengthField(tr("Top edge"), -kFarthest, kFarthest, kDecimals)),
      m_width(LengthField(tr("Width"), 0, kFarthest, kDecimals)),
      m_height(LengthField(tr("Height"), 0, kFarthest, kDecimals)),
      m_angle(NumberBox(tr("Degrees to turn by, clockwise"), -360, 360, kDecimals, "°")),
      m_proportional(new QCheckBox(tr("&Keep proportions")))
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(6, 6, 6, 6);
    AddField(grid, 0, 0, tr("&X"), m_left);
    AddField(grid, 0, 2, tr("&Y"), m_top);
    AddField(grid, 1, 0, tr("&W"), m_width);
    AddField(grid, 1, 2, tr("H"), m_height);
    grid->addWidget(m_proportional, 2, 1, 1, 3);
    m_proportional->setChecked(true);
    AddField(grid, 3, 0, tr("∠"), m_angle);
    m_angle->setValue(45);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(2);
    const auto add = [&](const char* icon, const QString& name, const std::function<void()>& done) {
        QToolButton* button = look::IconButton(icon, name);
        connect(button, &QToolButton::clicked, this, done);
        buttons->addWidget(button);
    };
    add("object-rotate-right", tr("Turn by these degrees"), [this] { Turn(m_angle->value()); });
    add("object-rotate-left", tr("Turn the other way"), [this] { Turn(-m_angle->value()); });
    add("object-flip-horizontal", tr("Mirror left to right"), [this] { MirrorSelectionX(Document()); });
    add("object-flip-vertical", tr("Mirror top to bottom"), [this] { MirrorSelectionY(Document()); });
    buttons->addStretch();
    grid->addLayout(buttons, 3, 2, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    connect(m_left, &look::LengthBox::Edited, this, &GeometryPanel::MoveTo);
    connect(m_top, &look::LengthBox::Edited, this, &GeometryPanel::MoveTo);
    connect(m_width, &look::LengthBox::Edited, this, [this] { ResizeTo(true); });
    connect(m_height, &look::LengthBox::Edited, this, [this] { ResizeTo(false); });
}

void GeometryPanel::Renew()
{
    m_rect = Document().SelectionRect();
    setEnabled(!Document().Selection().empty());
    m_left->SetMillimetres(m_rect.left());
    m_top->SetMillimetres(m_rect.top());
    m_width->SetMillimetres(m_rect.width());
    m_height->SetMillimetres(m_rect.height());
    m_width->setEnabled(m_rect.width() > kShortest);
    m_height->setEnabled(m_rect.height() > kShortest);
}

void GeometryPanel::MoveTo()
{
    MoveSelection(Document(),
                  QPointF(m_left->Millimetres(), m_top->Millimetres()) - Document().SelectionRect().topLeft());
    RenewSoon();
}

void GeometryPanel::ResizeTo(bool byWidth)
{
    const QRectF rect = Document().SelectionRect();
    QSizeF size(m_width->Millimetres(), m_height->Millimetres());
    if (m_proportional->isChecked() && rect.width() > kShortest && rect.height() > kShortest)
        size = rect.size() * (byWidth ? size.width() / rect.width() : size.height() / rect.height());
    if (size.width() >= (rect.width() > 0 ? kShortest : 0) && size.height() >= (rect.height() > 0 ? kShortest : 0))
        ResizeSelection(Document(), QRectF(rect.topLeft(), size));
    RenewSoon();
}

void GeometryPanel::Turn(double degrees)
{
    TurnSelection(Document(), degrees, Document().SelectionRect().center());
}
