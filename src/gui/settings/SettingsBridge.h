#pragma once

#include "core/observe/Signal.h"

#include <QList>
#include <QObject>
#include <QStringList>
#include <QUrl>

namespace tidewell {

class AppearanceSettings;
class ItemStore;
class SettingsView;

// What the settings window's QML reads and sets above the project rows: the preferences as
// pickers and switches, the login switch, the captions under the rows, and adding folders by
// choosing or dropping them. Every property is announced by `changed`, which follows any
// change of the preferences, the window's own state or the items, since a caption may
// depend on any of them.
class SettingsBridge : public QObject {
    Q_OBJECT
    Q_PROPERTY(QStringList shelfAppearanceNames READ shelfAppearanceNames CONSTANT)
    Q_PROPERTY(int shelfAppearanceIndex READ shelfAppearanceIndex WRITE setShelfAppearanceIndex
                   NOTIFY changed)
    Q_PROPERTY(QStringList terminalAppNames READ terminalAppNames CONSTANT)
    Q_PROPERTY(int terminalAppIndex READ terminalAppIndex WRITE setTerminalAppIndex NOTIFY changed)
    Q_PROPERTY(QStringList codexLaunchModeNames READ codexLaunchModeNames CONSTANT)
    Q_PROPERTY(int codexLaunchModeIndex READ codexLaunchModeIndex WRITE setCodexLaunchModeIndex
                   NOTIFY changed)
    Q_PROPERTY(bool hideFromScreenCapture READ hideFromScreenCapture WRITE setHideFromScreenCapture
                   NOTIFY changed)
    Q_PROPERTY(bool startsAtLogin READ startsAtLogin WRITE setStartsAtLogin NOTIFY changed)
    // Empty when the row has nothing to say.
    Q_PROPERTY(QString terminalCaption READ terminalCaption NOTIFY changed)
    Q_PROPERTY(QString codexCaption READ codexCaption NOTIFY changed)
    Q_PROPERTY(QString screenCaptureCaption READ screenCaptureCaption NOTIFY changed)
    Q_PROPERTY(bool isDropTargeted READ isDropTargeted WRITE setIsDropTargeted NOTIFY changed)
public:
    SettingsBridge(SettingsView& view, AppearanceSettings& appearance, ItemStore& store);

    static QStringList shelfAppearanceNames();
    int shelfAppearanceIndex() const;
    void setShelfAppearanceIndex(int index);
    static QStringList terminalAppNames();
    int terminalAppIndex() const;
    void setTerminalAppIndex(int index);
    static QStringList codexLaunchModeNames();
    int codexLaunchModeIndex() const;
    void setCodexLaunchModeIndex(int index);
    bool hideFromScreenCapture() const;
    void setHideFromScreenCapture(bool value);
    bool startsAtLogin() const;
    void setStartsAtLogin(bool value);
    QString terminalCaption() const;
    QString codexCaption() const;
    QString screenCaptureCaption() const;
    bool isDropTargeted() const;
    void setIsDropTargeted(bool value);

    Q_INVOKABLE void chooseNewFolder();
    // The local files among the URLs go to the view; false when it refuses the drop.
    Q_INVOKABLE bool handleDrop(const QList<QUrl>& urls);

signals:
    void changed();

private:
    SettingsView& view_;
    AppearanceSettings& appearance_;
    Connection viewConnection_;
    Connection appearanceConnection_;
    Connection storeConnection_;
};

} // namespace tidewell
