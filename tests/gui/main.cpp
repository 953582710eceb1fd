#include "gui/TestDesktop.h"
#include "gui/app/SceneGraphBackend.h"
#include "support/X11TestClient.h"

#include <QApplication>
#include <gtest/gtest.h>

// The services and windows run on a Qt application on an X server of the program's own; GIO and
// QSettings read the desktop's folders once per process: all are in place before the first test.
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    const tidewell::testing::VirtualDisplay display;
    qputenv("QT_QPA_PLATFORM", "xcb");
    tidewell::chooseSceneGraphBackend();
    QApplication application(argc, argv);
    ::testing::AddGlobalTestEnvironment(new tidewell::testing::TestDesktop);
    return RUN_ALL_TESTS();
}
