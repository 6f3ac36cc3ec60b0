// SPDX-License-Identifier: Apache-2.0
// Events for programs: one JSON object a line.
//
// The first line says {"format": "qzcam-events", "version": N}. Within a version members may be added, and
// events too; a member that goes or changes its meaning makes another version.
#pragma once

#include "base/Output.h"
#include "host/LogFilter.h"

#include <nlohmann/json_fwd.hpp>

#include <utility>

namespace qzcam {

class JsonPrinter : public Output {
  public:
    static constexpr int kVersion = 1;

    JsonPrinter(std::FILE* file, LogFilter filter) : Output(file), mFilter(std::move(filter)) {}

    void device(const Device& device) override;
    void print(const Event& event) override;

  private:
    void write(const nlohmann::ordered_json& object);

    LogFilter mFilter;
    bool mStarted = false;
};

nlohmann::ordered_json jsonOf(const Offer& offer);

// The static entries that areas and crops refer to, as far as the device has them.
nlohmann::ordered_json sensorJson(const Device& device);

// The elements of an entry; a rational as [numerator, denominator].
nlohmann::ordered_json jsonOf(const Values& values);

}  // namespace qzcam
