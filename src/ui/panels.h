#pragma once

#include "ui/controls.h"

class QWidget;

namespace veldrune {

class MapPicture;
class StatusLine;

/// The map picture with its scroll bars, the path of the image above it and what there is to say
/// below it. The picture grows by whole factors where the layout that holds the panel has room.
QWidget* make_picture_panel(const Controls& controls, MapPicture* picture, StatusLine* status);

/// Map list, build buttons, tools and view.
QWidget* make_tools_panel(const Controls& controls);

/// The properties of the map and the notes.
QWidget* make_properties_panel(const Controls& controls);

/// The name of a property, by its control: the captions of its line and of its column.
QString property_caption(const RecordControl& control);

} // namespace veldrune
