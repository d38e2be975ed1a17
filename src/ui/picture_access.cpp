#include "ui/picture_access.h"

#include "ui/pixel_picture.h"

#include <QAccessibleWidget>

namespace veldrune {

namespace {

// Name and description are those of the widget, which announces a new description itself.
QAccessibleInterface* picture_interface(const QString&, QObject* object) {
    auto* picture = dynamic_cast<PixelPicture*>(object);
    return picture ? new QAccessibleWidget(picture, QAccessible::Graphic) : nullptr;
}

} // namespace

void name_pictures_graphics() {
    QAccessible::installFactory(picture_interface); // has an effect only once
}

} // namespace veldrune
