#include "instrument.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace cumeron::sim {

namespace {

constexpr double PlotUnits = 10000;  // of 1/(km sr)
constexpr double MultipleScattering = 0.7;
constexpr double SkySpan = 1800;  // seconds that the sky condition looks back
constexpr double SkyStep = 120;
constexpr double NoEcho = -1;
constexpr std::uint64_t NoiseChannel = 100;

double NoiseAt(const Atmosphere& air, double range) {
    return (0.2 + 0.3 * air.daylight) * (range / 1000) * (range / 1000);
}

// Height in metres at which each layer is seen, or NoEcho. A layer counts when its echo, weakened
// on both ways by all that lies below it, stands out of the noise.
std::array<double, 3> SeenLayers(const Atmosphere& air, double maxRange, double cosTilt) {
    std::array<double, 3> seen = {NoEcho, NoEcho, NoEcho};
    if (air.fogExtinction > 0) return seen;
    const double hazeDepth = 20 * air.aerosol * 0.001;  // per metre
    double cloudDepth = 0;
    for (std::size_t i = 0; i < seen.size(); ++i) {
        const CloudLayer& layer = air.layers[i];
        if (!layer.overhead) continue;
        const double mixed = std::min(layer.base, air.aerosolTop);
        const double residual = std::min(layer.base, air.residualTop) - mixed;
        double depth = cloudDepth + hazeDepth * (mixed + 0.35 * residual);
        depth += 20 * 0.03 * air.rain * 0.001 * std::min(layer.base, air.layers[0].base);
        const double range = layer.base / cosTilt;
        const double weakened = std::exp(-2 * MultipleScattering * depth / cosTilt);
        const double echo = PlotUnits * layer.extinction / layer.lidarRatio * weakened;
        if (echo > 20 && echo > 3 * NoiseAt(air, range) && range <= maxRange) seen[i] = layer.base;
        cloudDepth += layer.extinction * layer.thickness * 0.001;
    }
    return seen;
}

double CosTilt(const InstrumentSetup& setup) {
    return std::cos(setup.tilt * std::numbers::pi / 180);
}

void FindClouds(Reading& reading, const Atmosphere& air, const InstrumentSetup& setup) {
    if (air.fogExtinction > 0) {
        reading.detection = '4';
        reading.verticalVisibility = 3000 / air.fogExtinction;
        reading.highestSignal = 0.4 * reading.verticalVisibility;
        return;
    }
    for (double base : SeenLayers(air, setup.model->maxRange, CosTilt(setup)))
        if (base != NoEcho) reading.bases.push_back(base);
    reading.detection = static_cast<char>('0' + reading.bases.size());
}

// The sky condition of the last half hour, the present moment included, so that a base that has
// just come in already has its okta.
void JudgeSky(Reading& reading, const InstrumentSetup& setup) {
    if (reading.detection == '4') {
        reading.sky[0] = {9, reading.verticalVisibility};
        return;
    }
    std::array<int, 3> hits = {};
    std::array<double, 3> sums = {};
    int moments = 0;
    const double first = std::floor((reading.time - SkySpan) / SkyStep) * SkyStep + SkyStep;
    for (double at = first; at <= reading.time + SkyStep; at += SkyStep, ++moments) {
        const Atmosphere air = AtmosphereAt(setup.seed, std::min(at, reading.time));
        const auto seen = SeenLayers(air, setup.model->maxRange, CosTilt(setup));
        for (std::size_t i = 0; i < seen.size(); ++i) {
            if (seen[i] == NoEcho) continue;
            ++hits[i];
            sums[i] += seen[i];
        }
    }
    std::size_t next = 0;
    for (std::size_t i = 0; i < hits.size(); ++i) {
        if (hits[i] == 0) continue;
        const long oktas = std::clamp(std::lround(8.0 * hits[i] / moments), 1L, 8L);
        reading.sky[next++] = {static_cast<int>(oktas), sums[i] / hits[i]};
    }
}

double GateOf(const InstrumentSetup& setup) {
    if (setup.message->gate != 0) return setup.message->gate;
    return setup.metres ? 30 : 30.48;
}

// gain: 0 when no light leaves the instrument, 1 with a clean window. The depth is summed up in
// steps of at most ten metres, so that coarse gates lose no thin cloud.
void TakeProfile(Reading& reading, const Atmosphere& air, const InstrumentSetup& setup,
                 double gain) {
    const double gate = GateOf(setup);
    const int steps = static_cast<int>(std::ceil(gate / 10));
    const double cosTilt = CosTilt(setup);
    const auto moment = static_cast<std::uint64_t>(std::llround(reading.time * 10));
    double depth = 0;
    double sum = 0;
    for (int i = 0; i < setup.message->samples; ++i) {
        double strongest = 0;
        for (int step = 0; step < steps; ++step) {
            const double range = gate * i + gate * step / steps;
            const Optics optics = OpticsAt(air, range * cosTilt);
            const double weakened = std::exp(-2 * MultipleScattering * depth);
            strongest = std::max(strongest, optics.backscatter * weakened);
            depth += optics.extinction * gate / steps * 0.001;
        }
        const double noise =
            NoiseAt(air, gate * i) * HashNormal(setup.seed + moment, NoiseChannel, i);
        reading.profile.push_back(gain * PlotUnits * strongest + noise);
        sum += gain * strongest * gate;
    }
    reading.integral = static_cast<int>(std::clamp(std::lround(sum), 0L, 999L));
}

// The body of the instrument: heaters and blower follow the weather.
void FeelBody(Reading& reading, const Atmosphere& air, const InstrumentSetup& setup) {
    reading.blowerOn = air.rain > 0 || air.fogExtinction > 0;
    reading.heaterOn = air.temperature < 8;
    reading.laserTemperature = static_cast<int>(std::lround(air.temperature)) + 12;
    reading.steep = std::abs(setup.tilt) > 45;
    if (reading.time >= setup.healthFrom) reading.health = setup.health;
    if (reading.health == Health::Warning) reading.window = 30;
}

// A transmitter that has failed sends no light: there is nothing to report but the noise.
void LoseMeasurement(Reading& reading) {
    reading.detection = '/';
    reading.bases.clear();
    reading.sky = {};
    reading.skyKnown = false;
}

}  // namespace

