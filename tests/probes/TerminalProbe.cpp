// Runs one terminal tile action the way the shelf will, with the real services, and then
// exits: the end-to-end tests use it to see what a click really starts.
//
//   tidewell_terminal_probe <open-in-terminal|run-start-command> <folder> [start command]
//                           [--stay-for-cleanup]
//
// The preferred terminal is read from the preferences, as in the application. With
// --stay-for-cleanup the process stays until the delayed work of the action (the removal of
// a command script) has run.

#include "core/items/ItemDatabase.h"
#include "core/launch/TileActions.h"
#include "core/notify/NotificationCenter.h"
#include "core/platform/SystemClock.h"
#include "gui/platform/GioWorkspace.h"
#include "gui/platform/QSettingsKeyValueStore.h"
#include "gui/platform/QtMainQueue.h"
#include "linux/PathExecutableLocator.h"
#include "linux/PosixFileSystem.h"
#include "linux/PosixProcessLauncher.h"
#include "linux/QtPluginImageFormats.h"
#include "linux/SdBusNotificationCenter.h"
#include "linux/UserShell.h"
#include "linux/XdgPaths.h"

#include <QCoreApplication>
#include <QTimer>
#include <cstring>
#include <iostream>

using namespace tidewell;

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (argc < 3) {
        std::cerr
            << "usage: tidewell_terminal_probe <action> <folder> [command] [--stay-for-cleanup]\n";
        return 2;
    }
    const std::string actionName = argv[1];
    NotchItem item;
    item.path = argv[2];
    item.launchCommand = argc > 3 && std::strcmp(argv[3], "--stay-for-cleanup") != 0 ? argv[3] : "";
    const bool staysForCleanup = std::strcmp(argv[argc - 1], "--stay-for-cleanup") == 0;

    PosixFileSystem files;
    SystemClock clock;
    QtMainQueue queue;
    NotificationCenter localCenter(queue);
    SdBusNotificationCenter distributedCenter;
    const QtPluginImageFormats imageFormats = QtPluginImageFormats::installed();
    ItemDatabase database({files, clock, localCenter, distributedCenter, imageFormats},
                          DataFolder(XdgPaths::userPaths()));
    GioWorkspace workspace;
    ItemStore store({database, localCenter, distributedCenter, queue, workspace});
    QSettingsKeyValueStore defaults;
    AppearanceSettings settings(defaults);
    PosixProcessLauncher launcher;
    PathExecutableLocator executables;
    TerminalLauncher terminal(
        {files, launcher, executables, queue, userShell(), XdgPaths::runtimeFolder()});
    CodexAppLauncher codex(workspace);
    TileActions actions({store, settings, terminal, codex, workspace, [] {}});

    actions.perform(actionName == "run-start-command" ? TileAction::runStartCommand
                                                      : TileAction::openInTerminal,
                    item);
    // Precise: a coarse timer may fire up to 5% early, before the removal at 10 s.
    QTimer::singleShot(staysForCleanup ? 11000 : 0, Qt::PreciseTimer, &application,
                       &QCoreApplication::quit);
    return application.exec();
}
