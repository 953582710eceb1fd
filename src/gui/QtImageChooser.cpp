#include "gui/QtImageChooser.h"

#include <QFile>
#include <QFileDialog>
#include <QMimeDatabase>

namespace tidewell {

std::optional<std::string> QtImageChooser::chooseImage() {
    QFileDialog dialog;
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(QStringLiteral("Images (%1)").arg(imagePatterns().join(' ')));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    // In the file system's own encoding, as every other path is kept.
    return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

QStringList QtImageChooser::imagePatterns() {
    QStringList patterns;
    for (const QMimeType& type : QMimeDatabase().allMimeTypes())
        if (type.name().startsWith(QStringLiteral("image/")))
            patterns.append(type.globPatterns());
    patterns.removeDuplicates();
    patterns.sort();
    return patterns;
}

} // namespace tidewell
