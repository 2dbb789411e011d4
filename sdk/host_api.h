// The host interface as the plug-in sees it.
#pragma once

#include "host_suites.h"
#include "host_types.h"
