#include "ui/tips.h"

#include "editor/editor_state.h"

#include <QTextDocument>

namespace veldrune {

namespace {

// The sides that a layer can have: "16, 32 or 64".
QString sides_up_to(int largest) {
    QStringList sides;
    for (int side = min_layer_side; side < largest; side *= 2)
        sides << QString::number(side);
    return QString("%1 or %2").arg(sides.join(", ")).arg(largest);
}

QString sentence_of(NumberForm form) {
    if (is_size(form))
        return QString(": %1. Decimal.")
            .arg(sides_up_to(form == NumberForm::width ? max_layer_width : max_layer_height));
    return is_decimal(form) ? " Decimal." : is_hexadecimal(form) ? " Hexadecimal." : "";
}

} // namespace

QString number_tip(const char* meaning, NumberForm form, std::int64_t limit, std::int64_t largest) {
    const auto text = [form](std::int64_t number) {
        return QString::number(number, is_hexadecimal(form) ? 16 : 10).toUpper();
    };
    return QString(meaning).replace("%1", text(limit)).replace("%2", text(largest)) +
           sentence_of(form);
}

QString plain_tip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace veldrune
