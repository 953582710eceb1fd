// The user interface's one entry point, called by the executable after it has taken the
// single-instance lock.
#include <QApplication>

extern "C" __attribute__((visibility("default"))) int tidewell_gui_main(int argc, char** argv) {
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    return application.exec();
}
