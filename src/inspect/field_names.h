#pragma once

#include "inspect/listing.h"
#include "inspect/reading.h"

namespace veldrune::inspect {

/// How reports name the values of a map's record and of objects: lower case, "-" between words.
const char* field_name(RecordField field);
const char* field_name(ObjectField field);

/// "npc", "chest", "trigger", "entrance" or "long-entrance".
const char* kind_name(ObjectKind kind);

/// "map 12 npc 3"
std::string object_place(const ObjectAt& object);

/// The column that says of what commands do whether it is sure, and what stands in it.
constexpr Column certainty_column{"certainty", "Certainty", CellForm::words};
const char* certainty(bool sure);

/// A value of a record: a size in tiles, layer data by its number; hexadecimal where the window
/// shows it so.
Cell record_cell(const MapProperties& record, RecordField field);

} // namespace veldrune::inspect
