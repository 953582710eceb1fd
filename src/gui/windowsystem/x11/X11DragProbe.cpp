#include "gui/windowsystem/x11/X11DragProbe.h"

#include "gui/windowsystem/x11/X11PointerQuery.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <utility>

namespace tidewell {
namespace {

// The drag source may destroy its window at any moment; Xlib's default handler would end
// the process on the resulting error.
int ignoreError(Display*, XErrorEvent*) {
    return 0;
}

} // namespace

X11DragProbe::X11DragProbe() = default;

bool X11DragProbe::connect() {
    if (std::exchange(hasTriedToConnect_, true))
        return display_ != nullptr;
    display_ = XOpenDisplay(nullptr);
    if (!display_)
        return false;
    selection_ = XInternAtom(display_, "XdndSelection", False);
    typeList_ = XInternAtom(display_, "XdndTypeList", False);
    uriList_ = XInternAtom(display_, "text/uri-list", False);
    return true;
}

X11DragProbe::~X11DragProbe() {
    if (display_)
        XCloseDisplay(display_);
}

bool X11DragProbe::isDraggingFiles() {
    if (!connect() || !isPrimaryButtonHeld())
        return false;
    const Window owner = XGetSelectionOwner(display_, selection_);
    return owner != None && offersUriList(owner);
}

bool X11DragProbe::isPrimaryButtonHeld() {
    return (queryPointer(display_).buttonMask & Button1Mask) != 0;
}

bool X11DragProbe::offersUriList(Window window) {
    const auto previousHandler = XSetErrorHandler(ignoreError);
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long remaining = 0;
    unsigned char* data = nullptr;
    const int status = XGetWindowProperty(display_, window, typeList_, 0, 1024, False, XA_ATOM,
                                          &type, &format, &count, &remaining, &data);
    XSync(display_, False);
    XSetErrorHandler(previousHandler);
    bool found = false;
    if (status == Success && type == XA_ATOM && format == 32) {
        const auto* atoms = reinterpret_cast<const Atom*>(data);
        for (unsigned long i = 0; i < count && !found; ++i)
            found = atoms[i] == uriList_;
    }
    if (data)
        XFree(data);
    return found;
}

} // namespace tidewell
