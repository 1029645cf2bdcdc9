// The program's icon with the number of the copy on it, so that several copies can be told apart
// on the task bar. The host view gives it to every window.
#pragma once

#include <QIcon>

namespace cumeron {

// The icon as it is for number 1.
QIcon NumberedIcon(const QIcon& icon, int number);

}  // namespace cumeron
