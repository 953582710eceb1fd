#pragma once

#include "core/platform/Geometry.h"
#include "core/settings/ShelfAppearance.h"
#include "core/shelf/Animation.h"
#include "core/shelf/NotchMergeShape.h"

#include <optional>

namespace tidewell {

// What the shelf draws behind its tiles: the notch outline at the notch's size while the
// panel opens and closes, at the panel's size with rounder lower corners while it is shown.
struct MergedBackground {
    enum class Fill { solidBlack, translucentGlass };

    // Always black; only its opacity varies.
    struct Shadow {
        double opacity = 0;
        double blurRadius = 0;
        double offsetX = 0;
        double offsetY = 0; // downwards

        bool operator==(const Shadow&) const = default;
    };

    NotchMergeShape shape;
    Size size; // centred in the view; never negative
    Fill fill = Fill::solidBlack;
    std::optional<Shadow> shadow;

    static MergedBackground decide(bool isBackgroundExpanded, Size expandedSize, Size collapsedSize,
                                   ShelfAppearance appearance);

    // The animation is chosen from the new value of isBackgroundExpanded.
    static const Animation& expansionAnimation(bool isBackgroundExpanded);
    // Animates changes of the expanded size.
    static const Animation& resizeAnimation();

    bool operator==(const MergedBackground&) const = default;
};

} // namespace tidewell
