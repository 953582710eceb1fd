#pragma once

#include "core/settings/ShelfAppearance.h"
#include "core/shelf/Animation.h"
#include "core/shelf/NotchMergeShape.h"

#include <optional>

namespace tidewell {

struct ShapeSize {
    double width = 0;
    double height = 0;

    bool operator==(const ShapeSize&) const = default;
};

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
    ShapeSize size; // centred in the view; never negative
    Fill fill = Fill::solidBlack;
    std::optional<Shadow> shadow;

    static MergedBackground decide(bool isBackgroundExpanded, ShapeSize expandedSize,
                                   ShapeSize collapsedSize, ShelfAppearance appearance);

    // The animation is chosen from the new value of isBackgroundExpanded.
    static const Animation& expansionAnimation(bool isBackgroundExpanded);
    // Animates changes of the expanded size.
    static const Animation& resizeAnimation();

    bool operator==(const MergedBackground&) const = default;
};

} // namespace tidewell
