/// The form of a job's settings.
#pragma once

#include "job/JobSettings.h"
#include "look/LengthBox.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;

/// Shows settings and emits Edited for every change.
class JobForm : public QWidget
{
    Q_OBJECT

public:
    explicit JobForm(QWidget* parent = nullptr);

    /// Shows these without emitting Edited.
    void Show(const JobSettings& settings);
    /// The settings shown; values without a field are as given to Show.
    const JobSettings& Settings() const { return m_settings; }

signals:
    /// The user has changed something.
    void Edited();

private:
    using Get = double (*)(JobSettings& settings);
    using Set = void (*)(JobSettings& settings, double value);

    /// A field, and how to read and set its value.
    struct Field
    {
        QWidget* widget;
        Get get;
        Set set;
        void (*show)(QWidget* widget, double value);
    };

    void AddBed(QFormLayout* form);
    void AddCutting(QFormLayout* form);
    void AddEngraving(QFormLayout* form);
    void AddHeading(QFormLayout* form, const QString& text);
    void AddNumber(QFormLayout* form, const QString& label, double least, double most, int decimals, Get get, Set set);
    void AddLength(QFormLayout* form, const QString& label, double least, double most, int decimals,
                   look::LengthBox::Of of, Get get, Set set);
    void AddSwitch(QFormLayout* form, const QString& label, Get get, Set set);
    void AddChoice(QFormLayout* form, const QString& label, const QStringList& choices, Get get, Set set);
    void Apply(Set set, double value);

    JobSettings m_settings;
    std::vector<Field> m_fields;
    bool m_shows = false; ///< Show is running: changes of fields are not the user's
};
