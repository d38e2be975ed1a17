#pragma once

#include <QIcon>

class QPalette;

namespace veldrune {

/// The small pictures of tools and buttons.
enum class Icon { none, zoom_in, zoom_out, draw, get_tile, objects };

/// A small picture in the colours of its surroundings; empty for none.
QIcon tool_icon(Icon icon, const QPalette& colours);

QIcon window_icon();

} // namespace veldrune
