#include "editor/event_editor.h"
#include "support/object_image.h"
#include "support/screen_reader.h"
#include "support/window_test.h"

#include <set>

namespace veldrune::test {
namespace {

// A control, or the buttons of a group in the order of their values, and what the state holds for
// it. What a user changes by it is nothing else, or it only shows or loads.
struct Field {
    QString controls;
    std::function<QString()> held;
    std::function<void()> change; // gives the state another value
    bool only_shown;

    Field(const char* names, std::string& text, bool shows = false)
        : controls(names), held([&] { return QString::fromStdString(text); }),
          change([&] { text += "5A"; }), only_shown(shows) {}
    template <typename Value>
    Field(const char* names, Value& value, bool shows = false)
        : controls(names), held([&] { return QString::number(static_cast<int>(value)); }),
          change([&] { value = static_cast<Value>(static_cast<int>(value) == 0); }),
          only_shown(shows) {}
};

// The name of a member is the name of its control.
#define FIELD(form, name)                                                                          \
    { #name, (form).name }
#define SHOWN(form, name)                                                                          \
    { #name, (form).name, true }

// By mouse and keyboard, or through what a screen reader uses.
enum class Way { hands, screen_reader };

// Changes a field. False where it can't be reached.
bool enter(const WindowDriver& works, const Field& field, Way way) {
    const QStringList controls = field.controls.split(' ');
    const bool first_is_pressed = controls.size() > 1 && works.is_checked(controls[0]);
    const QString& control = controls[first_is_pressed ? 1 : 0];
    QWidget& widget = works.find(control);
    if (field.only_shown || !widget.isVisible() || !widget.isEnabled())
        return false;
    if (way == Way::screen_reader)
        screen_reader::set(widget, field.held() == "1" ? "2" : "1");
    else if (widget.inherits("QAbstractButton"))
        works.click(control);
    else if (widget.inherits("QComboBox") || widget.inherits("QScrollBar"))
        QTest::keyClick(&widget, field.held() == "0" ? Qt::Key_Down : Qt::Key_Up);
    else
        works.type(control, field.held() == "3" ? "4" : "3");
    return true;
}

class FieldsTest : public WindowTest {
  protected:
    using Values = std::map<QString, QString>;

    void SetUp() override {
        WindowTest::SetUp();
        for (const ObjectKind kind : all_kinds)
            put_objects(disk["a.smc"], kind, town, std::vector(2, Bytes(place_of(kind).size)));
        open_map(town);
    }
    // What the state holds for the fields, and what their controls show.
    static Values values(const WindowDriver& works, const std::vector<Field>& fields) {
        Values all;
        for (const Field& field : fields) {
            all["held " + field.controls] = field.held();
            QString& shown = all["shown " + field.controls];
            for (const QString& control : field.controls.split(' '))
                shown += works.find(control).inherits("QAbstractButton")
                             ? QString(works.is_checked(control) ? "*" : " ")
                             : QString::fromStdString(works.text(control));
        }
        return all;
    }
    // Goes through the fields of a window as it is, from the window and from the state.
    void expect_each_its_own(const WindowDriver& works, const std::vector<Field>& fields) {
        Values before = values(works, fields);
        const auto expect_changed = [&](const Field& field) {
            QStringList changed;
            const Values after = values(works, fields);
            for (const auto& [name, value] : after)
                if (before.at(name) != value)
                    changed << name;
            if (field.controls == "TabStrip1")
                changed.removeOne("shown Combo2"); // whose lines are the tab's
            const QString own = "held " + field.controls + ", shown " + field.controls;
            EXPECT_EQ(changed.join(", ").toStdString(), own.toStdString());
            before = after;
        };
        for (const Field& field : fields)
            for (const Way way : {Way::hands, Way::screen_reader})
                if (enter(works, field, way)) {
                    entered.insert(field.controls);
                    expect_changed(field);
                }
        for (const Field& field : fields) {
            field.change();
            window.open_file("missing.smc"); // shows the state and changes nothing
            expect_changed(field);
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
        FIELD(form, Combo1), {"HScroll1", form.HScroll1.value}, {"VScroll1", form.VScroll1.value},
        {"HScroll2", form.HScroll2.value}, {"VScroll2", form.VScroll2.value},
        FIELD(form, Text1),  FIELD(form, Text2),  FIELD(form, Text3),  FIELD(form, Text5),  FIELD(form, Text6),
        FIELD(form, Text7),  FIELD(form, Text8),  FIELD(form, Text9),  FIELD(form, Text10), FIELD(form, Text11),
        FIELD(form, Text12), FIELD(form, Text13), FIELD(form, Text14), FIELD(form, Text16), FIELD(form, Text17),
        FIELD(form, Text18), FIELD(form, Text20), FIELD(form, Text21), FIELD(form, Text22), FIELD(form, Text23),
        FIELD(form, Text24), FIELD(form, Text25), FIELD(form, Text37), FIELD(form, Text39), FIELD(form, Text40),
        FIELD(form, Text41), FIELD(form, Text42), FIELD(form, Text43), FIELD(form, Text44), FIELD(form, Text45),
        FIELD(form, Text46), FIELD(form, Check1), FIELD(form, Check2), FIELD(form, Check3), FIELD(form, Check4),
        FIELD(form, Check5), FIELD(form, Check6), FIELD(form, Check7), FIELD(form, Check8),
        {"Option1 Option2 Option3", form.edit_layer}, {"Option10 Option11 Option12", form.tool},
        {"Option5 Option4", form.grid_on},
        SHOWN(form, Text4),   SHOWN(form, Label20), SHOWN(form, Label26), SHOWN(form, Label27),
        SHOWN(form, Label28), SHOWN(form, Label29), SHOWN(form, Label30),
    };
    const std::set<QString> fields_of_worlds = {"HScroll2", "VScroll2", "Text20", "Text24", "Check3", "Check4",
                                                "Option10 Option11 Option12", "Option5 Option4"};
    // clang-format on
    state->changes_saved = false; // another row of Combo1 asks, and Cancel leaves the row alone
    answers.answers = {false, false};
    expect_each_its_own(user, fields);
    std::set<QString> entered_in_map = std::exchange(entered, {});
    user.choose("Dusk");
    expect_each_its_own(user, {fields.begin() + 1, fields.end()});
    EXPECT_EQ(entered, fields_of_worlds);
    entered.merge(entered_in_map);
    expect_all_entered(fields);
}

TEST_F(FieldsTest, OfTheObjectWindow) {
    Form10& form10 = state->form10;
    // clang-format off
    const std::vector<Field> fields = {
        FIELD(form10, Text1),  FIELD(form10, Text2),  FIELD(form10, Text4),  FIELD(form10, Text5),  FIELD(form10, Text6),
        FIELD(form10, Text7),  FIELD(form10, Combo1), FIELD(form10, Combo2), FIELD(form10, Combo3), FIELD(form10, Combo4),
        FIELD(form10, Check1), FIELD(form10, Check2), FIELD(form10, Check3),
        {"Option1 Option2 Option3 Option4 Option5", form10.option}, SHOWN(form10, Label10),
        {"HScroll1", form10.HScroll1.value, true}, SHOWN(form10, TabStrip1),
    };
    // clang-format on
    for (const ObjectKind kind : all_kinds) {
        show_object(kind, 1);
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
    show_object(ObjectKind::npc);
    driver("Form10").choose("Event_Editor");
    on_script_click(*state, 1, primary);
    state->script.entry.awaited = Awaited::value; // for which no list opens
    user.click("Command1");
    const std::vector<Field> script = {FIELD(state->form9, Text2), FIELD(state->form9, Text3)};
    const std::vector<Field> palette = {{"Option1 Option2 Option3", state->form2.layer}};
    expect_each_its_own(driver("Form9"), script);
    expect_each_its_own(driver("Form2"), palette);
    expect_all_entered(script);
    expect_all_entered(palette);
}

} // namespace
} // namespace veldrune::test
