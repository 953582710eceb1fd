#include "gui/settings/QtFolderChooser.h"

#include "gui/app/ApplicationIcon.h"

#include <QFile>
#include <QFileDialog>

namespace tidewell {

std::optional<std::string> QtFolderChooser::chooseFolder(const std::string& prompt) {
    useApplicationIcon();
    QFileDialog dialog;
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Accept, QString::fromStdString(prompt));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    // In the file system's own encoding, as every other path is kept.
    return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

} // namespace tidewell
