#pragma once

struct _XDisplay;

namespace tidewell {

// Tells whether the user is dragging files from another application: the primary button is
// held and the owner of the drag-and-drop selection offers a URI list. Cheap enough to ask
// on every pointer report; uses a connection of its own, opened the first time it is asked
// (only once the primary button is held near the shelf).
class X11DragProbe {
public:
    X11DragProbe();
    ~X11DragProbe();
    X11DragProbe(const X11DragProbe&) = delete;
    X11DragProbe& operator=(const X11DragProbe&) = delete;

    // False when there is no X display.
    bool isDraggingFiles();

private:
    // False when there is no X display.
    bool connect();
    bool isPrimaryButtonHeld();
    bool offersUriList(unsigned long window);

    _XDisplay* display_ = nullptr;
    bool hasTriedToConnect_ = false;
    unsigned long selection_ = 0;
    unsigned long typeList_ = 0;
    unsigned long uriList_ = 0;
};

} // namespace tidewell
