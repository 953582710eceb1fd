#include "gui/images/ProjectImageUrl.h"

#include "core/icons/ProjectImage.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

namespace tidewell {

QUrl projectImageUrl(const NotchItem& item, const IconCache& cache,
                     const std::string& applicationFolder) {
    const auto path = projectImagePath(item, cache, applicationFolder);
    if (!path)
        return {};
    const QString file = QFile::decodeName(QByteArray::fromStdString(*path));
    QUrl url = QUrl::fromLocalFile(file);
    const QDateTime modified = QFileInfo(file).lastModified();
    if (modified.isValid())
        url.setQuery(QStringLiteral("modified=%1").arg(modified.toMSecsSinceEpoch()));
    return url;
}

} // namespace tidewell
