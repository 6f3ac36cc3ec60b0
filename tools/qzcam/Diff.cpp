#include "Diff.h"

namespace qzcam {

void addDiff(CLI::App&, Action&) {}

}  // namespace qzcam
