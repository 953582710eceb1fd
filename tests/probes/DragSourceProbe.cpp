// Another application that drags files, for the end-to-end tests:
//   tidewell_drag_source_probe --at X,Y [PATH...]
// An orange 120 x 80 window at X,Y (where the window system lets a client place it). A press of
// the primary button and a move drag the paths away as a file manager's selection, as file URLs
// and as text/plain lines, to be copied or moved. It prints
// "ready" whenever the window is shown, "pressed X,Y" (in the window) for each press, and
// "finished copy" or "finished otherwise" when a drag ends.

#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QRasterWindow>
#include <QUrl>
#include <cstdio>
#include <iostream>
#include <utility>

namespace {

class DragSourceWindow : public QRasterWindow {
public:
    explicit DragSourceWindow(QStringList paths) : paths_(std::move(paths)) {
        // Neither decorated nor focused: the tests' other windows keep the keyboard.
        setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(QRect(QPoint(), size()), QColor(0xFF8800));
        std::cout << "ready" << std::endl;
    }

    void mousePressEvent(QMouseEvent* event) override {
        const QPoint point = event->position().toPoint();
        std::cout << "pressed " << point.x() << "," << point.y() << std::endl;
        isPressed_ = event->button() == Qt::LeftButton;
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        if (!std::exchange(isPressed_, false) || !(event->buttons() & Qt::LeftButton))
            return;
        auto* data = new QMimeData;
        QList<QUrl> urls;
        for (const QString& path : paths_)
            urls.append(QUrl::fromLocalFile(path));
        data->setUrls(urls);
        data->setText(paths_.join('\n'));
        auto* drag = new QDrag(this);
        drag->setMimeData(data);
        const Qt::DropAction action = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::CopyAction);
        std::cout << (action == Qt::CopyAction ? "finished copy" : "finished otherwise")
                  << std::endl;
    }

private:
    QStringList paths_;
    bool isPressed_ = false;
};

} // namespace

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    int x = 0, y = 0;
    if (argc < 3 || arguments[1] != "--at" || std::sscanf(argv[2], "%d,%d", &x, &y) != 2) {
        std::cerr << "usage: tidewell_drag_source_probe --at X,Y [PATH...]\n";
        return 2;
    }
    DragSourceWindow window(arguments.mid(3));
    window.setGeometry(QRect(x, y, 120, 80));
    window.show();
    return application.exec();
}
