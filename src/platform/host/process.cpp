#include "platform/host/process.h"

#include <QCoreApplication>

#include "platform/host/unicode.h"
#include "platform/runtime/errors.h"

namespace cumeron {

std::string HostProcess::ApplicationFolder() const {
    return FromUnicode(QCoreApplication::applicationDirPath());
}

void HostProcess::Help(const std::string&, int, int) { throw RuntimeError(53); }

}  // namespace cumeron
