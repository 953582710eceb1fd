#pragma once

#include "core/platform/PanelWindow.h"

#include <vector>

namespace tidewell::testing {

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
