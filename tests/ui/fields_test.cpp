#include "editor/event_editor.h"
#include "editor/object_window.h"
#include "support/object_image.h"
#include "support/window_test.h"

#include <set>
#include <variant>

namespace veldrune::test {
namespace {

constexpr int town = demo::demo_map::town;

/// A control, or the buttons of a group in the order of their values, and what the state holds for
/// it. What a user changes by it is nothing else, or it only shows.
struct Field {
    QString controls;
    std::variant<std::string*, bool*, int*, Tool*> value;
    bool only_shown = false;
};

// The name of a member is the name of its control.
#define FIELD(form, name)                                                                          \
    { #name, &(form).name }
#define SHOWN(form, name)                                                                          \
    { #name, &(form).name, true }

using Values = std::map<QString, QString>;

QString held(const Field& field) {
    return std::visit(
        [](const auto* value) {
            if constexpr (std::is_same_v<decltype(value), const std::string*>)
                return QString::fromStdString(*value);
            else
                return QString::number(static_cast<int>(*value));
        },
        field.value);
}

/// Gives the state another value.
void change(const Field& field) {
    std::visit(
        [](auto* value) {
            if constexpr (std::is_same_v<decltype(value), std::string*>)
                *value += "5A";
            else
                *value = static_cast<std::decay_t<decltype(*value)>>(static_cast<int>(*value) == 0);
        },
        field.value);
}

QString shown(const WindowDriver& user, const Field& field) {
    QString all;
    for (const QString& control : field.controls.split(' '))
        for (const char* property : {"checked", "currentIndex", "value", "plainText", "text"})
            if (const QVariant value = user.find(control).property(property); value.isValid()) {
                all += value.toString() + " ";
                break;
            }
    return all;
}

Values values_of(const std::vector<Field>& fields, const auto& value_of) {
    Values values;
    for (const Field& field : fields)
        values[field.controls] = value_of(field);
    return values;
}

QStringList differing(const Values& before, const Values& after) {
    QStringList names;
    for (const auto& [name, value] : after)
        if (before.at(name) != value)
            names << name;
    return names;
}

/// Changes a field by mouse or keyboard. False where it can't be reached.
bool enter(const WindowDriver& user, const Field& field) {
    const QStringList controls = field.controls.split(' ');
    const bool first_is_pressed = controls.size() > 1 && user.is_checked(controls[0]);
    const QString control = controls[first_is_pressed ? 1 : 0];
    QWidget& widget = user.find(control);
    if (!widget.isVisible() || !widget.isEnabled())
        return false;
    if (widget.inherits("QAbstractButton"))
        user.click(control);
    else if (widget.inherits("QComboBox") || widget.inherits("QScrollBar"))
        QTest::keyClick(&widget, held(field) == "0" ? Qt::Key_Down : Qt::Key_Up);
    else
        user.type(control, held(field) == "3" ? "4" : "3");
    return true;
}

class FieldsTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        put_objects(disk["a.smc"], ObjectKind::npc, town, {Bytes(9)});
        put_objects(disk["a.smc"], ObjectKind::chest, town, {Bytes(5)});
        open_map(town);
    }
    /// Goes through the fields of a window as it stands, and notes those that could be entered.
    void expect_each_its_own(const WindowDriver& works, const std::vector<Field>& fields) {
        const auto all_shown = [&] {
            return values_of(fields, [&](const Field& field) { return shown(works, field); });
        };
        for (const Field& field : fields) {
            const Values shown_before = all_shown(), held_before = values_of(fields, held);
            if (field.only_shown || !enter(works, field))
                continue;
            EXPECT_EQ(differing(held_before, values_of(fields, held)), QStringList(field.controls));
            EXPECT_EQ(differing(shown_before, all_shown()), QStringList(field.controls));
            entered.insert(field.controls);
        }
        for (const Field& field : fields) {
            const Values shown_before = all_shown();
            change(field);
            window.open_file("missing.smc"); // shows the state and changes nothing
            EXPECT_EQ(differing(shown_before, all_shown()), QStringList(field.controls));
        }
    }
    void expect_all_entered(const std::vector<Field>& fields) {
        for (const Field& field : fields)
            EXPECT_NE(field.only_shown, entered.contains(field.controls))
                << qPrintable(field.controls);
    }

    std::set<QString> entered;
};

TEST_F(FieldsTest, OfTheMainWindow) {
    // clang-format off
    const std::vector<Field> fields = {
        {"HScroll1", &form.HScroll1.value}, {"VScroll1", &form.VScroll1.value},
        {"HScroll2", &form.HScroll2.value}, {"VScroll2", &form.VScroll2.value},
        FIELD(form, Text1),  FIELD(form, Text2),  FIELD(form, Text3),  FIELD(form, Text5),  FIELD(form, Text6),
        FIELD(form, Text7),  FIELD(form, Text8),  FIELD(form, Text9),  FIELD(form, Text10), FIELD(form, Text11),
        FIELD(form, Text12), FIELD(form, Text13), FIELD(form, Text14), FIELD(form, Text16), FIELD(form, Text17),
        FIELD(form, Text18), FIELD(form, Text20), FIELD(form, Text21), FIELD(form, Text22), FIELD(form, Text23),
        FIELD(form, Text24), FIELD(form, Text25), FIELD(form, Text37), FIELD(form, Text39), FIELD(form, Text40),
        FIELD(form, Text41), FIELD(form, Text42), FIELD(form, Text43), FIELD(form, Text44), FIELD(form, Text45),
        FIELD(form, Text46), FIELD(form, Check1), FIELD(form, Check2), FIELD(form, Check3), FIELD(form, Check4),
        FIELD(form, Check5), FIELD(form, Check6), FIELD(form, Check7), FIELD(form, Check8),
        {"Option1 Option2 Option3", &form.edit_layer}, {"Option10 Option11 Option12", &form.tool},
        {"Option5 Option4", &form.grid_on},
        SHOWN(form, Combo1),  SHOWN(form, Text4),   SHOWN(form, Label20), SHOWN(form, Label26),
        SHOWN(form, Label27), SHOWN(form, Label28), SHOWN(form, Label29), SHOWN(form, Label30),
    };
    // clang-format on
    expect_each_its_own(user, fields);
    user.choose("Dusk");
    expect_each_its_own(user, fields);
    expect_all_entered(fields);
}

TEST_F(FieldsTest, OfTheObjectWindow) {
    Form10& form10 = state->form10;
    // clang-format off
    const std::vector<Field> fields = {
        FIELD(form10, Text1),  FIELD(form10, Text2),  FIELD(form10, Text4),  FIELD(form10, Text5),  FIELD(form10, Text6),
        FIELD(form10, Text7),  FIELD(form10, Combo1), FIELD(form10, Combo2), FIELD(form10, Combo3), FIELD(form10, Combo4),
        FIELD(form10, Check1), FIELD(form10, Check2), FIELD(form10, Check3),
        {"Option1 Option2 Option3 Option4 Option5", &form10.option}, SHOWN(form10, Label10),
    };
    // clang-format on
    for (const ObjectKind kind : {ObjectKind::npc, ObjectKind::chest}) {
        open_object(*state, kind, 0);
        user.click("Option4"); // any edit shows the state
        expect_each_its_own(driver("Form10"), fields);
    }
    expect_all_entered(fields);
    for (int option = 0; option < 5; ++option) {
        driver("Form10").click(QString("Option%1").arg(option + 1));
        EXPECT_EQ(form10.option, option);
    }
    EXPECT_TRUE(answers.boxes.empty());
}

TEST_F(FieldsTest, OfTheEventEditorAndTheLayerPalette) {
    open_object(*state, ObjectKind::npc, 0);
    user.click("Option4"); // any edit shows the state
    driver("Form10").choose("Event_Editor");
    on_script_click(*state, 1, primary);
    user.click("Command1");
    const std::vector<Field> script = {FIELD(state->form9, Text2), FIELD(state->form9, Text3)};
    const std::vector<Field> palette = {{"Option1 Option2 Option3", &state->form2.layer}};
    expect_each_its_own(driver("Form9"), script);
    expect_each_its_own(driver("Form2"), palette);
    expect_all_entered(script);
    expect_all_entered(palette);
}

} // namespace
} // namespace veldrune::test
