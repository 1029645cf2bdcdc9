// The air above the instrument: a pure function of a seed and a time, so that any moment of any
// day can be asked for again. The instrument (instrument.h) measures it; nothing else reads it.
#pragma once

#include <array>
#include <cstdint>

namespace cumeron::sim {

struct CloudLayer {
    bool overhead = false;   // stands in the beam now
    double cover = 0;        // 0 to 1, share of the sky
    double base = 0;         // metres
    double thickness = 0;    // metres
    double extinction = 0;   // 1/km inside the cloud
    double lidarRatio = 18;  // sr, extinction over backscatter
};

struct Atmosphere {
    double aerosolTop = 0;             // metres, top of the mixed layer
    double residualTop = 0;            // metres, what is left above it from the day before
    double aerosol = 0;                // backscatter of the mixed layer, 1/(km sr)
    double daylight = 0;               // 0 to 1
    double temperature = 0;            // degrees Celsius at the ground
    double fogExtinction = 0;          // 1/km, 0 without fog
    double fogTop = 0;                 // metres
    double rain = 0;                   // 0 to 1, falls below the lowest layer
    std::array<CloudLayer, 3> layers;  // low, middle, high; heights ascend and do not overlap
};

// time: seconds since 1970-01-01 00:00 on the instrument's clock.
Atmosphere AtmosphereAt(std::uint64_t seed, double time);

// Backscatter 1/(km sr) and extinction 1/km at a height in metres above the ground.
struct Optics {
    double backscatter = 0;
    double extinction = 0;
};
Optics OpticsAt(const Atmosphere& air, double height);

// Evenly spread in [0, 1), always the same for the same arguments.
double HashUnit(std::uint64_t seed, std::uint64_t channel, std::int64_t cell);

// A standard normal number by the same rule.
double HashNormal(std::uint64_t seed, std::uint64_t channel, std::int64_t cell);

}  // namespace cumeron::sim
