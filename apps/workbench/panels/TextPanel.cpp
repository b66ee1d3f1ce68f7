#include "panels/TextPanel.h"

#include "document/TextShape.h"
#include "edits/Texts.h"
#include "look/Buttons.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace {

QToolButton* StyleButton(const QString& letter, const QString& name)
{
    QToolButton* button = look::LetterButton(letter, name);
    button->setCheckable(true);
    QFont font = button->font();
    font.setBold(letter == "B");
    font.setItalic(letter == "I");
    button->setFont(font);
    return button;
}

/// Number of the button for an alignment.
int ButtonOf(ETEXTALIGNMENT_MODE alignment)
{
    return alignment == ETEXTALIGNMENT_CENTER || alignment == ETEXTALIGNMENT_RIGHT ? alignment : ETEXTALIGNMENT_LEFT;
}

} // namespace

TextPanel::TextPanel(WorkDocument& document, QWidget* parent)
    : Panel(document, parent), m_words(new QPlainTextEdit), m_font(new QFontComboBox),
      m_size(LengthField(tr("Size of the font"), shapedocument::kSmallestText, shapedocument::kLargestText, 2)),
      m_letters(
          LengthField(tr("Added between letters"), -shapedocument::kWidestSpacing, shapedocument::kWidestSpacing, 2)),
      m_lines(LengthField(tr("Added between lines"), -shapedocument::kWidestSpacing, shapedocument::kWidestSpacing, 2)),
      m_bold(StyleButton("B", tr("Bold"))), m_italic(StyleButton("I", tr("Italic"))), m_align(new QButtonGroup(this)),
      m_columns(new QCheckBox(tr("In &columns")))
{
    constexpr int kLines = 3;
    m_words->setFixedHeight(m_words->fontMetrics().lineSpacing() * kLines + 12);
    m_words->setTabChangesFocus(true);
    m_words->setAccessibleName(tr("Words"));
    m_words->installEventFilter(this);
    m_font->setMinimumWidth(80);
    m_font->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* form = new QFormLayout(this);
    form->setContentsMargins(6, 6, 6, 6);
    form->addRow(m_words);
    form->addRow(tr("F&ont"), m_font);
    form->addRow(tr("Si&ze"), m_size);
    form->addRow(QString(), MakeStyles());
    form->addRow(tr("&Letters"), m_letters);
    form->addRow(tr("L&ines"), m_lines);
    form->addRow(QString(), m_columns);

    connect(m_font, &QFontComboBox::currentFontChanged, this,
            [this](const QFont& font) { Change(tr("Font"), [&](SText& text) { NameFont(text, font.family()); }); });
    connect(m_size, &look::LengthBox::Edited, this, [this](double size) {
        Change(tr("Size of Font"), [size](SText& text) {
            text.dScaleX = text.dScaleY = size / std::max(1.0, std::floor(text.font.dSize));
        });
    });
    connect(m_letters, &look::LengthBox::Edited, this, [this](double gap) {
        Change(tr("Gaps of Letters"), [gap](SText& text) { text.dCharSpacing = gap / text.dScaleX; });
    });
    connect(m_lines, &look::LengthBox::Edited, this, [this](double gap) {
        Change(tr("Gaps of Lines"), [gap](SText& text) { text.dLineSpacing = gap / text.dScaleX; });
    });
    connect(m_columns, &QCheckBox::toggled, this,
            [this](bool on) { Change(tr("Columns"), [on](SText& text) { text.font.bVerticalText = on; }); });
}

QWidget* TextPanel::MakeStyles()
{
    auto* styles = new QWidget;
    auto* row = new QHBoxLayout(styles);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    row->addWidget(m_bold);
    row->addWidget(m_italic);
    row->addSpacing(8);
    const auto add = [&](const char* icon, const QString& name, ETEXTALIGNMENT_MODE alignment) {
        QToolButton* button = look::IconButton(icon, name);
        button->setCheckable(true);
        m_align->addButton(button, alignment);
        row->addWidget(button);
    };
    add("format-justify-left", tr("Lines to the left"), ETEXTALIGNMENT_LEFT);
    add("format-justify-center", tr("Lines to the middle of the first one"), ETEXTALIGNMENT_CENTER);
    add("format-justify-right", tr("Lines to the right"), ETEXTALIGNMENT_RIGHT);
    row->addStretch();
    connect(m_bold, &QToolButton::toggled, this,
            [this](bool on) { Change(tr("Bold"), [on](SText& text) { text.font.bBold = on; }); });
    connect(m_italic, &QToolButton::toggled, this,
            [this](bool on) { Change(tr("Italic"), [on](SText& text) { text.font.bItalic = on; }); });
    connect(m_align, &QButtonGroup::idClicked, this, [this](int id) {
        Change(tr("Alignment of Lines"), [id](SText& text) { text.nAlign = static_cast<ETEXTALIGNMENT_MODE>(id); });
    });
    return styles;
}

bool TextPanel::IsFor(const std::vector<CShape*>& shapes)
{
    return std::ranges::any_of(shapes, TextOf);
}

void TextPanel::Change(const QString& name, const std::function<void(SText&)>& edit)
{
    if (!Shows())
        ChangeTexts(Document(), name, edit);
}

/// Takes the words when the field loses the focus, so that typing is one undo command.
bool TextPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_words && event->type() == QEvent::FocusOut)
        ApplyWords();
    return Panel::eventFilter(watched, event);
}

void TextPanel::ApplyWords()
{
    if (!m_words->document()->isModified() || m_words->toPlainText().isEmpty())
        return;
    m_words->document()->setModified(false);
    const QString words = m_words->toPlainText();
    ChangeWords(Document(), words);
}

void TextPanel::Renew()
{
    const auto& shapes = Document().Selection();
    const auto found = std::ranges::find_if(shapes, TextOf);
    if (found == shapes.end())
        return;
    const SText text = TextOf(*found)->GetText();
    m_words->setEnabled(std::ranges::count_if(shapes, TextOf) == 1);
    if (const QString words = QString::fromUtf8(text.pText); !m_words->hasFocus() || words != m_words->toPlainText()) {
        m_words->setPlainText(words);
        m_words->document()->setModified(false);
    }
    m_font->setCurrentFont(QFont(QString::fromUtf8(text.font.szFamily)));
    m_size->SetMillimetres(text.dScaleX * std::floor(text.font.dSize));
    m_letters->SetMillimetres(text.dCharSpacing * text.dScaleX);
    m_lines->SetMillimetres(text.dLineSpacing * text.dScaleX);
    m_bold->setChecked(text.font.bBold != 0);
    m_italic->setChecked(text.font.bItalic != 0);
    m_columns->setChecked(text.font.bVerticalText != 0);
    m_align->button(ButtonOf(text.nAlign))->setChecked(true);
}
