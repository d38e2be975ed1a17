#pragma once

#include "forms/form1.h"
#include "map/chosen_map.h"
#include "rom/rom_image.h"
#include "saving/save_layers.h"

#include <string>

namespace veldrune {

/// Which of the two saves of a map.
enum class SaveKind { save, save_as };

/// The layers that a save, with the fields as they are, would leave so that they can't be meant, a
/// line each in the order in which they are written; an empty text where there are none. A layer is
/// named where a load after the save would not give it back, where its stream has a byte beyond the
/// largest image, or where it has been moved over the beginning of a stream that maps use. A layer
/// whose stream would be too long is not looked at. Where the disk refuses a read, nothing is
/// named.
std::string doubts_about_layers(const RomImage& rom, const Form1& form, const ChosenMap& map,
                                const PackedLayers& packed, SaveKind kind);

/// Why a world's stream of this length can't be meant to be at a file offset, or an empty text.
std::string doubts_about_world(std::int32_t location, std::size_t length);

} // namespace veldrune
