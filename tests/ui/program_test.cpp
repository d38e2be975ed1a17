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

TEST(Program, OpensTheImageThatIsNamed) {
    if (!fs::exists("/proc/self/fd"))
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
