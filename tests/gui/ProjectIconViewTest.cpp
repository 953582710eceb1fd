#include "gui/TestDesktop.h"
#include "gui/images/ImageProviders.h"
#include "linux/QtPluginImageFormats.h"

#include <QImage>
#include <QImageWriter>
#include <QQmlComponent>
#include <QQmlEngine>
#include <gtest/gtest.h>
#include <memory>

namespace tidewell {
namespace {

// Every kind of image that discovery may pick is drawn by the tiles' icon view, and what the
// tool takes for drawable is what the toolkit draws: HEIC alone has no plugin here.
TEST(ProjectIconView, DrawsEveryFormatThatDiscoveryMayPick) {
    const QtPluginImageFormats formats = QtPluginImageFormats::installed();
    const testing::TemporaryDirectory folder;
    QQmlEngine engine;
    addImageProviders(engine);
    QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/qml/ProjectIconView.qml")));
    QImage red(64, 64, QImage::Format_ARGB32);
    red.fill(Qt::red);
    for (const QByteArray extension :
         {"png", "jpg", "jpeg", "ico", "icns", "tiff", "webp", "svg", "heic"}) {
        const bool isDrawable = extension != "heic";
        EXPECT_EQ(formats.canDecode(extension.toStdString()), isDrawable) << extension.data();
        if (!isDrawable)
            continue;
        const QString file = QString::fromStdString(folder.path()) + "/icon." + extension;
        if (extension == "svg")
            folder.write("icon.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" )"
                                     R"(height="64"><rect width="64" height="64"/></svg>)");
        else
            ASSERT_TRUE(QImageWriter(file, extension).write(red)) << extension.data();
        const std::unique_ptr<QObject> view(
            component.createWithInitialProperties({{"imageSource", QUrl::fromLocalFile(file)}}));
        ASSERT_TRUE(view) << component.errorString().toStdString();
        EXPECT_TRUE(testing::processEventsUntil([&] {
            return view->property("showsImage").toBool();
        })) << extension.data();
    }
}

} // namespace
} // namespace tidewell
