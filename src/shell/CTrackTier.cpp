#include "shell/CTrackTier.h"

#include "shell/CSettings.h"

#include <array>

namespace {

constexpr int Sizes = 4;

// Very large, large, medium, small. A label is width, height, points.

constexpr std::array<CPanelTier, Sizes> TrackPanelTiers = {{
    {{320, 180, 150}, {320, 60, 52}, {320, 150, 46}, {320, 60, 46}, {318, 60, 40}, {320, 40, 25}},
    {{182, 85, 80}, {182, 35, 30}, {182, 55, 25}, {182, 35, 25}, {180, 35, 20}, {182, 30, 15}},
    {{135, 63, 60}, {135, 26, 22}, {135, 41, 19}, {135, 26, 19}, {135, 26, 15}, {135, 22, 11}},
    {{91, 42, 40}, {91, 17, 15}, {91, 27, 12}, {91, 17, 12}, {90, 17, 10}, {91, 15, 7}},
}};

constexpr std::array<CPanelTier, Sizes> LegendPanelTiers = {{
    {{320, 180, 150}, {320, 60, 40}, {320, 150, 33}, {320, 60, 33}, {320, 60, 33}, {320, 40, 23}},
    {{180, 85, 75}, {180, 35, 25}, {180, 55, 20}, {180, 35, 20}, {180, 35, 20}, {180, 30, 15}},
    {{135, 63, 56}, {135, 26, 18}, {135, 41, 15}, {135, 26, 15}, {135, 26, 15}, {135, 22, 11}},
    {{90, 42, 37}, {90, 17, 12}, {90, 27, 10}, {90, 17, 10}, {90, 17, 10}, {90, 15, 7}},
}};

// Box: minimum height, maximum width, points. Bar: maximum height, maximum width, points, divisor.
constexpr std::array<CTrackTier, Sizes> TrackTiers = {{
    {40, 320, 25, 50, 318, 25, 1},
    {25, 282, 12, 30, 180, 14, 1},
    {19, 211, 9, 22, 135, 10, 1},
    {13, 141, 7, 15, 90, 7, 2},
}};

std::size_t column(int displaySize)
{
    const bool known = displaySize >= CSettings::VeryLarge && displaySize <= CSettings::Small;
    return std::size_t(known ? displaySize : int(CSettings::Large)) - 1;
}

} // namespace

const CPanelTier& trackPanelTier(int displaySize)
{
    return TrackPanelTiers[column(displaySize)];
}

const CPanelTier& legendPanelTier(int displaySize)
{
    return LegendPanelTiers[column(displaySize)];
}

const CTrackTier& trackTier(int displaySize)
{
    return TrackTiers[column(displaySize)];
}
