// SPDX-License-Identifier: Apache-2.0
#include "cli/Difference.h"

#include "device/Properties.h"
#include "session/Player.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>
#include <variant>

namespace qzcam {

namespace {

Fact factOf(uint32_t tag, const Values& values) {
    return {fmt::format("{} {}", typeAndCount(values), toText(values, tag)), values};
}

// `name` appears only in messages about the text.
Session sessionOf(std::string_view text) {
    Problems problems("qzcam");
    return parseSession(text, "qzcam", problems);
}

// Records the result of a session.
class Observer {
  public:
    void onEvent(const Event& event) {
        if (const auto* command = std::get_if<CommandEvent>(&event)) mLine = command->line;
        if (const auto* request = std::get_if<RequestEvent>(&event)) add(*request);
        if (const auto* all = std::get_if<ParamsEvent>(&event)) keep(*all);
    }

    Facts parameters;
    std::vector<Request> requests;

  private:
    void add(const RequestEvent& event) {
        Request request{mLine, {}};
        for (const EntryRow& row : event.entries) {
            if (row.change != Change::Gone) request.entries.emplace(row.name, factOf(row.tag, row.values));
        }
        requests.push_back(std::move(request));
    }

    void keep(const ParamsEvent& event) {
        parameters.clear();
        for (const ParamRow& row : event.rows) parameters.emplace(row.key, Fact{row.value});
    }

    size_t mLine = 0;
};

Observer play(const Device& device, const Session& session) {
    const ScopedProperties restored;
    Observer observer;
    Player player(device, [&](const Event& event) { observer.onEvent(event); });
    player.playOnOtherDevice(session);
    return observer;
}

bool isSame(const Fact& a, const Fact& b) {
    return a.values && b.values ? *a.values == *b.values : a.text == b.text;
}

Comparison compareFacts(std::string title, const Facts& a, const Facts& b) {
    Comparison comparison{std::move(title), a.size(), {}};
    for (const auto& [name, fact] : a) {
        const auto other = b.find(name);
        if (other == b.end()) {
            comparison.differences.push_back({name, fact, std::nullopt});
        } else if (!isSame(fact, other->second)) {
            comparison.differences.push_back({name, fact, other->second});
        } else {
            comparison.alike.emplace(name, fact);
        }
    }
    for (const auto& [name, fact] : b) {
        if (a.count(name) != 0) continue;
        ++comparison.compared;
        comparison.differences.push_back({name, std::nullopt, fact});
    }
    std::sort(comparison.differences.begin(), comparison.differences.end(),
              [](const Difference& one, const Difference& other) { return one.name < other.name; });
    return comparison;
}

const Request* requestAt(const DiffSide& side, size_t index) {
    return index < side.requests.size() ? &side.requests[index] : nullptr;
}

std::string titleOf(size_t index, const Request* a, const Request* b) {
    const auto line = [](const Request* request) {
        return request ? fmt::format("line {}", request->line) : std::string("none");
    };
    const std::string lines = line(a) == line(b) ? line(a) : fmt::format("{} and {}", line(a), line(b));
    return fmt::format("Request {} ({}), entries", index + 1, lines);
}

}  // namespace

DiffSide sideOf(const Device& device, const Session& session) {
    DiffSide side{fmt::format("{}, camera {}", device.file, device.camera), {}, {}, {}, {}};
    for (const Tag& tag : device.vendorTags) {
        side.tags.emplace(tag.fullName(), Fact{camera_metadata_type_names[tag.type]});
    }
    const TagNames names(device.vendorTags);
    for (const StaticEntry& entry : device.entries) {
        side.capabilities.emplace(names.nameOf(entry.tag), factOf(entry.tag, entry.values));
    }
    side.parameters = play(device, sessionOf("open 0\npublish\nparams\n")).parameters;
    side.requests = play(device, session).requests;
    return side;
}

// Without a camera there are no parameters.
DiffSide sideOf(const Session& session, const Device& device) {
    Session whole = session;
    const bool opens =
        std::any_of(session.commands.begin(), session.commands.end(),
                    [](const Command& command) { return command.syntax->id == CommandId::Open; });
    if (opens) whole.commands.push_back(sessionOf("open 0\nparams\n").commands.back());
    Observer observer = play(device, whole);
    return {session.file, {}, {}, std::move(observer.parameters), std::move(observer.requests)};
}

DiffReport compare(const DiffSide& a, const DiffSide& b) {
    DiffReport report{a.name,
                      b.name,
                      compareFacts("Vendor tags", a.tags, b.tags),
                      compareFacts("Static entries", a.capabilities, b.capabilities),
                      compareFacts("Parameters", a.parameters, b.parameters),
                      {},
                      std::max(a.requests.size(), b.requests.size())};
    for (size_t i = 0; i < report.comparedRequests; ++i) {
        const Request* inA = requestAt(a, i);
        const Request* inB = requestAt(b, i);
        Comparison entries =
            compareFacts(titleOf(i, inA, inB), inA ? inA->entries : Facts(), inB ? inB->entries : Facts());
        if (inA && inB && entries.differences.empty()) continue;
        report.requests.push_back({inA ? std::optional(inA->line) : std::nullopt,
                                   inB ? std::optional(inB->line) : std::nullopt, std::move(entries)});
    }
    return report;
}

bool DiffReport::empty() const {
    return tags.differences.empty() && capabilities.differences.empty() && parameters.differences.empty() &&
           requests.empty();
}

}  // namespace qzcam