Reading Measure(const InstrumentSetup& setup, double time) {
    const Atmosphere air = AtmosphereAt(setup.seed, time);
    Reading reading;
    reading.time = time;
    FeelBody(reading, air, setup);
    FindClouds(reading, air, setup);
    JudgeSky(reading, setup);
    double gain = reading.window / 98.0;
    if (reading.health == Health::Alarm) {
        LoseMeasurement(reading);
        gain = 0;
    }
    TakeProfile(reading, air, setup, gain);
    return reading;
}

std::string FormatTime(double time) {
    using namespace std::chrono;
    const auto whole = static_cast<long long>(std::floor(time));
    const sys_seconds at{seconds{whole}};
    const auto day = floor<days>(at);
    const year_month_day date{day};
    const hh_mm_ss clock{at - day};
    char text[64];
    std::snprintf(
        text, sizeof text, "%04d-%02u-%02u %02d:%02d:%02d", int(date.year()),
        unsigned(date.month()), unsigned(date.day()), static_cast<int>(clock.hours().count()),
        static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()));
    return text;
}

bool ParseTime(const std::string& text, double& time) {
    using namespace std::chrono;
    const std::string full = text.size() == 10 ? text + " 00:00:00" : text;
    int y = 0, mo = 0, d = 0, h = 0, mi = 0, s = 0, used = 0;
    if (full.size() != 19 || std::sscanf(full.c_str(), "%4d-%2d-%2d %2d:%2d:%2d%n", &y, &mo, &d, &h,
                                         &mi, &s, &used) != 6)
        return false;
    const year_month_day date{year{y}, month{static_cast<unsigned>(mo)},
                              day{static_cast<unsigned>(d)}};
    if (used != 19 || !date.ok() || h < 0 || h > 23 || mi < 0 || mi > 59 || s < 0 || s > 59)
        return false;
    const auto seconds =
        sys_days{date}.time_since_epoch().count() * 86400LL + h * 3600 + mi * 60 + s;
    time = static_cast<double>(seconds);
    return true;
}

}  // namespace cumeron::sim
