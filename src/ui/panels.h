#pragma once

#include "ui/controls.h"

class QWidget;

namespace veldrune {

class MapPicture;

/// The map picture with its scroll bars and the path of the image above it.
QWidget* make_picture_panel(const Controls& controls, MapPicture* picture);

/// Map list, build buttons, tools and view. Ctrl and the wheel over picture press the zoom buttons.
QWidget* make_tools_panel(const Controls& controls, MapPicture* picture);

/// The properties of the map and the notes.
QWidget* make_properties_panel(const Controls& controls);

} // namespace veldrune
