#include "run.h"

#include <algorithm>
#include <cstdlib>

#include "encode.h"

namespace cumeron::sim {

namespace {

std::string CloudReport(const Reading& reading) {
    if (reading.detection == '/') return "NO MEASUREMENT";
    if (reading.detection == '4') return "VERTICAL VISIBILITY";
    return std::to_string(reading.bases.size()) + " CLOUD BASES";
}

std::string FaultReport(const Reading& reading) {
    if (reading.health == Health::Alarm) return "ALARM: TRANSMITTER FAILURE";
    if (reading.health == Health::Warning) return "WARNING: WINDOW CONTAMINATED";
    return "NO ALARMS, NO WARNINGS";
}

}  // namespace

double TimeOfMessage(const SimulatedRun& run, std::int64_t number) {
    std::int64_t seconds = number * run.setup.interval;
    if (run.changedInterval > 0 && number > run.changedAfter)
        seconds = run.changedAfter * run.setup.interval +
                  (number - run.changedAfter) * run.changedInterval;
    return run.start + static_cast<double>(seconds);
}

int IntervalAfter(const SimulatedRun& run, std::int64_t number) {
    if (run.changedInterval > 0 && number >= run.changedAfter) return run.changedInterval;
    return run.setup.interval;
}

SentMessage MessageOf(const SimulatedRun& run, std::int64_t number) {
    const Reading reading = Measure(run.setup, TimeOfMessage(run, number));
    return Spoil(Encode(run.setup, reading), run.faults, run.setup.seed, number,
                 run.setup.model->family);
}

std::string StatusReport(const SimulatedRun& run, double time) {
    const InstrumentSetup& setup = run.setup;
    const Reading reading = Measure(setup, time);
    const std::string word = StatusWord(setup, reading);
    std::string text;
    const auto add = [&text](const std::string& line) { text += line + "\r\n"; };
    add(std::string(setup.model->name) + " STATUS " + FormatTime(time));
    add(FaultReport(reading));
    if (!word.empty()) add("STATUS WORD " + word);
    add(CloudReport(reading));
    add(std::string("MESSAGE ") + setup.message->key + ", INTERVAL " +
        std::to_string(setup.interval) + " S");
    add(setup.metres ? "UNITS METERS" : "UNITS FEET");
    add("TILT " + std::to_string(setup.tilt) + " DEGREES");
    add("WINDOW " + std::to_string(reading.window) + " %");
    add("LASER TEMPERATURE " + std::to_string(reading.laserTemperature) + " C");
    add(std::string("BLOWER ") + (reading.blowerOn ? "ON" : "OFF") + ", HEATER " +
        (reading.heaterOn ? "ON" : "OFF"));
    return text;
}

}  // namespace cumeron::sim
