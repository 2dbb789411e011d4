// The suites the host serves: each suite file lists its tables with the name and version each
// serves, in the order the host lists them.
#pragma once

#include "host_api.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace host::detail {

struct ServedSuite {
    std::string_view name;
    int32_t version;
    const void* table;
};

std::span<const ServedSuite> registerSuites();
std::span<const ServedSuite> commandSuites();
std::span<const ServedSuite> utilitySuites();
std::span<const ServedSuite> collectionSuites();
std::span<const ServedSuite> compAndItemSuites();
std::span<const ServedSuite> layerSuites();
std::span<const ServedSuite> streamAndKeyframeSuites();
std::span<const ServedSuite> panelSuites();
std::span<const ServedSuite> appSuites();

}  // namespace host::detail
