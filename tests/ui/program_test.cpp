#include "support/editor_fixture.h"
#include "support/window_driver.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>

#include <filesystem>

namespace veldrune::test {
namespace {

namespace fs = std::filesystem;

// Whether a process has a file open, as the system lists its handles.
bool has_open(qint64 process, const fs::path& file) {
    std::error_code error;
    for (const auto& handle :
         fs::directory_iterator("/proc/" + std::to_string(process) + "/fd", error))
        if (fs::read_symlink(handle.path(), error) == file)
            return true;
    return false;
}

// The exit code of the program and all that it says.
std::string words(const QStringList& arguments, const QStringList& left_out = {}) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : left_out)
        environment.remove(name);
    program.setProcessEnvironment(environment);
    program.start(VELDRUNE_PROGRAM, arguments);
    program.waitForFinished();
    QByteArray said = program.readAllStandardOutput() + program.readAllStandardError();
    return std::to_string(program.exitCode()) + " " + said.replace("\r\n", "\n").toStdString();
}

TEST(Program, AnswersOnTheCommandLine) {
    const QStringList display = {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};
    EXPECT_EQ(words({"--version"}, display), "0 Veldrune Map Editor " VELDRUNE_VERSION "\n");
    EXPECT_NE(words({"--help"}, display).find("--map <N>"), std::string::npos);
    const std::pair<QStringList, const char*> wrong[] = {
        {{"--map", "414", "x"}, "There is no map 414."},
        {{"--map", "x", "x"}, "There is no map x."},
        {{"--map", "3"}, "A map needs an image."},
        {{"x", "y"}, "More than one image is named."},
        {{"--no"}, "Unknown option 'no'."}};
    for (const auto& [arguments, said] : wrong) {
        const std::string all = words(arguments); // Qt may have words of its own before them
        EXPECT_TRUE(all.starts_with("2 ")) << all;
        EXPECT_TRUE(all.ends_with(std::string("veldrune: ") + said + "\n")) << all;
    }
}

TEST(Program, SaysThatAnImageCantBeOpenedAndGoesOn) {
    QProcess program;
    program.start(VELDRUNE_PROGRAM, {"--map", "3", "/no/x.smc"});
    QByteArray said;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            said += program.readAllStandardError();
            return said.contains("/no/x.smc can't be opened");
        },
        30000));
    EXPECT_EQ(program.state(), QProcess::Running);
    program.kill();
    program.waitForFinished();
}

TEST(Program, OpensTheImageThatIsNamed) {
    if (QSysInfo::kernelType() != "linux")
        GTEST_SKIP() << "the system does not list the files of a process";
    const QTemporaryDir folder;
    QFile image(folder.filePath("x.smc"));
    ASSERT_TRUE(image.open(QIODevice::WriteOnly));
    image.write(reinterpret_cast<const char*>(demo_bytes().data()), std::ssize(demo_bytes()));
    image.close();
    QProcess program;
    program.setWorkingDirectory(folder.path());
    program.start(VELDRUNE_PROGRAM, {"x.smc"});
    ASSERT_TRUE(program.waitForStarted());
    const fs::path path = fs::canonical(image.fileName().toStdString());
    EXPECT_TRUE(QTest::qWaitFor([&] { return has_open(program.processId(), path); }, 30000));
    EXPECT_EQ(program.state(), QProcess::Running);
    program.kill();
    program.waitForFinished();
}

} // namespace
} // namespace veldrune::test
