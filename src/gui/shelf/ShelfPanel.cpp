#include "gui/shelf/ShelfPanel.h"

#include "core/shelf/NotchPanelController.h"
#include "gui/platform/ThreadPoolBackgroundQueue.h"
#include "gui/shelf/ShelfView.h"
#include "gui/windowsystem/WindowSystem.h"

namespace tidewell {

// Declared in the order they depend on one another, so that they go away in reverse.
struct ShelfPanel::Parts {
    explicit Parts(const Services& services)
        : windowSystem(services.windowSystem),
          controller({.panel = windowSystem.panel(),
                      .displays = windowSystem.displays(),
                      .pointer = windowSystem.pointer(),
                      .dragPasteboard = windowSystem.dragPasteboard(),
                      .queue = services.queue,
                      .localCenter = services.localCenter,
                      .store = services.store,
                      .appearance = services.appearance}),
          view(windowSystem.panelView(), {.layout = controller.layout(),
                                          .store = services.store,
                                          .appearance = services.appearance,
                                          .tileActions = services.tileActions,
                                          .localCenter = services.localCenter,
                                          .iconCache = services.iconCache,
                                          .pointer = windowSystem.pointer(),
                                          .panel = windowSystem.panel(),
                                          .files = services.files,
                                          .background = background,
                                          .queue = services.queue,
                                          .openSettings = services.openSettings}) {
        QObject::connect(&view, &ShelfView::outlineChanged, &view,
                         [this](const QRectF& rect, qreal topRadius, qreal bottomRadius) {
                             windowSystem.setPanelOutline(rect, topRadius, bottomRadius);
                         });
        interestConnection = controller.pointerInterestChanged.connect(
            [this] { windowSystem.setPointerInterest(controller.pointerInterest()); });
    }

    // The window system outlives the shelf: its reports stop before the controller goes.
    ~Parts() { windowSystem.stopPointerReports(); }

    WindowSystem& windowSystem;
    ThreadPoolBackgroundQueue background;
    NotchPanelController controller;
    ShelfView view;
    Connection interestConnection;
};

ShelfPanel::ShelfPanel(Services services) : parts_(std::make_unique<Parts>(services)) {}

ShelfPanel::~ShelfPanel() = default;

NotchPanelController& ShelfPanel::controller() {
    return parts_->controller;
}

void ShelfPanel::start() {
    parts_->windowSystem.startPointerReports([this](Point point) {
        parts_->controller.pointerReported(point);
        parts_->view.pointerMoved(point);
    });
    parts_->controller.start();
}

} // namespace tidewell
