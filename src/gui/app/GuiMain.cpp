// The user interface's one entry point, called by the executable after it has taken the
// single-instance lock.
#include "gui/app/Application.h"
#include "gui/app/SceneGraphBackend.h"
#include "gui/app/TerminationSignals.h"
#include "gui/windowsystem/OpenWindowSystem.h"

#include <QApplication>
#include <QTimer>

extern "C" __attribute__((visibility("default"))) int tidewell_gui_main(int argc, char** argv) {
    const tidewell::WindowSystemKind windowSystem = tidewell::prepareWindowSystem();
    if (windowSystem == tidewell::WindowSystemKind::none)
        return 1;
    tidewell::chooseSceneGraphBackend();
    QApplication application(argc, argv);
    // The shelf lives in the status area and at the top of the screen, not in windows.
    application.setQuitOnLastWindowClosed(false);
    const tidewell::TerminationSignals stopRequests;
    application.setApplicationName("Tidewell");
    application.setDesktopFileName("com.quorvel.tidewell");

    tidewell::Application tidewell(windowSystem);
    QObject::connect(&application, &QCoreApplication::aboutToQuit,
                     [&tidewell] { tidewell.willTerminate(); });
    QTimer::singleShot(0, &application, [&tidewell] { tidewell.didFinishLaunching(); });
    return application.exec();
}
