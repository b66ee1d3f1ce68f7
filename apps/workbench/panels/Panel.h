/// The base of the panels around the drawing, whose fields show and change the selection.
#pragma once

#include "document/WorkDocument.h"
#include "look/LengthBox.h"

#include <QTimer>
#include <QWidget>

/// A panel for the selection. It is updated once after any number of changes, and only while it is visible.
class Panel : public QWidget
{
    Q_OBJECT

public:
    /// document must outlive the panel.
    explicit Panel(WorkDocument& document, QWidget* parent = nullptr);

protected:
    WorkDocument& Document() { return m_document; }
    /// Updates the fields. Meanwhile Shows() is true, so that their changes are not taken for the user's.
    virtual void Renew() = 0;
    bool Shows() const { return m_shows; }
    /// Calls Renew soon.
    void RenewSoon();
    void showEvent(QShowEvent* event) override;

private:
    WorkDocument& m_document;
    QTimer m_soon;
    bool m_shows = false;
};

/// A field for a number, which emits changes when an edit ends. Its name is its tool tip.
QDoubleSpinBox* NumberBox(const QString& name, double least, double most, int decimals, const QString& unit = {});
/// A field for a length (mm).
look::LengthBox* LengthField(const QString& name, double least, double most, int decimals);
