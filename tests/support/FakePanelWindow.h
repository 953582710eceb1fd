#pragma once

#include "core/platform/DragPasteboard.h"
#include "core/platform/PanelWindow.h"
#include "core/platform/Pointer.h"

#include <vector>

namespace tidewell::testing {

// The pointer over the panel and what it drags, as the test sets them.
class FakePointer : public Pointer, public DragPasteboard {
public:
    Point location() const override { return where; }
    unsigned pressedButtons() const override { return buttons; }
    bool offersFiles() const override { return dragsFiles; }

    Point where;
    unsigned buttons = 0;
    bool dragsFiles = false;
};

// Remembers its state and every frame it was given.
class FakePanelWindow : public PanelWindow {
public:
    Rect frame() const override { return currentFrame; }
    void setFrame(const Rect& frame) override {
        currentFrame = frame;
        frames.push_back(frame);
    }
    void setAlpha(double value) override { currentAlpha = value; }
    double alpha() const override { return currentAlpha; }
    void orderFrontWithoutActivating() override {
        visible = true;
        ++orderFrontCount;
    }
    void orderOut() override { visible = false; }
    bool isVisible() const override { return visible; }
    void setSharingHidden(bool hidden) override { sharingHidden = hidden; }

    Rect currentFrame;
    std::vector<Rect> frames;
    double currentAlpha = 1;
    bool visible = false;
    bool sharingHidden = false;
    int orderFrontCount = 0;
};

} // namespace tidewell::testing
