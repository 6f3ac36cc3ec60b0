// SPDX-License-Identifier: Apache-2.0
// Prints docs/reference.md, for the build's target renew_reference.
#include "facts/Reference.h"

#include <cstdio>

int main() {
    const std::string markdown = qzcam::referenceMarkdown(qzcam::wholeReference());
    return std::fputs(markdown.c_str(), stdout) < 0 ? 1 : 0;
}
