#include "gui/windowsystem/x11/TriggerWindowPointerSource.h"

#include "core/shelf/PointerInterest.h"
#include "gui/windowsystem/QtScreens.h"

namespace tidewell {

TriggerWindowPointerSource::TriggerWindowPointerSource(const Displays& displays,
                                                       unsigned long panelWindow)
    : crossings_(displays) {
    windows_.watch(panelWindow);
}

void TriggerWindowPointerSource::start(WindowSystem::PointerHandler handler) {
    crossings_.setHandler(std::move(handler));
}

void TriggerWindowPointerSource::stop() {
    crossings_.setHandler({});
}

void TriggerWindowPointerSource::setInterest(const PointerInterest& interest) {
    if (interest.everywhere)
        return;
    std::vector<QRect> regions;
    for (const Rect& region : interest.regions)
        regions.push_back(rootPixelsFromCore(region));
    windows_.setRegions(regions);
}

Point TriggerWindowPointerSource::location() const {
    if (const auto location = crossings_.location())
        return *location;
    return x11_.location();
}

} // namespace tidewell
