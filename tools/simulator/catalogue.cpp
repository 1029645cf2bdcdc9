#include "catalogue.h"

#include <cctype>

namespace cumeron::sim {

namespace {

constexpr unsigned OnKn = OnKn30 | OnKn50;

unsigned BitOf(const ModelRow& model) {
    switch (model.family) {
        case Family::RV:
            return OnRv;
        case Family::RV10X:
            return OnRv10x;
        case Family::KN:
            return model.code == 30 ? OnKn30 : OnKn50;
        case Family::TQ60:
            break;
    }
    return OnTq60;
}

bool SameWord(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (std::toupper(static_cast<unsigned char>(a[i])) !=
            std::toupper(static_cast<unsigned char>(b[i])))
            return false;
    }
    return true;
}

}  // namespace

const std::vector<ModelRow>& Models() {
    static const std::vector<ModelRow> rows = {
        {"RV70X", 70, Family::RV, 60, "73", 21000},  {"RV20X", 20, Family::RV, 15, "73", 7600},
        {"RV10X", 10, Family::RV10X, 12, "6", 3800}, {"KN30", 30, Family::KN, 15, "21", 7600},
        {"KN50", 50, Family::KN, 15, "26", 13000},   {"TQ60", 60, Family::TQ60, 15, "TA01", 15000},
    };
    return rows;
}

const std::vector<MessageRow>& Messages() {
    static const std::vector<MessageRow> rows = {
        {OnRv, "73", "73", "profile of 256 samples, sky condition", 256, 0, 4, 3},
        {OnRv, "73N", "73", "profile of 256 samples, sky condition left out", 256, 0, 0, 3},
        {OnRv, "23", "23", "profile of 256 samples", 256, 0, 0, 0},
        {OnRv, "24", "24", "profile of 384 samples", 384, 0, 0, 0},
        {OnRv, "28", "28", "profile of 752 samples", 752, 0, 0, 0},
        {OnRv, "10", "10", "cloud heights", 0, 0, 0, 0},
        {OnRv, "33", "33", "cloud heights and measuring conditions", 0, 0, 0, 0},
        {OnRv, "60", "60", "cloud heights, sky condition of 3 digits", 0, 0, 4, 3},
        {OnRv, "61", "61", "cloud heights, sky condition of 4 digits", 0, 0, 4, 4},
        {OnRv, "S0", "S0", "status", 0, 0, 0, 0},
        {OnRv, "R0", "R0", "raw data of 256 samples", 256, 0, 4, 3},
        {OnRv10x, "6", "6", "cloud heights, 128 hit flags, sky condition", 128, 0, 4, 3},
        {OnRv10x, "3", "3", "cloud heights, 128 hit flags", 128, 0, 0, 0},
        {OnRv10x, "R", "R", "raw data", 256, 0, 0, 0},
        {OnKn, "11", "11", "profile of 770 samples, 10 m", 770, 10, 0, 0},
        {OnKn, "12", "12", "profile of 385 samples, 20 m", 385, 20, 0, 0},
        {OnKn, "13", "13", "profile of 1500 samples, 5 m", 1500, 5, 0, 0},
        {OnKn, "14", "14", "profile of 770 samples, 5 m", 770, 5, 0, 0},
        {OnKn, "15", "15", "cloud heights", 0, 10, 0, 0},
        {OnKn50, "16", "16", "profile of 1540 samples, 10 m", 1540, 10, 0, 0},
        {OnKn, "18", "18", "cloud heights, long form", 0, 10, 0, 0},
        {OnKn, "21", "21", "sky condition, profile of 770 samples, 10 m", 770, 10, 4, 4},
        {OnKn, "22", "22", "sky condition, profile of 385 samples, 20 m", 385, 20, 4, 4},
        {OnKn, "23", "23", "sky condition, profile of 1500 samples, 5 m", 1500, 5, 4, 4},
        {OnKn, "24", "24", "sky condition, profile of 770 samples, 5 m", 770, 5, 4, 4},
        {OnKn, "25", "25", "cloud heights, sky condition", 0, 10, 4, 4},
        {OnKn50, "26", "26", "sky condition of 5, profile of 1540 samples, 10 m", 1540, 10, 5, 4},
        {OnKn, "28", "28", "cloud heights, sky condition of 5", 0, 10, 5, 4},
        {OnTq60, "TA01", "TA01", "cloud heights, profile of 2048 samples", 2048, 7.5, 0, 0},
        {OnTq60, "TA08", "TA08", "cloud heights, 16 samples", 16, 7.5, 0, 0},
        {OnTq60, "RD01", "RD01", "profile of 2048 samples", 2048, 7.5, 0, 0},
    };
    return rows;
}

const ModelRow* FindModel(std::string_view name) {
    for (const ModelRow& row : Models())
        if (SameWord(row.name, name)) return &row;
    return nullptr;
}

const MessageRow* FindMessage(const ModelRow& model, std::string_view key) {
    for (const MessageRow& row : Messages())
        if (HasMessage(model, row) && SameWord(row.key, key)) return &row;
    return nullptr;
}

bool HasMessage(const ModelRow& model, const MessageRow& message) {
    return (message.models & BitOf(model)) != 0;
}

std::string ListCatalogue() {
    std::string text;
    for (const ModelRow& model : Models()) {
        for (const MessageRow& row : Messages()) {
            if (!HasMessage(model, row)) continue;
            std::string line = std::string(model.name) + "      ";
            line.resize(7, ' ');
            line += std::string(row.key) + "     ";
            line.resize(13, ' ');
            line += row.what;
            if (SameWord(row.key, model.defaultMessage)) line += " (default)";
            text += line + "\n";
        }
    }
    return text;
}

}  // namespace cumeron::sim
