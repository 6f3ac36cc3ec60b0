#include "Manual.h"

namespace qzcam {

void addManual(CLI::App&, Action&) {}

}  // namespace qzcam
