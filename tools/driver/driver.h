// cumeron-drive without its main program: runs scenarios and counts.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "session.h"

namespace cumeron {

// Runs the lines that are still to run, to the end of the file; what fails is told and counted in
// the session.
void RunScript(Session& session);

// Runs one scenario on a fresh machine; what fails is told on out under the name file. Names of
// host files are relative to folder.
Counts RunScenario(const std::string& file, std::istream& text, const std::string& folder,
                   std::ostream& out);

// The whole program over its arguments: 0 nothing failed, 1 something did, 2 a file could not be
// read or an argument is off. The last line on out is "N passed, N failed".
int RunDriver(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
              std::ostream& errors);

}  // namespace cumeron
