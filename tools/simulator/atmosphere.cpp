#include "atmosphere.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace cumeron::sim {

namespace {

constexpr double Day = 86400;
constexpr double Hour = 3600;
constexpr double AerosolLidarRatio = 20;  // sr

// One number per random quantity, so that none follows another.
enum Channel : std::uint64_t {
    MixedLayerHeight = 1,
    AerosolLoad,
    FogNight,
    FogWaver,
    RainShower,
    Warmth,
    LayerBase = 20,  // + layer
    LayerCover = 30,
    LayerThickness = 40,
    LayerPatch = 50,
    LayerRipple = 60,
};

std::uint64_t Mix(std::uint64_t x) {
    x += 0x9E3779B97F4A7C15ULL;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ULL;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBULL;
    return x ^ (x >> 31);
}

double SmoothStep(double from, double to, double x) {
    const double t = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

// A value between 0 and 1 that wanders, with one new direction every `period` seconds.
double Wander(std::uint64_t seed, std::uint64_t channel, double time, double period) {
    const double cell = std::floor(time / period);
    const auto at = static_cast<std::int64_t>(cell);
    const double a = HashUnit(seed, channel, at);
    const double b = HashUnit(seed, channel, at + 1);
    return a + (b - a) * SmoothStep(0, 1, time / period - cell);
}

struct LayerKind {
    double lowest, highest;          // metres, range of the base
    double drift, coverDrift;        // seconds
    double leastCover, coverOffset;  // of the sky
    double thin, thick;              // metres
    double extinction;               // 1/km
    double patch;                    // seconds for one patch to pass
};

constexpr std::array<LayerKind, 3> Kinds = {{
    {450, 1900, 5 * Hour, 4 * Hour, 0, 0.35, 150, 700, 15, 240},
    {2400, 4600, 6 * Hour, 6 * Hour, 0.2, 0.5, 200, 600, 7, 420},
    {6200, 9800, 8 * Hour, 7 * Hour, 0, 0.45, 400, 1300, 0.6, 900},
}};

CloudLayer LayerAt(std::uint64_t seed, double time, std::size_t number) {
    const LayerKind& kind = Kinds[number];
    CloudLayer layer;
    layer.base = kind.lowest +
                 (kind.highest - kind.lowest) * Wander(seed, LayerBase + number, time, kind.drift);
    layer.base += 30 * (Wander(seed, LayerRipple + number, time, kind.patch / 2) - 0.5);
    const double wave = 1.7 * Wander(seed, LayerCover + number, time, kind.coverDrift);
    layer.cover = std::clamp(wave - kind.coverOffset, kind.leastCover, 1.0);
    layer.thickness = kind.thin + (kind.thick - kind.thin) *
                                      Wander(seed, LayerThickness + number, time, 2 * Hour);
    layer.extinction = kind.extinction;
    layer.overhead = Wander(seed, LayerPatch + number, time, kind.patch) < layer.cover;
    return layer;
}

void LayAerosol(Atmosphere& air, std::uint64_t seed, double time, double hour) {
    const double highest = 1000 + 900 * Wander(seed, MixedLayerHeight, time, Day);
    const double growth = SmoothStep(7, 15, hour) * (1 - SmoothStep(18, 21.5, hour));
    air.aerosolTop = 220 + (highest - 220) * growth;
    air.residualTop = std::max(air.aerosolTop, highest);
    air.aerosol = 0.010 + 0.012 * Wander(seed, AerosolLoad, time, 9 * Hour);
}

// Fog comes in some nights, thickens towards the morning and goes when the sun has some height.
void LayFog(Atmosphere& air, std::uint64_t seed, double time, double hour) {
    const auto night = static_cast<std::int64_t>(std::floor(time / Day));
    if (HashUnit(seed, FogNight, night) > 0.6) return;
    const double window = SmoothStep(2, 4.5, hour) * (1 - SmoothStep(7.5, 9, hour));
    const double strength = window * (0.6 + 0.4 * Wander(seed, FogWaver, time, 600));
    if (strength < 0.25) return;
    air.fogExtinction = 45 * strength;
    air.fogTop = 4500 / air.fogExtinction;  // deep enough to hide what is above
}

// Rain falls out of a low layer that is closed and deep; the layer is thicker while it rains.
void LayRain(Atmosphere& air, std::uint64_t seed, double time) {
    CloudLayer& low = air.layers[0];
    if (low.cover < 0.7 || air.fogExtinction > 0) return;
    air.rain = std::clamp(3 * (Wander(seed, RainShower, time, 1.5 * Hour) - 0.5), 0.0, 1.0);
    if (air.rain <= 0) return;
    low.overhead = true;
    low.cover = 1;
    low.thickness = std::max(low.thickness, 500.0);
}

}  // namespace

double HashUnit(std::uint64_t seed, std::uint64_t channel, std::int64_t cell) {
    const std::uint64_t x = Mix(Mix(Mix(seed) ^ channel) ^ static_cast<std::uint64_t>(cell));
    return static_cast<double>(x >> 11) * 0x1.0p-53;
}

double HashNormal(std::uint64_t seed, std::uint64_t channel, std::int64_t cell) {
    double sum = -6;  // twelve even numbers: mean 6, variance 1
    std::uint64_t x = Mix(Mix(Mix(seed) ^ channel) ^ static_cast<std::uint64_t>(cell));
    for (int i = 0; i < 3; ++i, x = Mix(x))
        for (int part = 0; part < 64; part += 16)
            sum += static_cast<double>((x >> part) & 0xFFFF) / 65536.0;
    return sum;
}

Atmosphere AtmosphereAt(std::uint64_t seed, double time) {
    const double hour = (time / Day - std::floor(time / Day)) * 24;
    Atmosphere air;
    air.daylight = std::max(0.0, std::sin(std::numbers::pi * (hour - 6) / 14));
    air.temperature = 6 + 8 * Wander(seed, Warmth, time, 2 * Day) +
                      5 * std::sin(std::numbers::pi * (hour - 9) / 12);
    LayAerosol(air, seed, time, hour);
    LayFog(air, seed, time, hour);
    for (std::size_t i = 0; i < air.layers.size(); ++i) air.layers[i] = LayerAt(seed, time, i);
    LayRain(air, seed, time);
    return air;
}

Optics OpticsAt(const Atmosphere& air, double height) {
    Optics out;
    out.backscatter = 0.00015 * std::exp(-height / 8000);
    const double mixed = 1 - SmoothStep(air.aerosolTop - 60, air.aerosolTop + 60, height);
    const double residual = 1 - SmoothStep(air.residualTop - 150, air.residualTop + 150, height);
    const double aerosol = air.aerosol * std::max(mixed, 0.35 * residual);
    out.backscatter += aerosol;
    out.extinction += aerosol * AerosolLidarRatio;
    if (air.rain > 0 && height < air.layers[0].base) {
        const double drops = 0.03 * air.rain;
        out.backscatter += drops;
        out.extinction += drops * AerosolLidarRatio;
    }
    if (air.fogExtinction > 0) {
        const double fog =
            air.fogExtinction * (1 - SmoothStep(0.8 * air.fogTop, air.fogTop, height));
        out.extinction += fog;
        out.backscatter += fog / 18;
    }
    for (const CloudLayer& layer : air.layers) {
        if (!layer.overhead || height < layer.base || height > layer.base + layer.thickness)
            continue;
        out.extinction += layer.extinction;
        out.backscatter += layer.extinction / layer.lidarRatio;
    }
    return out;
}

}  // namespace cumeron::sim
