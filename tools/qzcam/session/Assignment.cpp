// SPDX-License-Identifier: Apache-2.0
#include "session/Assignment.h"

#include "facts/Hints.h"
#include "facts/Tags.h"
#include "session/Expectations.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace qzcam {

namespace {

// A name with its section is accepted for any tag. The standard sections are the same on all devices.
bool isWholeVendorName(const std::string& name) {
    return name.find('.') != std::string::npos && !startsWith(name, "android.");
}

bool mayBeDeclaredElsewhere(const std::string& name) {
    return isWholeVendorName(name) || libraryTags().knows(name);
}

class DeviceComparison {
  public:
    DeviceComparison(const TagNames& names, Problems& problems, Cameras* cameras)
        : mNames(&names), mProblems(problems), mCameras(cameras) {}

    void check(const Command& command);

  private:
    void open(const Command& command);
    void check(const Command& command, const std::string& name, const std::string& list);

    const TagNames* mNames;
    Problems& mProblems;
    Cameras* mCameras;
    std::unique_ptr<TagNames> mOpened;
};

void DeviceComparison::check(const Command& command) {
    switch (command.syntax->id) {
        case CommandId::Open:
            return open(command);
        case CommandId::Result:
            for (const Word& word : command.words) {
                const size_t equals = word.raw.find('=');
                check(command, word.raw.substr(0, equals), word.raw.substr(equals + 1));
            }
            return;
        case CommandId::ExpectEntry:
            return check(command, command.word(0), rawFrom(command, 1, ","));
        case CommandId::ExpectNoEntry:
        case CommandId::ExpectChange:
            // An expectation about an entry that no tag has would always be met, so the name is an error.
            return check(command, command.word(0), "");
        default:
            return;
    }
}

void DeviceComparison::open(const Command& command) {
    if (mCameras == nullptr) return;
    const auto number = static_cast<int>(*parseInteger(command.word(0)));
    if (const Device* device = mCameras->find(number)) {
        mOpened = std::make_unique<TagNames>(device->vendorTags);
        mNames = mOpened.get();
        return;
    }
    mProblems.add(command.line, fmt::format("no camera {} on this device: expected {}", number,
                                            fmt::join(mCameras->numbers(), " or ")));
}

void DeviceComparison::check(const Command& command, const std::string& name, const std::string& list) {
    if (!mNames->knows(name)) {
        if (mayBeDeclaredElsewhere(name)) return;
        mProblems.add(command.line,
                      fmt::format("unknown tag {}: expected a tag of this device or of the library{}",
                                  excerpt(name), perhaps(nearest(name, mNames->allNames()))));
        return;
    }
    const auto entry = parseAssignment(*mNames, name, list);
    if (const auto* wrong = std::get_if<std::string>(&entry)) mProblems.add(command.line, *wrong);
}

}  // namespace

std::variant<StaticEntry, std::string> parseAssignment(const TagNames& names, const std::string& name,
                                                       const std::string& list) {
    const auto tag = names.resolve(name);
    if (std::holds_alternative<std::string>(tag)) return std::get<std::string>(tag);
    const Tag& found = *std::get<const Tag*>(tag);
    auto values = parseValues(found.type, found.id, list);
    if (!values) {
        return fmt::format("expected {} for {} (type {}), not {}", elementForm(found.type), found.fullName(),
                           camera_metadata_type_names[found.type], excerpt(list));
    }
    return StaticEntry{found.id, std::move(*values)};
}

std::variant<StaticEntry, std::string> parseAssignment(const TagNames& names, const std::string& assignment) {
    const size_t equals = assignment.find('=');
    return parseAssignment(names, assignment.substr(0, equals), assignment.substr(equals + 1));
}

void checkAgainstDevice(const Session& session, const TagNames& names, Problems& problems, Cameras* cameras) {
    DeviceComparison comparison(names, problems, cameras);
    for (const Command& command : session.commands) comparison.check(command);
}

}  // namespace qzcam
