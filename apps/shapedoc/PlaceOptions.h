/// Options for the places of a document's drawings.
#pragma once

#include "CommandLine.h"
#include "document/Placement.h"

#include <memory>

class CShape;

struct PlaceOptions
{
    std::vector<std::string> at;
    std::optional<double> gap;
    std::string grid;

    bool IsGiven() const { return !at.empty() || gap || !grid.empty(); }
};

void AddPlaceOptions(CommandArguments& command, PlaceOptions& options, const CommandOption& folder);

/// Throws UsageError if the options contradict each other or do not suit the number of drawings.
shapedocument::Places PlacesOf(const PlaceOptions& options, size_t drawings);

/// What was read of one file.
struct ReadShapes
{
    QString file;
    std::vector<std::unique_ptr<CShape>> shapes;
};

/// Moves the drawings to their places. Warns of those that overlap. Throws Failure if one would be out of reach.
void MoveToPlaces(const std::vector<ReadShapes>& drawings, const shapedocument::Places& places);
