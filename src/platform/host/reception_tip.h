// What the tip over the values tells of the reception. The host view shows it.
#pragma once

#include <QString>

namespace cumeron {

struct Workstation;

// Age of the last good message, and how many were rejected since the start of the program.
QString ReceptionTip(const Workstation& w);

}  // namespace cumeron
