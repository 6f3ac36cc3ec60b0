// SPDX-License-Identifier: Apache-2.0
// Differences between two devices, or between the results of two sessions on one device.
#pragma once

#include "base/Values.h"
#include "device/Device.h"
#include "session/Session.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// A fact with a name: a type, a parameter's text, or the values of an entry.
struct Fact {
    std::string text;
    std::optional<Values> values = std::nullopt;  // set if `text` shows them
};
using Facts = std::map<std::string, Fact>;

struct Request {
    size_t line;  // line of the session
    Facts entries;
};

// One side of a comparison.
struct DiffSide {
    std::string name;
    Facts tags;          // the vendor tags and their types
    Facts capabilities;  // the static entries
    Facts parameters;
    std::vector<Request> requests;
};

// Returns the device, its published parameters, and the requests of the session.
DiffSide sideOf(const Device& device, const Session& session);

// Returns the parameters at the end of the session, and its requests.
DiffSide sideOf(const Session& session, const Device& device);

struct Difference {
    std::string name;
    std::optional<Fact> a;
    std::optional<Fact> b;
};

struct Comparison {
    std::string title;
    size_t compared;  // number of names on both sides together
    std::vector<Difference> differences;
    Facts alike = {};
};

struct RequestComparison {
    std::optional<size_t> lineA;  // none: this side makes no such request
    std::optional<size_t> lineB;
    Comparison entries;
};

struct DiffReport {
    std::string a;
    std::string b;
    Comparison tags;
    Comparison capabilities;
    Comparison parameters;
    std::vector<RequestComparison> requests;  // only requests that differ
    size_t comparedRequests;

    bool empty() const;
};

DiffReport compare(const DiffSide& a, const DiffSide& b);

std::string diffText(const DiffReport& report);
std::string diffJson(const DiffReport& report);

}  // namespace qzcam
