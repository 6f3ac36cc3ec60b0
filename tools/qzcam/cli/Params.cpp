// SPDX-License-Identifier: Apache-2.0
#include "cli/Commands.h"

#include "base/Text.h"
#include "base/WriteAll.h"
#include "cli/CommandFiles.h"
#include "cli/DeviceInput.h"
#include "facts/Hints.h"
#include "facts/Reference.h"
#include "facts/StandardKeys.h"
#include "verdict/DeviceSection.h"

#include <fmt/format.h>

#include <cstdio>

namespace qzcam {

namespace {

std::string textOf(const Reference& reference, const ParamsOptions& options) {
    if (options.markdown) return referenceMarkdown(reference);
    if (options.json) return referenceJson(reference);
    return options.name.empty() ? referenceIndex(reference) : referenceText(reference);
}

void complainOf(const std::string& name) {
    auto similar = nearest(name, allNames(wholeReference()));
    if (similar.empty()) similar = similarNames(wholeReference(), name);
    if (similar.empty()) similar = likelyKeys(name);
    const std::string file = whyFile(name);
    complain(fmt::format(
        "qzcam: the library has no parameter, message, command, property, tag or other name '{}'{}", name,
        !file.empty()                      ? file
        : findStandardKey(name) != nullptr ? "; it is a standard key, which the platform handles"
        : similar.empty()                  ? "; 'qzcam params' lists the names"
                                           : perhaps(similar)));
}

}  // namespace

ExitStatus params(const ParamsOptions& options) {
    const Reference& whole = wholeReference();
    Reference reference = options.name.empty() ? whole : rowsNamed(whole, options.name);
    if (isEmpty(reference)) {
        complainOf(options.name);
        return kUsage;
    }
    if (!options.device.empty() || !options.camera.empty()) {
        const auto input = readDevice(options.device, options.camera);
        if (!input) return kBadInput;
        reference.push_back(deviceSection(input->device, reference));
    }
    return writeAll(stdout, textOf(reference, options)) ? kFine : kBadInput;
}

}  // namespace qzcam
