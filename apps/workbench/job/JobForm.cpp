#include "job/JobForm.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>

using namespace shapedocument;
using look::LengthBox;

namespace {

/// Sets the dialect. Powers above those that its firmware accepts are reduced to its full power.
void SetDialect(JobSettings& settings, double number)
{
    settings.gcode.dialect = &kGcodeDialects.at(static_cast<size_t>(number));
    if (!settings.gcode.dialect->boundedPower)
        return;
    settings.gcode.power = std::min(settings.gcode.power, settings.gcode.dialect->fullPower);
    settings.gcode.mostPower = std::min(settings.gcode.mostPower, settings.gcode.dialect->fullPower);
}

/// The power, limited to the dialect's full power where S words have a bound.
double PowerOf(const JobSettings& settings, double power)
{
    const GcodeDialect& dialect = *settings.gcode.dialect;
    return dialect.boundedPower ? std::min(power, dialect.fullPower) : power;
}

} // namespace

JobForm::JobForm(QWidget* parent) : QWidget(parent)
{
    auto* form = new QFormLayout(this);
    form->setContentsMargins(6, 6, 6, 6);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    AddBed(form);
    AddCutting(form);
    AddEngraving(form);
    Show(m_settings);
}

void JobForm::AddBed(QFormLayout* form)
{
    AddHeading(form, tr("Machine"));
    AddLength(
        form, tr("Bed &width"), 1, kWidestBed, 1, LengthBox::Of::Length, [](JobSettings& s) { return s.bed.width(); },
        [](JobSettings& s, double value) { s.bed.setWidth(value); });
    AddLength(
        form, tr("Bed hei&ght"), 1, kWidestBed, 1, LengthBox::Of::Length, [](JobSettings& s) { return s.bed.height(); },
        [](JobSettings& s, double value) { s.bed.setHeight(value); });
    AddChoice(
        form, tr("&Origin"), {tr("bottom left"), tr("top left")}, [](JobSettings& s) { return double(s.yDown); },
        [](JobSettings& s, double value) { s.yDown = value > 0; });
    AddChoice(
        form, tr("Fir&mware"), QStringList(kGcodeDialectNames.begin(), kGcodeDialectNames.end()),
        [](JobSettings& s) { return double(s.gcode.dialect - kGcodeDialects.data()); }, SetDialect);
}

void JobForm::AddCutting(QFormLayout* form)
{
    AddHeading(form, tr("Cutting, where a layer says nothing else"));
    AddLength(
        form, tr("Fee&d"), 1, kMostFeed, 0, LengthBox::Of::Feed, [](JobSettings& s) { return s.gcode.feed; },
        [](JobSettings& s, double value) { s.gcode.feed = value; });
    AddNumber(
        form, tr("&Power"), 0, kMostPower, 0, [](JobSettings& s) { return s.gcode.power; },
        [](JobSettings& s, double value) { s.gcode.power = PowerOf(s, value); });
    AddNumber(
        form, tr("P&asses"), 1, kMostPasses, 0, [](JobSettings& s) { return double(s.gcode.passes); },
        [](JobSettings& s, double value) { s.gcode.passes = int(value); });
    AddSwitch(
        form, tr("Lead-in and lead-out &lines"), [](JobSettings& s) { return double(s.job.leads); },
        [](JobSettings& s, double value) { s.job.leads = value > 0; });
    AddSwitch(
        form, tr("A&rcs for curves"), [](JobSettings& s) { return double(s.job.arcs); },
        [](JobSettings& s, double value) { s.job.arcs = value > 0; });
}

