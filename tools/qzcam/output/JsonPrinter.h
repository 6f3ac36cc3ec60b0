// SPDX-License-Identifier: Apache-2.0
// Prints events for programs: one JSON object on each line.
//
// The first line is {"format": "qzcam-events", "version": N}. Members and events may be added within a
// version. If a member is removed or changes its meaning, the version changes.
#pragma once

#include "base/Output.h"
#include "host/LogFilter.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
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

// Returns the static entries that define the coordinates of areas and crops; only those of the device.
nlohmann::ordered_json sensorJson(const Device& device);

// Returns the JSON as text; a negative indent gives one line without its end.
std::string jsonText(const nlohmann::ordered_json& json, int indent = 2);

// Returns the elements of an entry; a rational is [numerator, denominator].
nlohmann::ordered_json jsonOf(const Values& values);

}  // namespace qzcam
