// The measurement: what the simulated instrument makes of the air at a moment. Everything a
// message says comes from one Reading, so that heights, sky condition, status and profile agree.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "atmosphere.h"
#include "catalogue.h"

namespace cumeron::sim {

enum class Health { Good, Warning, Alarm };

// What does not change while the program runs.
struct InstrumentSetup {
    const ModelRow* model = nullptr;
    const MessageRow* message = nullptr;
    std::uint64_t seed = 1;
    bool metres = false;
    int tilt = 2;                  // degrees from the vertical, -89 to 89
    Health health = Health::Good;  // shown from `healthFrom` on
    double healthFrom = 0;         // time as in AtmosphereAt
    int interval = 15;             // seconds, told in the status text
};

struct SkyLayer {
    int amount = 0;     // oktas; 9 for a vertical visibility, 0 for no layer
    double height = 0;  // metres
};

struct Reading {
    double time = 0;
    Health health = Health::Good;
    char detection = '0';  // '0' to '3' cloud bases, '4' vertical visibility, '/' no measurement
    std::vector<double> bases;      // metres, ascending, at most three
    double verticalVisibility = 0;  // metres, when detection is '4'
    double highestSignal = 0;       // metres, when detection is '4'
    bool skyKnown = true;
    std::array<SkyLayer, 5> sky;  // ascending, unused ones behind
    std::vector<double> profile;  // (10000 srad km)^-1, one per gate of the message
    int integral = 0;             // 0 to 999, sum of the backscatter
    int window = 98;              // percent of light that the window lets through
    int laserTemperature = 20;    // degrees Celsius
    bool blowerOn = false;
    bool heaterOn = false;
    bool steep = false;  // tilted by more than 45 degrees
};

// Pure: the same setup and time give the same reading.
Reading Measure(const InstrumentSetup& setup, double time);

// Seconds of the instrument's clock as "2026-11-15 14:41:25", and back; back returns false for
// what is no such time ("2026-11-15" alone is midnight).
std::string FormatTime(double time);
bool ParseTime(const std::string& text, double& time);

}  // namespace cumeron::sim