void JobForm::AddEngraving(QFormLayout* form)
{
    AddHeading(form, tr("Engraving"));
    AddSwitch(
        form, tr("Engrave pi&ctures and filled outlines"), [](JobSettings& s) { return double(s.job.engraved); },
        [](JobSettings& s, double value) { s.job.engraved = value > 0; });
    AddNumber(
        form, tr("Li&nes per mm"), 1, kFinestLines, 1, [](JobSettings& s) { return s.engraving.linesPerMm; },
        [](JobSettings& s, double value) { s.engraving.linesPerMm = value; });
    AddLength(
        form, tr("Feed &in rows"), 1, kMostFeed, 0, LengthBox::Of::Feed,
        [](JobSettings& s) { return s.gcode.engraveFeed; },
        [](JobSettings& s, double value) { s.gcode.engraveFeed = value; });
    AddNumber(
        form, tr("Power of &black"), 0, kMostPower, 0, [](JobSettings& s) { return s.gcode.mostPower; },
        [](JobSettings& s, double value) { s.gcode.mostPower = PowerOf(s, value); });
    AddLength(
        form, tr("Run-&up"), 0, kLongestRunUp, 1, LengthBox::Of::Length,
        [](JobSettings& s) { return s.gcode.overscan; },
        [](JobSettings& s, double value) { s.gcode.overscan = value; });
    AddSwitch(
        form, tr("Dots in place of gre&ys"), [](JobSettings& s) { return double(s.engraving.dither); },
        [](JobSettings& s, double value) { s.engraving.dither = value > 0; });
}

void JobForm::AddHeading(QFormLayout* form, const QString& text)
{
    auto* label = new QLabel("<b>" + text.toHtmlEscaped() + "</b>");
    label->setWordWrap(true);
    label->setContentsMargins(0, form->rowCount() > 0 ? 8 : 0, 0, 0);
    form->addRow(label);
}

void JobForm::AddNumber(QFormLayout* form, const QString& label, double least, double most, int decimals, Get get,
                        Set set)
{
    auto* field = new QDoubleSpinBox;
    field->setRange(least, most);
    field->setDecimals(decimals);
    field->setKeyboardTracking(false);
    field->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    form->addRow(label, field);
    connect(field, &QDoubleSpinBox::valueChanged, this, [this, set](double value) { Apply(set, value); });
    m_fields.push_back({field, get, set,
                        [](QWidget* widget, double value) { static_cast<QDoubleSpinBox*>(widget)->setValue(value); }});
}

void JobForm::AddLength(QFormLayout* form, const QString& label, double least, double most, int decimals,
                        LengthBox::Of of, Get get, Set set)
{
    auto* field = new LengthBox(least, most, decimals, of);
    field->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    form->addRow(label, field);
    connect(field, &LengthBox::Edited, this, [this, set](double value) { Apply(set, value); });
    m_fields.push_back({field, get, set,
                        [](QWidget* widget, double value) { static_cast<LengthBox*>(widget)->SetMillimetres(value); }});
}

void JobForm::AddSwitch(QFormLayout* form, const QString& label, Get get, Set set)
{
    auto* field = new QCheckBox(label);
    form->addRow(field);
    connect(field, &QCheckBox::toggled, this, [this, set](bool on) { Apply(set, on ? 1 : 0); });
    m_fields.push_back({field, get, set,
                        [](QWidget* widget, double value) { static_cast<QCheckBox*>(widget)->setChecked(value > 0); }});
}

void JobForm::AddChoice(QFormLayout* form, const QString& label, const QStringList& choices, Get get, Set set)
{
    auto* field = new QComboBox;
    field->addItems(choices);
    form->addRow(label, field);
    connect(field, &QComboBox::currentIndexChanged, this, [this, set](int index) { Apply(set, index); });
    m_fields.push_back({field, get, set, [](QWidget* widget, double value) {
                            static_cast<QComboBox*>(widget)->setCurrentIndex(int(value));
                        }});
}

void JobForm::Show(const JobSettings& settings)
{
    m_settings = settings;
    m_shows = true;
    for (const Field& field : m_fields)
        field.show(field.widget, field.get(m_settings));
    m_shows = false;
}

/// Applies a field's value. It may change other settings, so all are shown again.
void JobForm::Apply(Set set, double value)
{
    if (m_shows)
        return;
    set(m_settings, value);
    Show(JobSettings(m_settings));
    emit Edited();
}
