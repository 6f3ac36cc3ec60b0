// SPDX-License-Identifier: Apache-2.0
#include "input/InputText.h"

#include <utility>

namespace qzcam {

InputText textInput(std::string name, std::string text) {
    const auto storage = std::make_shared<const std::string>(std::move(text));
    return {std::move(name), *storage, {}, {}, storage};
}

}  // namespace qzcam
