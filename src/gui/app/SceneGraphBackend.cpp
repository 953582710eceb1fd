#include "gui/app/SceneGraphBackend.h"

#include <QQuickWindow>
#include <QtGlobal>

namespace tidewell {

// A panel of flat shapes, text and small pictures animates as smoothly on the processor as
// through OpenGL, and without a GPU OpenGL means a software rasteriser whose driver and
// buffers cost far more memory than the windows themselves. The variable keeps its usual
// meaning, so either renderer can still be compared.
void chooseSceneGraphBackend() {
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

} // namespace tidewell
