#include "gui/settings/QtImageChooser.h"

#include "gui/app/ApplicationIcon.h"

#include <QFile>
#include <QFileDialog>
#include <QImageReader>
#include <QMimeDatabase>

namespace tidewell {

std::optional<std::string> QtImageChooser::chooseImage() {
    useApplicationIcon();
    QFileDialog dialog;
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(QStringLiteral("Images (%1)").arg(imagePatterns().join(' ')));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    // In the file system's own encoding, as every other path is kept.
    return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

// Without the desktop's MIME database (shared-mime-info), the images Qt itself can read.
QStringList QtImageChooser::imagePatterns() {
    QStringList patterns;
    for (const QMimeType& type : QMimeDatabase().allMimeTypes())
        if (type.name().startsWith(QStringLiteral("image/")))
            patterns.append(type.globPatterns());
    if (patterns.isEmpty())
        for (const QByteArray& format : QImageReader::supportedImageFormats())
            patterns.append(QStringLiteral("*.") + QString::fromLatin1(format));
    patterns.removeDuplicates();
    patterns.sort();
    return patterns;
}

} // namespace tidewell
