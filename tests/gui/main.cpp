#include "gui/TestDesktop.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

// The services run on the event loop of a Qt application, and GIO and QSettings read the
// desktop's folders once per process: both are in place before the first test.
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    QCoreApplication application(argc, argv);
    ::testing::AddGlobalTestEnvironment(tidewell::testing::TestDesktop::installation());
    return RUN_ALL_TESTS();
}
