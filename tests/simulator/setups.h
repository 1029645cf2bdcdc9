// Setups and readings for the tests of the simulator.
#pragma once

#include <stdexcept>
#include <string>

#include "encode.h"
#include "run.h"

namespace cumeron::sim {

inline constexpr double Noon = 1794744000;  // 2026-11-15 12:00:00

inline InstrumentSetup MakeSetup(const std::string& model, const std::string& key = "") {
    InstrumentSetup setup;
    setup.model = FindModel(model);
    if (setup.model == nullptr) throw std::invalid_argument(model);
    setup.message = FindMessage(*setup.model, key.empty() ? setup.model->defaultMessage : key);
    if (setup.message == nullptr) throw std::invalid_argument(model + " " + key);
    setup.interval = setup.model->interval;
    return setup;
}

inline SimulatedRun MakeRun(const std::string& model, const std::string& key = "") {
    SimulatedRun run;
    run.setup = MakeSetup(model, key);
    run.start = Noon;
    return run;
}

// Two cloud bases and a full sky condition; the profile as long as the message wants it.
inline Reading TwoClouds(const InstrumentSetup& setup) {
    Reading reading;
    reading.time = Noon;
    reading.detection = '2';
    reading.bases = {375, 1372};
    reading.sky = {SkyLayer{3, 375}, SkyLayer{5, 1372}, SkyLayer{7, 2100}, SkyLayer{}, SkyLayer{}};
    reading.profile.assign(static_cast<std::size_t>(setup.message->samples), 100.0);
    reading.integral = 123;
    return reading;
}

inline Reading Fog(const InstrumentSetup& setup) {
    Reading reading = TwoClouds(setup);
    reading.detection = '4';
    reading.bases.clear();
    reading.verticalVisibility = 91;
    reading.highestSignal = 36;
    reading.sky = {SkyLayer{9, 91}};
    return reading;
}

// Characters from a position counted from 1, as the layouts count.
inline std::string At(const std::string& frame, std::size_t position, std::size_t length) {
    return position > frame.size() ? "" : frame.substr(position - 1, length);
}

}  // namespace cumeron::sim
