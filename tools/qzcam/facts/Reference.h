// `qzcam params`: what an application may say and what it may read, with all that becomes of it. Found by
// probing the library; only what no probe shows is written by hand, in ReferenceNotes.cpp.
#pragma once

#include "cli/Cli.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace qzcam {

struct Mapping {
    std::string from;
    std::string to;
};

struct EntryForm {
    std::string tag;
    std::string type;
    std::string count;
};

struct ParameterDoc {
    std::string key;
    std::string readAs;              // "text", "integer", "text and integer"
    std::vector<EntryForm> entries;  // that it goes into
    std::vector<Mapping> words;      // and their numbers
    std::vector<Mapping> examples;   // other values that are understood
    std::string otherwise;           // what becomes of any other value; empty for integers
    std::vector<std::string> conditions;
};

struct PublishedDoc {
    std::string key;  // empty when the capability is only kept
    EntryForm capability;
    std::vector<Mapping> words;  // numbers and what is published for them
    std::vector<Mapping> examples;
    std::vector<std::string> conditions;
};

struct MessageDoc {
    std::string name;
    uint32_t code = 0;
    std::string carriedBy;            // "data block" or "notification"
    std::vector<std::string> fields;  // its content
    std::vector<EntryForm> from;      // result entries that bring it
    std::vector<std::string> conditions;
};

struct CommandDoc {
    int32_t number;
    const char* what;
};

struct PropertyDoc {
    const char* name;
    const char* otherwise;  // what counts when it is not set
    const char* what;
};

struct Reference {
    std::vector<ParameterDoc> parameters;
    std::vector<PublishedDoc> published;
    std::vector<MessageDoc> messages;
    std::vector<CommandDoc> commands;
    std::vector<PropertyDoc> properties;
};

// Takes a moment when it is wanted first.
const Reference& wholeReference();

// By hand.
// What no probe tells about a parameter; empty: nothing.
std::string noteOn(const std::string& key);
const std::map<std::string, const char*>& parameterNotes();
const std::vector<ParameterDoc>& adapterParameters();  // of the host's own operations, outside the passes
const std::vector<PublishedDoc>& adapterPublished();
const std::vector<CommandDoc>& commandDocs();
const std::vector<PropertyDoc>& propertyDocs();

// The parts that `key` names: a parameter, a published key, a message, a command, a property or a tag.
Reference only(const Reference& reference, const std::string& key);
bool isEmpty(const Reference& reference);
std::vector<std::string> similarNames(const Reference& reference, const std::string& key);

std::string referenceMarkdown(const Reference& reference);
std::string referenceJson(const Reference& reference);
std::string referenceText(const Reference& reference);   // every detail
std::string referenceIndex(const Reference& reference);  // a line each

struct ParamsOptions {
    std::string key;
    bool json = false;
    bool markdown = false;
};

ExitStatus params(const ParamsOptions& options);

}  // namespace qzcam
