// What the simulated instrument can send: the six models and their message kinds as tables.
// The command line looks rows up here, the encoders read their layout from the row.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cumeron::sim {

enum class Family { RV, RV10X, KN, TQ60 };

struct ModelRow {
    const char* name;
    int code;  // number under which a workstation knows the model
    Family family;
    int interval;  // seconds between messages unless told otherwise
    const char* defaultMessage;
    double maxRange;  // metres, highest cloud base that the instrument reports
};

// Models a message kind exists on, as bits.
enum : unsigned { OnRv = 1, OnRv10x = 2, OnKn30 = 4, OnKn50 = 8, OnTq60 = 16 };

struct MessageRow {
    unsigned models;
    const char* key;     // what --message takes
    const char* number;  // characters of the message kind on the wire
    const char* what;    // one line for --list
    int samples;         // samples of the profile, 0 without one
    double gate;         // metres between samples; 0: one height step, 100 ft or 30 m
    int skyRecords;      // records of the sky condition block, 0 without one
    int skyDigits;       // digits of a height in that block
};

const std::vector<ModelRow>& Models();
const std::vector<MessageRow>& Messages();

// Both return nullptr for what the tables do not hold. The key is taken in any letter case.
const ModelRow* FindModel(std::string_view name);
const MessageRow* FindMessage(const ModelRow& model, std::string_view key);

bool HasMessage(const ModelRow& model, const MessageRow& message);

// The catalogue as text for --list, one line per message kind of each model.
std::string ListCatalogue();

}  // namespace cumeron::sim
