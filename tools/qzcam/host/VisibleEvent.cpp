// SPDX-License-Identifier: Apache-2.0
#include "host/VisibleEvent.h"

#include "base/Text.h"

#include <utility>

namespace qzcam {

namespace {

void clean(std::string& text) { text = visible(text); }

void clean(Texts& texts) {
    Texts cleaned;
    for (const auto& [key, value] : texts) cleaned[visible(key)] = visible(value);
    texts = std::move(cleaned);
}

template <typename... Strings>
void cleanTexts(Strings&... texts) {
    (clean(texts), ...);
}

void clean(ParamRow& row) { cleanTexts(row.key, row.value, row.capability); }
void clean(VerdictRow& row) { cleanTexts(row.key, row.value, row.reason); }
void clean(Message::Field& field) { cleanTexts(field.name, field.value); }
void clean(EntryRow& row) {
    clean(row.name);
    clean(row.from);
}

template <typename Row>
void clean(std::vector<Row>& rows) {
    for (Row& row : rows) clean(row);
}

void clean(SessionEvent& event) { clean(event.file); }
void clean(CommandEvent& event) { clean(event.text); }
void clean(RequestEvent& event) { clean(event.entries); }
void clean(VerdictsEvent& event) { clean(event.rows); }
void clean(ResultEvent& event) { clean(event.entries); }
void clean(ParamsEvent& event) { clean(event.rows); }
void clean(PublishEvent& event) {
    clean(event.rows);
    clean(event.undeclared);
    clean(event.absent);
    clean(event.silent);
}
void clean(CallbackEvent& event) {
    clean(event.message.name);
    clean(event.message.fields);
}
void clean(StatusEvent& event) { clean(event.of); }
void clean(AnswerEvent& event) { cleanTexts(event.question, event.answer); }
void clean(ErrorEvent& event) { clean(event.text); }
void clean(NoteEvent& event) { clean(event.text); }
void clean(ExpectationEvent& event) { cleanTexts(event.file, event.text, event.expected, event.actual); }
void clean(SummaryEvent&) {}

// A log message may have several lines.
void clean(LogEvent& event) {
    std::string text;
    for (const std::string_view line : split(event.text, '\n')) text += visible(line) + "\n";
    text.pop_back();
    event.text = std::move(text);
    clean(event.tag);
}

}  // namespace

Event visible(Event event) {
    std::visit([](auto& each) { clean(each); }, event);
    return event;
}

}  // namespace qzcam
