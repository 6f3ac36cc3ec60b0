#include "Assignment.h"

#include "Expectations.h"

#include <fmt/format.h>

#include <utility>

namespace qzcam {

std::variant<StaticEntry, std::string> parseAssignment(const TagNames& names, const std::string& name,
                                                       const std::string& list) {
    const auto tag = names.resolve(name);
    if (std::holds_alternative<std::string>(tag)) return std::get<std::string>(tag);
    const Tag& found = *std::get<const Tag*>(tag);
    auto values = parseValues(found.type, found.id, list);
    if (!values) {
        return fmt::format("expected {} of {} (type {}), not {}", elementForm(found.type), found.fullName(),
                           camera_metadata_type_names[found.type], excerpt(list));
    }
    return StaticEntry{found.id, std::move(*values)};
}

std::variant<StaticEntry, std::string> parseAssignment(const TagNames& names, const std::string& assignment) {
    const size_t equals = assignment.find('=');
    return parseAssignment(names, assignment.substr(0, equals), assignment.substr(equals + 1));
}

void checkAgainstDevice(const Session& session, const TagNames& names, Problems& problems) {
    const auto check = [&](const Command& command, const std::variant<StaticEntry, std::string>& entry) {
        if (const auto* wrong = std::get_if<std::string>(&entry)) problems.add(command.line, *wrong);
    };
    for (const Command& command : session.commands) {
        if (command.syntax->id == CommandId::Result) {
            for (const Word& word : command.words) check(command, parseAssignment(names, word.raw));
        } else if (command.syntax->id == CommandId::ExpectEntry) {
            check(command, parseAssignment(names, command.word(0), rawFrom(command, 1, ",")));
        } else if (command.syntax->id == CommandId::ExpectNoEntry ||
                   command.syntax->id == CommandId::ExpectChange) {
            // Of a name that no tag has there is never an entry: a slip of the pen would always be met.
            check(command, parseAssignment(names, command.word(0), ""));
        }
    }
}

}  // namespace qzcam
