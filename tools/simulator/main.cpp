// cumeron-sim: the command line. It fills a SimulatedRun and a Live from the options and starts one
// of the three outputs. Exit status: 0 good, 1 a file or the line failed, 2 a bad argument.
#include <CLI/CLI.hpp>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <system_error>

#include "live.h"
#include "outputs.h"

namespace cumeron::sim {
namespace {

std::atomic<bool> stopAsked{false};
static_assert(std::atomic<bool>::is_always_lock_free, "set in a signal handler");

void OnSignal(int) { stopAsked = true; }

// What was typed, before it is judged.
struct Options {
    std::string model = "KN30", message, start, units = "ft", alarm = "none";
    int interval = 0;
    double alarmAfter = 0;
    std::string device, link, logFile, scenarioFile;
    double hours = 24;
    bool list = false;
};

void AddInstrumentOptions(CLI::App& app, Options& o, Live& live) {
    app.add_flag("--list", o.list, "Print all models and their messages, and end");
    app.add_option("--model", o.model, "RV70X, RV20X, RV10X, KN30, KN50 or TQ60")
        ->capture_default_str();
    app.add_option("--message", o.message, "Message kind, see --list");
    app.add_option("--interval", o.interval, "Seconds between messages (default: the model's)")
        ->check(CLI::Range(1, 32767));
    app.add_option("--units", o.units, "Unit of all heights")
        ->check(CLI::IsMember({"m", "ft"}))
        ->capture_default_str();
    app.add_option("--tilt,--angle", live.run.setup.tilt, "Degrees from the vertical")
        ->check(CLI::Range(-60, 60))
        ->capture_default_str();
    app.add_option("--alarm", o.alarm, "What the instrument suffers from: none, warning or alarm")
        ->check(CLI::IsMember({"none", "warning", "alarm"}))
        ->capture_default_str();
    app.add_option("--alarm-after", o.alarmAfter, "Seconds until it does")
        ->check(CLI::NonNegativeNumber);
    app.add_option("--seed", live.run.setup.seed, "Picks the weather")->capture_default_str();
    app.add_option("--start", o.start,
                   "Its clock at the first message, \"2026-11-15 14:41:25\" "
                   "(default: now)");
}

void AddLineOptions(CLI::App& app, Options& o, Live& live) {
    app.add_option("--device", o.device, "Serial device, instead of a pseudo terminal");
    app.add_option("--link", o.link, "Make this symbolic link to the pseudo terminal");
    app.add_option("--baud", live.baud, "Speed of the line")
        ->check([](const std::string& text) {
            int baud = 0;
            const bool known = CLI::detail::lexical_cast(text, baud) && IsLineSpeed(baud);
            return known ? std::string() : text + " is no speed of a serial line";
        })
        ->capture_default_str();
    app.add_option("--speed", live.speed, "Seconds of the instrument in one second outside")
        ->check(CLI::Range(0.01, 10000.0))
        ->capture_default_str();
    app.add_option("--messages", live.messages, "End after so many messages")
        ->check(CLI::PositiveNumber);
    app.add_option("--modem", live.service.dialPrefix,
                   "Play a modem that is dialled with this word in front (ATD)")
        ->expected(0, 1)
        ->default_str("ATD");
    app.add_option("--connect-after", live.service.connectAfter, "Seconds from dialling to CONNECT")
        ->check(CLI::NonNegativeNumber)
        ->capture_default_str();
    app.add_flag("--echo", live.service.echo,
                 "Send back each character while the service line is open");
    app.add_option("--drop-call-after", live.service.dropCallAfter,
                   "Seconds from CONNECT to NO CARRIER")
        ->check(CLI::PositiveNumber);
}

void AddFaultOptions(CLI::App& app, Live& live) {
    FaultRates& faults = live.run.faults;
    const CLI::Range rate(0.0, 1.0);
    app.add_option("--fault-checksum", faults.checksum, "Share with a wrong checksum (KN)")
        ->check(rate);
    app.add_option("--fault-cut", faults.cut, "Share without an end")->check(rate);
    app.add_option("--fault-lost-start", faults.lostStart, "Share without a start")->check(rate);
    app.add_option("--fault-noise", faults.noise, "Share with noise in front")->check(rate);
    app.add_option("--fault-silence", faults.silence, "Share that does not come")->check(rate);
    app.add_option("--fault-interval", live.run.changedInterval, "Change to this interval, seconds")
        ->check(CLI::Range(1, 32767));
    app.add_option("--fault-interval-after", live.run.changedAfter, "Messages before the change")
        ->check(CLI::NonNegativeNumber)
        ->capture_default_str();
}

void AddFileOptions(CLI::App& app, Options& o) {
    app.add_option("--log", o.logFile,
                   "Write the log of a workstation, and end (- : standard "
                   "output)");
    app.add_option("--scenario", o.scenarioFile, "Write a script for cumeron-drive, and end");
    app.add_option("--hours", o.hours, "Hours that the log or the script covers")
        ->check(CLI::Range(0.001, 24 * 366.0))
        ->capture_default_str();
}

double LocalNow() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    return static_cast<double>(now + parts.tm_gmtoff);
}

// Fills the setup. Throws std::invalid_argument with what is wrong.
void Judge(const Options& o, Live& live) {
    SimulatedRun& run = live.run;
    InstrumentSetup& setup = run.setup;
    setup.model = FindModel(o.model);
    if (setup.model == nullptr) throw std::invalid_argument("--model: no model " + o.model);
    const std::string key = o.message.empty() ? setup.model->defaultMessage : o.message;
    setup.message = FindMessage(*setup.model, key);
    if (setup.message == nullptr)
        throw std::invalid_argument("--message: a " + std::string(setup.model->name) +
                                    " sends no message " + key + ", see --list");
    setup.metres = o.units == "m";
    setup.interval = o.interval > 0 ? o.interval : setup.model->interval;
    if (o.start.empty()) {
        run.start = LocalNow();
    } else if (!ParseTime(o.start, run.start)) {
        throw std::invalid_argument("--start: no time " + o.start);
    }
    setup.health = o.alarm == "alarm"     ? Health::Alarm
                   : o.alarm == "warning" ? Health::Warning
                                          : Health::Good;
    setup.healthFrom = run.start + o.alarmAfter;
    if (run.faults.checksum > 0 && setup.model->family != Family::KN)
        throw std::invalid_argument("--fault-checksum: a " + std::string(setup.model->name) +
                                    " sends no checksum");
    if (!o.device.empty() && !o.link.empty())
        throw std::invalid_argument("--link: a device has a name of its own");
    const bool tooQuick =
        setup.interval < 2 || (run.changedInterval > 0 && run.changedInterval < 2);
    if (!o.scenarioFile.empty() && tooQuick)
        throw std::invalid_argument("--scenario: needs intervals of 2 seconds or more");
}

using Writer = void (*)(std::ostream&, const SimulatedRun&, double);

int WriteFile(const std::string& path, Writer write, const SimulatedRun& run, double hours) {
    std::ofstream file;
    if (path != "-") file.open(path, std::ios::binary);
    std::ostream& out = path == "-" ? std::cout : file;
    if (out) write(out, run, hours);
    out.flush();
    if (out) return 0;
    std::cerr << "cumeron-sim: " << path << ": cannot be written\n";
    return 1;
}

int ServeLine(const Options& o, Live& live) {
    struct sigaction action {};
    action.sa_handler = OnSignal;
    for (int number : {SIGTERM, SIGINT, SIGHUP}) sigaction(number, &action, nullptr);
    Line line = o.device.empty() ? OpenPseudoTerminal() : OpenDevice(o.device, live.baud);
    try {
        if (!o.link.empty()) LinkLine(line, o.link);
    } catch (...) {
        CloseLine(line);
        throw;
    }
    std::cout << line.name << std::endl;
    live.service.statusReport = [&live](double time) { return StatusReport(live.run, time); };
    StartService(live.service);
    RunLive(live, line, stopAsked);
    CloseLine(line);
    return 0;
}

int Work(const Options& o, Live& live) {
    if (o.list) {
        std::cout << ListCatalogue();
        return 0;
    }
    Judge(o, live);
    int result = 0;
    if (!o.logFile.empty()) result |= WriteFile(o.logFile, WriteLog, live.run, o.hours);
    if (!o.scenarioFile.empty())
        result |= WriteFile(o.scenarioFile, WriteScenario, live.run, o.hours);
    if (!o.logFile.empty() || !o.scenarioFile.empty()) return result;
    return ServeLine(o, live);
}

int Main(int argc, char** argv) {
    CLI::App app("The simulated ceilometer: sends what an instrument sends.", "cumeron-sim");
    app.footer(
        "Examples:\n"
        "  cumeron-sim --model KN30 --link /tmp/ceilo\n"
        "  cumeron-sim --model RV70X --speed 60\n"
        "  cumeron-sim --model KN50 --hours 24 --start 2026-11-15 --log A6111500.DAT");
    Options options;
    Live live;
    AddInstrumentOptions(app, options, live);
    AddLineOptions(app, options, live);
    AddFaultOptions(app, live);
    AddFileOptions(app, options);
    try {
        app.parse(argc, argv);
        if (app.count("--modem") > 0 && live.service.dialPrefix.empty())
            live.service.dialPrefix = "ATD";
        return Work(options, live);
    } catch (const CLI::ParseError& e) {
        return app.exit(e) == 0 ? 0 : 2;
    } catch (const std::invalid_argument& e) {
        std::cerr << "cumeron-sim: " << e.what() << "\n";
        return 2;
    } catch (const std::exception& e) {
        std::cerr << "cumeron-sim: " << e.what() << "\n";
        return 1;
    }
}

}  // namespace
}  // namespace cumeron::sim

int main(int argc, char** argv) {
    try {
        return cumeron::sim::Main(argc, argv);
    } catch (...) {
        // What fails while a failure is told.
        return 1;
    }
}
