#include "platform/host/process.h"

#include <QCoreApplication>

#include "platform/host/unicode.h"

namespace cumeron {

std::string HostProcess::ApplicationFolder() const {
    return FromUnicode(QCoreApplication::applicationDirPath());
}

}  // namespace cumeron
