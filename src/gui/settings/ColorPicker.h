#pragma once

#include <QColor>
#include <QObject>
#include <QPointer>
#include <QString>

class QColorDialog;

namespace tidewell {

// The colour dialog behind a colour well, for QML: the well shows `color` and calls open();
// every colour the user picks is announced as "#RRGGBB" text. While the dialog is open it
// alone decides the colour shown, so that a change of `hex` from elsewhere does not
// interrupt the picking; once it is closed the well shows `hex` again. Cancelling the dialog
// announces the text it was opened with again, which undoes the colours picked in it.
class ColorPicker : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString hex READ hex WRITE setHex NOTIFY hexChanged)
    Q_PROPERTY(QColor color READ color NOTIFY colorChanged)
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged)
public:
    explicit ColorPicker(QObject* parent = nullptr);
    ~ColorPicker() override;

    QString hex() const { return hex_; }
    void setHex(const QString& hex);
    QColor color() const;
    bool isOpen() const;
    // The dialog while it is open, else none.
    QColorDialog* dialog() const;

    // Opens the dialog, not modal, at the colour shown; brings it forward when it is open.
    Q_INVOKABLE void open();

signals:
    void hexChanged();
    void colorChanged();
    void isOpenChanged();
    void picked(const QString& hex);

private:
    void closed(int result);

    QString hex_;
    QString hexAtOpening_;
    bool hasPicked_ = false;
    QPointer<QColorDialog> dialog_;
};

} // namespace tidewell
