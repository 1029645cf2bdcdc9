// The serial line: what arrives, what goes wrong, what is answered, what was sent.
#include "commands.h"
#include "values.h"

namespace cumeron {

namespace {

constexpr Micros UsualReplyDelay = MicrosPerSecond / 5;

void RunRx(Session& session, const Words& arguments) {
    session.machine.Enter([&] { session.machine.line.Arrive(Joined(arguments, 0)); });
}

void RunCarrier(Session& session, const Words& arguments) {
    session.machine.line.SetCarrier(OnOffArgument(arguments[0]));
}

void RunFault(Session& session, const Words& arguments) {
    if (arguments[0] != "overrun" && arguments[0] != "parity") {
        throw CommandError{Quoted(arguments[0]) + " is neither overrun nor parity"};
    }
    const int event = arguments[0] == "overrun" ? CommEventOverrun : CommEventReceiveParity;
    session.machine.Enter([&] { session.machine.line.RaiseFault(event); });
}

void RunPortError(Session& session, const Words& arguments) {
    session.machine.line.FailNextOpening(IntegerArgument(arguments[0]));
}

void RunSettingsError(Session& session, const Words& arguments) {
    session.machine.line.FailNextSettings(IntegerArgument(arguments[0]));
}

void RunReply(Session& session, const Words& arguments) {
    const Micros delay = arguments.size() > 2 ? SecondsArgument(arguments[2]) : UsualReplyDelay;
    if (arguments[0].empty()) throw CommandError{"an empty trigger never comes"};
    if (arguments[0].size() > LongestTrigger) {
        throw CommandError{"a trigger has at most " + std::to_string(LongestTrigger) + " bytes"};
    }
    session.machine.line.ReplyTo(arguments[0], arguments[1], delay);
}

void RunSent(Session& session, const Words& arguments) {
    const std::string expected = Joined(arguments, 0);
    const std::string sent = session.machine.line.TakeSent();
    session.Check(sent == expected, Quoted(expected), Quoted(sent));
}

constexpr Command Commands[] = {
    {"rx", "VALUE...", 1, AnyNumber, RunRx},
    {"carrier", "on|off", 1, 1, RunCarrier},
    {"fault", "overrun|parity", 1, 1, RunFault},
    {"port-error", "NUMBER", 1, 1, RunPortError},
    {"settings-error", "NUMBER", 1, 1, RunSettingsError},
    {"reply", "TRIGGER VALUE [SECONDS]", 2, 3, RunReply},
    {"sent", "VALUE...", 1, AnyNumber, RunSent},
};

}  // namespace

std::span<const Command> CommandsOfLine() { return Commands; }

}  // namespace cumeron
