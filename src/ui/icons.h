#pragma once

#include <QIcon>

class QPalette;

namespace veldrune {

/// The icons of tools and buttons.
enum class Icon { none, zoom_in, zoom_out, draw, get_tile, objects };

/// An icon in the colours of the palette; empty for Icon::none.
QIcon tool_icon(Icon icon, const QPalette& colours);

QIcon window_icon();

} // namespace veldrune
