#include "gui/settings/ColorPicker.h"

#include "gui/images/TintColor.h"

#include <QColorDialog>

namespace tidewell {

ColorPicker::ColorPicker(QObject* parent) : QObject(parent) {}

ColorPicker::~ColorPicker() {
    delete dialog_;
}

void ColorPicker::setHex(const QString& hex) {
    if (hex == hex_)
        return;
    hex_ = hex;
    emit hexChanged();
    if (!isOpen())
        emit colorChanged();
}

QColor ColorPicker::color() const {
    return isOpen() ? dialog_->currentColor() : tintColor(hex_);
}

bool ColorPicker::isOpen() const {
    return dialog_ && dialog_->isVisible();
}

QColorDialog* ColorPicker::dialog() const {
    return isOpen() ? dialog_.data() : nullptr;
}

void ColorPicker::open() {
    if (!dialog_) {
        hexAtOpening_ = hex_;
        hasPicked_ = false;
        dialog_ = new QColorDialog(tintColor(hex_));
        dialog_->setAttribute(Qt::WA_DeleteOnClose);
        connect(dialog_, &QColorDialog::currentColorChanged, this, [this](const QColor& color) {
            hasPicked_ = true;
            emit colorChanged();
            emit picked(tintHex(color));
        });
        connect(dialog_, &QDialog::finished, this, &ColorPicker::closed);
        dialog_->show();
        emit isOpenChanged();
    }
    dialog_->raise();
    dialog_->activateWindow();
}

// The dialog deletes itself.
void ColorPicker::closed(int result) {
    dialog_.clear();
    emit isOpenChanged();
    emit colorChanged();
    if (result == QDialog::Rejected && hasPicked_)
        emit picked(hexAtOpening_);
}

} // namespace tidewell
