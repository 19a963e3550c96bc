#pragma once

#include "batch/command_line.h"
#include "batch/console.h"
#include "batch/session.h"

namespace cuewright {

/// Exit statuses of the program.
inline constexpr int kExitDone = 0;
inline constexpr int kExitFailed = 1;  ///< a file failed
inline constexpr int kExitUsage = 2;
inline constexpr int kExitFindings = 3;  ///< a check found something

/// Carries out a request whose session has started; the exit status.
int RunCommand(const Request& request, Session& session, Console& console);

int RunFormats(const Request& request, Session& session, Console& console);
int RunDetect(const Request& request, Session& session, Console& console);
int RunDump(const Request& request, Session& session, Console& console);
int RunPeaks(const Request& request, Session& session, Console& console);
int RunRules(const Request& request, Session& session, Console& console);
int RunRetime(const Request& request, Session& session, Console& console);
int RunReplace(const Request& request, Session& session, Console& console);
int RunProfiles(const Request& request, Session& session, Console& console);
int RunCheck(const Request& request, Session& session, Console& console);
int RunShots(const Request& request, Session& session, Console& console);
int RunAlign(const Request& request, Session& session, Console& console);
int RunSync(const Request& request, Session& session, Console& console);
int RunFit(const Request& request, Session& session, Console& console);
int RunConvert(const Request& request, Session& session, Console& console);

}  // namespace cuewright
