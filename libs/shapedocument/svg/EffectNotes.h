/// What of a drawing's elements, attributes and rules is noted as ignored or left out.
#pragma once

#include "svg/DrawingReport.h"

#include <QXmlStreamReader>

#include <optional>

namespace shapedocument::drawing {

/// Why an element and its content are not copied; none for those that are.
std::optional<Departure> LeftOut(QStringView name, bool hasPrefix);

/// An element that is copied though nothing of it appears.
void NoteElement(QStringView name, const QXmlStreamAttributes& attributes, DrawingReport& report);

/// Filters and masks that an attribute applies.
void NoteEffects(const QString& attribute, const QString& value, DrawingReport& report);

/// Filters, masks and other files that the rules of a style sheet name.
void NoteRules(const QString& rules, DrawingReport& report);

/// The text of entities in other files is not read: nothing stands where they are used.
void NoteEntities(const QXmlStreamEntityDeclarations& entities, DrawingReport& report);

} // namespace shapedocument::drawing
