#pragma once

#include "core/shelf/PointerInterest.h"

#include <QObject>
#include <functional>
#include <map>
#include <memory>

class QScreen;
class QWindow;

namespace tidewell {

// How a Wayland client learns that the pointer reached the top of an output: on each output,
// as outputs come and go, a transparent layer surface over normal windows and under the
// shelf, centred at the top edge and the size of the output's open trigger. The pointer, or a
// drag, over it is seen there; everywhere else on the top edge it reaches the windows below.
// Main thread only.
class WaylandTriggers : public QObject {
public:
    // Each new trigger window is handed to `watch` before it shows.
    explicit WaylandTriggers(std::function<void(QWindow&)> watch);
    ~WaylandTriggers() override;

    // The open triggers are the interest's regions; while it is everywhere they stay as they
    // are, under the shelf.
    void setInterest(const PointerInterest& interest);

private:
    void add(QScreen* screen);
    void place(QScreen* screen, QWindow& window);

    std::function<void(QWindow&)> watch_;
    std::map<QScreen*, std::unique_ptr<QWindow>> windows_;
    PointerInterest interest_;
};

} // namespace tidewell
