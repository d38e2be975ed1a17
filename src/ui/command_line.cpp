#include "ui/command_line.h"

#include "editor/select_map.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QMessageBox>

#include <cstdio>

namespace veldrune {

namespace {

struct Parser : QCommandLineParser {
    QCommandLineOption help{{"h", "help"}, "Show this text."};
    QCommandLineOption version{{"v", "version"}, "Show the version."};
    QCommandLineOption map{"map", "Choose map N, 0 to 413, and build its tileset.", "N"};

    Parser() {
        setApplicationDescription("Edits the maps, objects and event scripts of a ROM image.");
        addOptions({help, version, map});
        addPositionalArgument("IMAGE", "The image to open. It must be writable.", "[IMAGE]");
    }
};

// The number of a map; nothing where the text is none.
std::optional<int> map_number(const QString& text) {
    bool is_number = false;
    const int map = text.toInt(&is_number);
    if (!is_number || map < 0 || map >= rom_layout::map_count)
        return std::nullopt;
    return map;
}

// What is wrong with the arguments, or an empty text.
QString fault(const Parser& parser) {
    if (!parser.errorText().isEmpty())
        return parser.errorText();
    const qsizetype images = parser.positionalArguments().size();
    if (images > 1)
        return "More than one image is named.";
    if (!parser.isSet(parser.map))
        return {};
    if (!map_number(parser.value(parser.map)))
        return "There is no map " + parser.value(parser.map) + ".";
    return images == 0 ? "A map needs an image." : QString();
}

// A program without a console may have no standard error: a box says it then.
void report(const QString& wrong) {
    const QString line = "veldrune: " + wrong + '\n';
    if (std::fputs(qPrintable(line), stderr) < 0 || std::fflush(stderr) != 0)
        QMessageBox::critical(nullptr, "Veldrune Map Editor", wrong);
}

} // namespace

bool answer_command_line(int& argc, char** argv) {
    const QCoreApplication application(argc, argv);
    Parser parser;
    parser.parse(QCoreApplication::arguments());
    if (parser.isSet(parser.version))
        std::puts("Veldrune Map Editor " VELDRUNE_VERSION);
    else if (parser.isSet(parser.help))
        std::fputs(qPrintable(parser.helpText()), stdout);
    return parser.isSet(parser.version) || parser.isSet(parser.help);
}

std::optional<CommandLine> read_command_line(const QStringList& arguments) {
    Parser parser;
    parser.parse(arguments);
    if (const QString wrong = fault(parser); !wrong.isEmpty()) {
        report(wrong);
        return std::nullopt;
    }
    const QString image = parser.positionalArguments().value(0);
    return CommandLine{image.isEmpty() ? image : QFileInfo(image).absoluteFilePath(),
                       map_number(parser.value(parser.map))};
}

} // namespace veldrune
