#include "encode.h"

namespace cumeron::sim {

std::string Encode(const InstrumentSetup& setup, const Reading& reading) {
    switch (setup.model->family) {
        case Family::RV:
            return EncodeRv(setup, reading);
        case Family::RV10X:
            return EncodeRv10x(setup, reading);
        case Family::KN:
            return EncodeKn(setup, reading);
        case Family::TQ60:
            break;
    }
    return EncodeTq60(setup, reading);
}

std::string StatusWord(const InstrumentSetup& setup, const Reading& reading) {
    switch (setup.model->family) {
        case Family::RV:
            return StatusWordRv(setup, reading);
        case Family::RV10X:
            return StatusWordRv10x(setup, reading);
        case Family::KN:
            return StatusWordKn(setup, reading);
        case Family::TQ60:
            break;
    }
    return "";
}

}  // namespace cumeron::sim
