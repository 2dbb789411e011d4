// The host interface as the plug-in sees it.
#pragma once

#include "host_types.h"
#include "host_suites.h"
