// What the library looks for, reads and writes, found by probing it: all facts behind `check` and `params`.
#pragma once

#include "facts/Probe.h"

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace qzcam {

// A parameter is only looked at while another one has one of these values.
struct Gate {
    std::string key;
    std::vector<std::string> values;
    bool any = false;  // any value will do
};

// How much to find out: which tags there are and what they hold, or also what comes of every word.
enum class Depth { Tags, Values };

// What one value of a parameter, on its own, puts into a request.
struct Outcome {
    std::string value;
    std::vector<Written> written;
};

struct ParameterFact {
    std::string key;
    bool asText = false;
    bool asInteger = false;
    std::vector<Gate> gates;
    std::vector<Gate> closedBy;        // and not while another one has one of these
    Texts context;                     // one choice of values that opens all gates
    Texts companions;                  // what must be there too before anything is written
    std::vector<Outcome> outcomes;     // of all values probed
    bool onlyOnChange = false;         // a value is written only when it is not that of the request before
    std::vector<Gate> alsoReads;       // keys that it makes the library look at once more, with those values
    std::vector<std::string> statics;  // static entries that it makes the library read

    const Outcome* outcomeOf(const std::string& value) const;
    const Outcome* firstWritten() const;  // null when nothing ever is
};

// A client that changes what a parameter does.
struct ClientFact {
    std::string key;
    std::string value;
    Client client;
    std::vector<Written> written;  // in addition
};

// The numbers of elements, up to the most probed, with which an entry has its effect.
struct Counts {
    size_t most = 0;  // probed
    std::set<size_t> good;

    bool hasEnd() const { return good.count(most) == 0; }
    bool allows(size_t count) const { return good.count(count) != 0 || (!hasEnd() && count > most); }
    std::string toText() const;  // "exactly 2", "2 or 4", "at least 1", "2 to 20"
};

// How a capability becomes text.
enum class Form { Kept, Flag, Words, Text, Number, Numbers, Other };

struct CapabilityFact {
    std::string tag;
    uint8_t type = TYPE_BYTE;
    bool typeSeen = false;
    Counts counts;
    Form form = Form::Kept;
    std::vector<std::string> keys;     // published from it
    Entries context;                   // other capabilities that it wants to be there
    Texts inputs;                      // parameters, likewise
    bool inRequests = false;           // read for a request rather than for publishing
    std::vector<std::string> forKeys;  // then: the parameters without which it would not be
};

struct ResultFact {
    std::string tag;
    uint8_t type = TYPE_BYTE;
    bool typeSeen = false;
    Counts counts;
    Entries context;                // other entries that it wants to be there
    Texts parameters;               // parameters of the request before, likewise
    std::vector<Message> messages;  // that come of it
};

struct SizeListFact {
    std::string tag;
    uint8_t type = TYPE_BYTE;
    bool typeSeen = false;
};

struct Survey {
    std::vector<ParameterFact> parameters;
    std::vector<ClientFact> clients;
    Entries statics;  // what the probed device had, so that requests could go all their way
    std::vector<CapabilityFact> capabilities;
    std::vector<std::pair<std::string, std::string>> unconditional;  // published on any device
    std::vector<ResultFact> results;
    std::vector<SizeListFact> sizeLists;
    std::vector<std::string> names;  // every vendor name that was looked up
    std::set<std::string> withoutSection;

    const ParameterFact* parameter(const std::string& key) const;
    bool isVendor(const std::string& tag) const;
};

Survey surveyLibrary(Probe& probe, Depth depth);

void surveyRequests(Probe& probe, Survey& survey, Depth depth);
void surveyCapabilities(Probe& probe, Survey& survey);
void surveyResults(Probe& probe, Survey& survey);
void surveySizeLists(Probe& probe, Survey& survey);

// What publishing did; of log lines without their numbers.
std::string effectOf(const PublishTrace& trace);

// What it published under a key last; empty when nothing.
std::string valueOf(const PublishTrace& trace, const std::string& key);

// Tries one element type: the counts with which it has an effect. Most types have none with any of a few
// counts, and the others are not tried then.
Counts goodCounts(size_t most, const std::function<bool(size_t)>& hasEffect);

// What `statics` publishes beyond the capability's context, and without the capability.
PublishTrace publishWith(Probe& probe, const CapabilityFact& fact, const Values& values);
PublishTrace publishWithout(Probe& probe, const CapabilityFact& fact);

}  // namespace qzcam
