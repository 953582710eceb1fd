#include "gui/app/QtAlertPresenter.h"

#include "gui/app/ApplicationIcon.h"

#include <QMessageBox>

namespace tidewell {

void QtAlertPresenter::showAlert(const std::string& message) {
    useApplicationIcon();
    QMessageBox box(QMessageBox::Warning, "Tidewell", QString::fromStdString(message),
                    QMessageBox::Ok);
    box.exec();
}

} // namespace tidewell
