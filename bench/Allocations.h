// How often the process has asked for memory.
#pragma once

#include <cstddef>

namespace qz::bench {

size_t allocations();

}  // namespace qz::bench
