// The log as lines on standard error.
#pragma once

#include "ka/log_sink.h"

// Writes "LEVEL TAG function:line: text" and one newline with a single call of the system, so that lines of
// several threads do not mix. Colours reach a terminal only.
void writeLogLine(const KaLogMessage& message);
