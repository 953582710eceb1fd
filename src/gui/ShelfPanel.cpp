#include "gui/ShelfPanel.h"

#include "core/shelf/NotchPanelController.h"
#include "gui/QtScreens.h"
#include "gui/QuickPanelWindow.h"
#include "gui/ShelfView.h"
#include "gui/X11DragPasteboard.h"
#include "gui/X11Pointer.h"
#include "gui/platform/PointerEventMonitor.h"
#include "gui/platform/ThreadPoolBackgroundQueue.h"

namespace tidewell {

// Declared in the order they depend on one another, so that they go away in reverse: the
// monitor stops reporting before the controller it reports to is gone.
struct ShelfPanel::Parts {
    explicit Parts(const Services& services)
        : screens(services.localCenter), controller({.panel = window,
                                                     .displays = screens,
                                                     .pointer = pointer,
                                                     .dragPasteboard = dragPasteboard,
                                                     .queue = services.queue,
                                                     .localCenter = services.localCenter,
                                                     .store = services.store,
                                                     .appearance = services.appearance}),
          view(window.view(), {.layout = controller.layout(),
                               .store = services.store,
                               .appearance = services.appearance,
                               .tileActions = services.tileActions,
                               .localCenter = services.localCenter,
                               .iconCache = services.iconCache,
                               .pointer = pointer,
                               .panel = window,
                               .files = services.files,
                               .background = background,
                               .queue = services.queue,
                               .openSettings = services.openSettings}),
          monitor([this](int x, int y, unsigned) {
              const Point point = corePointFromRoot(x, y);
              controller.pointerReported(point);
              view.pointerMoved(point);
          }) {
        QObject::connect(&view, &ShelfView::outlineChanged, &window, &QuickPanelWindow::setOutline);
        interestConnection =
            controller.pointerInterestChanged.connect([this] { followPointerInterest(); });
    }

    // Moves elsewhere stay on the monitor's thread.
    void followPointerInterest() {
        const PointerInterest& interest = controller.pointerInterest();
        PointerEventMonitor::Interest rootInterest{.everywhere = interest.everywhere,
                                                   .regions = {}};
        for (const Rect& region : interest.regions)
            rootInterest.regions.push_back(rootRectFromCore(region));
        monitor.setInterest(std::move(rootInterest));
    }

    QtScreens screens;
    X11Pointer pointer;
    X11DragPasteboard dragPasteboard;
    QuickPanelWindow window;
    ThreadPoolBackgroundQueue background;
    NotchPanelController controller;
    ShelfView view;
    PointerEventMonitor monitor;
    Connection interestConnection;
};

ShelfPanel::ShelfPanel(Services services) : parts_(std::make_unique<Parts>(services)) {}

ShelfPanel::~ShelfPanel() = default;

NotchPanelController& ShelfPanel::controller() {
    return parts_->controller;
}

Pointer& ShelfPanel::pointer() {
    return parts_->pointer;
}

Displays& ShelfPanel::displays() {
    return parts_->screens;
}

void ShelfPanel::start() {
    parts_->monitor.start();
    parts_->controller.start();
}

} // namespace tidewell
