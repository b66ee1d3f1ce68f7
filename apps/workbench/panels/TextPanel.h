/// The panel for words, font and layout of the selected texts.
#pragma once

#include "panels/Panel.h"

#include "text/ShapeText.h"

class QButtonGroup;
class QCheckBox;
class QFontComboBox;
class QPlainTextEdit;
class QToolButton;

/// Shows the first selected text; each field changes its value in all of them.
class TextPanel : public Panel
{
    Q_OBJECT

public:
    explicit TextPanel(WorkDocument& document, QWidget* parent = nullptr);

    /// Whether any of the shapes is a text.
    static bool IsFor(const std::vector<CShape*>& shapes);

protected:
    void Renew() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Change(const QString& name, const std::function<void(SText&)>& edit);
    void ApplyWords();
    QWidget* MakeStyles();

    QPlainTextEdit* m_words;
    QFontComboBox* m_font;
    look::LengthBox* m_size;
    look::LengthBox* m_letters;
    look::LengthBox* m_lines;
    QToolButton* m_bold;
    QToolButton* m_italic;
    QButtonGroup* m_align;
    QCheckBox* m_columns;
};
