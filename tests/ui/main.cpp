#include "support/window_driver.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    veldrune::test::work_without_display();
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
