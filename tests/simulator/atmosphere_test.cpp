// The weather, looked at as a meteorologist would, and the measurement that must agree with it.
#include "atmosphere.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "setups.h"

namespace cumeron::sim {
namespace {

constexpr double Midnight = Noon - 43200;

template <typename Action>
void ForWeather(Action action) {
    for (std::uint64_t seed : {1u, 2u, 3u, 4u, 5u, 6u})
        for (double time = Midnight; time < Midnight + 86400; time += 600)
            action(AtmosphereAt(seed, time), seed, time);
}

TEST(Atmosphere, SameSeedAndTimeGiveTheSameAirAndOthersDoNot) {
    const InstrumentSetup setup = MakeSetup("KN30");
    InstrumentSetup other = setup;
    other.seed = 2;
    const std::string frame = Encode(setup, Measure(setup, Noon));
    EXPECT_EQ(frame, Encode(setup, Measure(setup, Noon)));
    EXPECT_NE(frame, Encode(setup, Measure(setup, Noon + 15)));
    EXPECT_NE(frame, Encode(other, Measure(other, Noon)));
}

TEST(Atmosphere, AerosolLayerGrowsByDay) {
    for (std::uint64_t seed : {1u, 2u, 3u}) {
        const double night = AtmosphereAt(seed, Midnight + 4 * 3600).aerosolTop;
        const double morning = AtmosphereAt(seed, Midnight + 10 * 3600).aerosolTop;
        const double afternoon = AtmosphereAt(seed, Midnight + 16 * 3600).aerosolTop;
        EXPECT_LT(night, 400);
        EXPECT_LT(night, morning);
        EXPECT_LT(morning, afternoon);
        EXPECT_GT(afternoon, 900);
        EXPECT_LT(afternoon, 2500);
        const Atmosphere air = AtmosphereAt(seed, Midnight + 16 * 3600);
        EXPECT_GT(OpticsAt(air, 100).backscatter,
                  5 * OpticsAt(air, air.residualTop + 300).backscatter);
    }
}

TEST(Atmosphere, LayersKeepTheirOrder) {
    ForWeather([](const Atmosphere& air, std::uint64_t, double) {
        for (std::size_t i = 0; i + 1 < air.layers.size(); ++i)
            EXPECT_LT(air.layers[i].base + air.layers[i].thickness, air.layers[i + 1].base);
        EXPECT_GT(air.layers[0].base, 300);
        EXPECT_GT(air.layers[1].cover, 0) << "the sky is never without any cloud";
    });
}

TEST(Atmosphere, CloudsDriftWithoutJumps) {
    for (std::size_t layer = 0; layer < 3; ++layer) {
        double lowest = 1e9, highest = 0;
        for (double time = Midnight; time < Midnight + 86400; time += 60) {
            const double base = AtmosphereAt(1, time).layers[layer].base;
            EXPECT_LT(std::abs(AtmosphereAt(1, time + 60).layers[layer].base - base), 60);
            lowest = std::min(lowest, base);
            highest = std::max(highest, base);
        }
        EXPECT_GT(highest - lowest, 100) << layer;
    }
}

TEST(Atmosphere, BringsFogRainAndBrokenSkies) {
    std::set<char> detections;
    int rain = 0;
    const InstrumentSetup base = MakeSetup("KN50", "15");
    ForWeather([&](const Atmosphere& air, std::uint64_t seed, double time) {
        InstrumentSetup setup = base;
        setup.seed = seed;
        detections.insert(Measure(setup, time).detection);
        if (air.rain <= 0) return;
        ++rain;
        EXPECT_TRUE(air.layers[0].overhead);
        EXPECT_EQ(air.fogExtinction, 0);
        Atmosphere dry = air;
        dry.rain = 0;
        const double below = air.layers[0].base - 50;
        EXPECT_GT(OpticsAt(air, below).backscatter, OpticsAt(dry, below).backscatter);
        EXPECT_EQ(OpticsAt(air, air.layers[0].base + 5).backscatter,
                  OpticsAt(dry, air.layers[0].base + 5).backscatter);
    });
    EXPECT_GT(rain, 0);
    for (char wanted : {'0', '1', '2', '4'}) EXPECT_TRUE(detections.contains(wanted)) << wanted;
}

TEST(Atmosphere, FogLeavesBeforeNoon) {
    int nights = 0;
    ForWeather([&](const Atmosphere& air, std::uint64_t, double time) {
        const double hour = (time - Midnight) / 3600;
        if (air.fogExtinction <= 0) return;
        ++nights;
        EXPECT_GT(hour, 2);
        EXPECT_LT(hour, 9);
    });
    EXPECT_GT(nights, 0);
}

TEST(Hash, NormalNumbersAreNormal) {
    double sum = 0, squares = 0;
    for (int i = 0; i < 20000; ++i) {
        const double x = HashNormal(1, 2, i);
        sum += x;
        squares += x * x;
    }
    EXPECT_NEAR(sum / 20000, 0, 0.03);
    EXPECT_NEAR(squares / 20000, 1, 0.05);
}

TEST(Measure, ProfileStandsOutAtTheReportedBases) {
    InstrumentSetup setup = MakeSetup("KN50", "26");
    int bases = 0;
    for (double time = Midnight; time < Midnight + 86400; time += 1800) {
        const Reading reading = Measure(setup, time);
        for (double base : reading.bases) {
            const auto at = static_cast<std::size_t>(base / 10) + 2;
            const double above = reading.profile[at];
            const double below = reading.profile[at - 8];
            EXPECT_GT(above, below + 10) << FormatTime(time) << " base " << base;
            ++bases;
        }
    }
    EXPECT_GT(bases, 20);
}

TEST(Measure, SkyConditionHoldsTheReportedBases) {
    ForWeather([](const Atmosphere&, std::uint64_t seed, double time) {
        InstrumentSetup setup = MakeSetup("KN50", "15");
        setup.seed = seed;
        const Reading reading = Measure(setup, time);
        for (double base : reading.bases) {
            const auto near = [base](const SkyLayer& layer) {
                return layer.amount > 0 && std::abs(layer.height - base) < 200;
            };
            EXPECT_TRUE(std::any_of(reading.sky.begin(), reading.sky.end(), near))
                << seed << " " << FormatTime(time);
        }
        for (std::size_t i = 0; i + 1 < reading.sky.size(); ++i) {
            if (reading.sky[i + 1].amount == 0) continue;
            EXPECT_LT(reading.sky[i].height, reading.sky[i + 1].height);
        }
        EXPECT_EQ(reading.sky[0].amount == 9, reading.detection == '4');
    });
}

TEST(Measure, FogHidesWhatIsAbove) {
    InstrumentSetup setup = MakeSetup("KN30", "11");
    bool seen = false;
    for (double time = Midnight; time < Midnight + 86400 && !seen; time += 600) {
        const Reading reading = Measure(setup, time);
        if (reading.detection != '4') continue;
        seen = true;
        const double visible = reading.verticalVisibility;
        EXPECT_GT(visible, 20);
        EXPECT_LT(visible, 500);
        EXPECT_LT(reading.highestSignal, visible);
        EXPECT_GT(reading.profile[static_cast<std::size_t>(reading.highestSignal / 10)], 1000);
        EXPECT_LT(reading.profile[static_cast<std::size_t>(visible / 10) + 40], 10);
        EXPECT_TRUE(reading.blowerOn);
    }
    EXPECT_TRUE(seen);
}

TEST(Measure, NoiseGrowsWithHeight) {
    InstrumentSetup setup = MakeSetup("KN50", "16");
    setup.health = Health::Alarm;  // no light: only noise is left
    const Reading reading = Measure(setup, Noon);
    const auto power = [&reading](std::size_t from, std::size_t to) {
        double sum = 0;
        for (std::size_t i = from; i < to; ++i) sum += reading.profile[i] * reading.profile[i];
        return sum / static_cast<double>(to - from);
    };
    EXPECT_GT(power(700, 800), 10 * power(300, 400));
    EXPECT_GT(power(1400, 1500), 2 * power(1000, 1100));
}

TEST(Measure, ThickCloudHidesHigherOnes) {
    int checked = 0;
    for (double time = Midnight; time < Midnight + 3 * 86400; time += 600) {
        const Atmosphere air = AtmosphereAt(1, time);
        const bool thick = air.layers[0].overhead && air.layers[0].thickness > 400;
        if (!thick || air.fogExtinction > 0 || !air.layers[1].overhead) continue;
        const InstrumentSetup setup = MakeSetup("KN50", "16");
        const Reading reading = Measure(setup, time);
        EXPECT_EQ(reading.bases.size(), 1u) << FormatTime(time);
        const auto inside = static_cast<std::size_t>((air.layers[1].base + 50) / 10);
        EXPECT_LT(reading.profile[inside], 100) << FormatTime(time);
        ++checked;
    }
    EXPECT_GT(checked, 0);
}

TEST(Measure, TiltMovesTheEchoOutAlongTheBeam) {
    InstrumentSetup setup = MakeSetup("KN30", "11");
    setup.tilt = 60;
    int checked = 0;
    for (double time = Midnight; time < Midnight + 86400; time += 900) {
        const Reading reading = Measure(setup, time);
        EXPECT_TRUE(reading.steep);
        if (reading.bases.empty() || reading.bases[0] > 2000) continue;
        const auto along = static_cast<std::size_t>(reading.bases[0] * 2 / 10);
        EXPECT_GT(reading.profile[along + 3], reading.profile[along - 5] + 10);
        ++checked;
    }
    EXPECT_GT(checked, 0);
}

TEST(Measure, WarningBeginsWhenItIsTold) {
    InstrumentSetup setup = MakeSetup("KN30", "15");
    setup.health = Health::Warning;
    setup.healthFrom = Noon + 60;
    EXPECT_EQ(Measure(setup, Noon + 59).health, Health::Good);
    EXPECT_EQ(Measure(setup, Noon + 59).window, 98);
    EXPECT_EQ(Measure(setup, Noon + 60).health, Health::Warning);
    EXPECT_EQ(Measure(setup, Noon + 60).window, 30);
}

TEST(ParseTime, TakesDatesAndRefusesTheRest) {
    double time = 0;
    ASSERT_TRUE(ParseTime("2026-11-15 12:00:00", time));
    EXPECT_EQ(time, Noon);
    ASSERT_TRUE(ParseTime("2026-11-15", time));
    EXPECT_EQ(FormatTime(time), "2026-11-15 00:00:00");
    for (const char* bad : {"", "2026-13-01", "2026-02-30", "2026-11-15 24:00:00", "15.11.2026",
                            "2026-11-15 12:60:00", "2026-11-15 12:00:0x", "2026-11-15T12:00:00"})
        EXPECT_FALSE(ParseTime(bad, time)) << bad;
}

}  // namespace
}  // namespace cumeron::sim
