#include "gui/settings/SettingsWindowController.h"

#include "core/settings/SettingsView.h"
#include "gui/app/ApplicationIcon.h"
#include "gui/images/ImageProviders.h"
#include "gui/settings/ColorPicker.h"
#include "gui/settings/ItemSettingsModel.h"
#include "gui/settings/SettingsBridge.h"
#include "linux/CurrentApplicationLocation.h"

#include <QCursor>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickView>
#include <QScreen>
#include <QtQml>

namespace tidewell {

namespace {

// The window manager's close button hides the window instead of ending it.
class HideOnClose : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Close)
            return false;
        event->ignore();
        static_cast<QWindow*>(watched)->hide();
        return true;
    }
};

void registerSettingsTypes() {
    static const bool registered = [] {
        qmlRegisterType<ColorPicker>("Tidewell", 1, 0, "ColorPicker");
        return true;
    }();
    Q_UNUSED(registered);
}

} // namespace

struct SettingsWindowController::Parts {
    explicit Parts(const Services& services)
        : view({.store = services.store,
                .appearance = services.appearance,
                .launchAtLogin = services.launchAtLogin,
                .defaults = services.defaults,
                .localCenter = services.localCenter,
                .folders = services.folders,
                .files = services.files,
                .terminal = services.terminal,
                .codex = services.codex,
                .canHideFromScreenCapture = services.canHideFromScreenCapture}),
          bridge(view, services.appearance, services.store),
          projects({.store = services.store,
                    .iconCache = services.iconCache,
                    .folders = services.folders,
                    .images = services.images,
                    .applicationFolder =
                        QString::fromStdString(currentApplicationLocation().dataFolder)}) {
        useApplicationIcon();
        window.setTitle(QStringLiteral("Tidewell Settings"));
        window.resize(700, 540);
        window.setMinimumSize({680, 500});
        window.setResizeMode(QQuickView::SizeRootObjectToView);
        window.installEventFilter(&hideOnClose);
    }

    // The QML reads the bridges: it is loaded once they exist, the first time it is shown.
    void loadContents() {
        registerSettingsTypes();
        addImageProviders(*window.engine());
        QQmlContext& context = *window.rootContext();
        context.setContextProperty(QStringLiteral("settings"), &bridge);
        context.setContextProperty(QStringLiteral("projects"), &projects);
        window.setSource(QUrl(QStringLiteral("qrc:/qml/SettingsView.qml")));
        for (const QQmlError& error : window.errors())
            qWarning().noquote() << "Settings view:" << error.toString();
    }

    SettingsView view;
    SettingsBridge bridge;
    ItemSettingsModel projects;
    HideOnClose hideOnClose;
    // Last: the window and its QML go before the bridges they read.
    QQuickView window;
};

SettingsWindowController::SettingsWindowController(Services services) : services_(services) {}

SettingsWindowController::~SettingsWindowController() = default;

void SettingsWindowController::show() {
    QQuickView& window = this->window();
    if (window.source().isEmpty())
        parts_->loadContents();
    parts_->view.refreshCaptions();
    // The contents are centred: the title bar is the window manager's, and its height is
    // not known before the window is first shown.
    if (const QScreen* screen = QGuiApplication::screenAt(QCursor::pos())) {
        QRect contents = window.geometry();
        contents.moveCenter(screen->geometry().center());
        window.setPosition(contents.topLeft());
    }
    window.show();
    window.raise();
    window.requestActivate();
}

QQuickView& SettingsWindowController::window() {
    if (!parts_)
        parts_ = std::make_unique<Parts>(services_);
    return parts_->window;
}

} // namespace tidewell
