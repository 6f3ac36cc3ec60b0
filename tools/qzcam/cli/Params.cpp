#include "cli/Params.h"

#include "base/Text.h"
#include "base/WriteAll.h"
#include "facts/Reference.h"

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
    const auto similar = similarNames(wholeReference(), name);
    complain(fmt::format(
        "qzcam: the library has no parameter, message, command, property, tag or other name '{}'{}{}", name,
        similar.empty() ? "" : "; there is ", fmt::join(similar, ", ")));
}

}  // namespace

ExitStatus params(const ParamsOptions& options) {
    const Reference& whole = wholeReference();
    const Reference reference = options.name.empty() ? whole : only(whole, options.name);
    if (isEmpty(reference)) {
        complainOf(options.name);
        return kUsage;
    }
    return writeAll(stdout, textOf(reference, options)) ? kFine : kBadInput;
}

}  // namespace qzcam
