/// What panels around the drawing share: fields that show the selection and change it.
#pragma once

#include "document/WorkDocument.h"
#include "look/LengthBox.h"

#include <QTimer>
#include <QWidget>

/// A panel about what is selected. It is brought up to date once after any number of changes, and only while it is
/// seen.
class Panel : public QWidget
{
    Q_OBJECT

public:
    /// document must outlive the panel.
    explicit Panel(WorkDocument& document, QWidget* parent = nullptr);

protected:
    WorkDocument& Document() { return m_document; }
    /// Shows the selection and the drawing as they are. While it runs, Shows() is true, so that fields do not take
    /// their own changes for the user's.
    virtual void Renew() = 0;
    bool Shows() const { return m_shows; }
    /// Brings the panel up to date soon.
    void RenewSoon();
    void showEvent(QShowEvent* event) override;

private:
    WorkDocument& m_document;
    QTimer m_soon;
    bool m_shows = false;
};

/// A field for a number; edits are told at their end. Its name is shown as its tip.
QDoubleSpinBox* NumberBox(const QString& name, double least, double most, int decimals, const QString& unit = {});
/// A field for a length (mm).
look::LengthBox* LengthField(const QString& name, double least, double most, int decimals);
