// The files a run writes: the scene after the run, the preview picture, the dialog picture.
#pragma once

#include "app/options.h"
#include "app/session.h"

namespace app {

// Makes every requested text first, then writes them; throws AppError when a file cannot be written.
void writeOutputs(const Options& options, const SessionResult& result);

}  // namespace app
