// The reference for people: as Markdown, in full, and a line each.
#include "facts/Reference.h"

#include <fmt/format.h>

#include <algorithm>

namespace qzcam {

namespace {

std::string formText(const EntryForm& form) {
    return form.count.empty() ? form.type : fmt::format("{}[{}]", form.type, form.count);
}

std::string hex(uint32_t code) { return fmt::format("{:#x}", code); }

// Cells of Markdown tables: a bar would end them.
std::string cell(const std::string& text) {
    std::string safe;
    for (const char c : text) safe += c == '|' ? std::string("\\|") : std::string(1, c);
    return safe;
}

std::string code(const std::string& text) { return "`" + text + "`"; }

std::string mappings(const std::vector<Mapping>& rows, bool toText) {
    std::string text;
    for (const Mapping& row : rows) {
        text += fmt::format("{}{} → {}", text.empty() ? "" : ", ", code(row.from),
                            toText && !row.to.empty() ? code(row.to) : row.to);
    }
    return text;
}

std::string lines(const std::vector<std::string>& texts) { return fmt::format("{}", fmt::join(texts, "; ")); }

std::string formCells(const std::vector<EntryForm>& forms) {
    std::string text;
    for (const EntryForm& form : forms) {
        text += fmt::format("{}{} {}", text.empty() ? "" : "<br>", code(form.tag), formText(form));
    }
    return text;
}

std::string valuesOf(const ParameterDoc& doc) {
    std::string text = mappings(doc.words.empty() ? doc.examples : doc.words, false);
    if (doc.words.empty() && !text.empty()) text = "for example " + text;
    if (!doc.otherwise.empty()) {
        text += fmt::format("{}{}", text.empty() ? "" : "; any other: ", doc.otherwise);
    }
    return text;
}

std::string valuesOf(const PublishedDoc& doc) {
    return mappings(doc.words.empty() ? doc.examples : doc.words, true);
}

void addRow(std::string& out, const std::vector<std::string>& cells) {
    out += "|";
    for (const std::string& text : cells) out += " " + cell(text) + " |";
    out += "\n";
}

void addHead(std::string& out, const char* title, const char* text, const std::vector<std::string>& cells) {
    out += fmt::format("\n## {}\n\n{}\n\n", title, text);
    addRow(out, cells);
    out += "|";
    for (size_t i = 0; i < cells.size(); ++i) out += "---|";
    out += "\n";
}

void addParameters(std::string& out, const Reference& reference) {
    if (reference.parameters.empty()) return;
    addHead(out, "Parameters that the application sets",
            "Words become the numbers behind them. An unknown word is mostly -1, which is 255 in a byte. Of "
            "parameters that are read as integers -1 counts as not set.",
            {"Key", "Read as", "Values", "Request entry", "Conditions"});
    for (const ParameterDoc& doc : reference.parameters) {
        addRow(out,
               {code(doc.key), doc.readAs, valuesOf(doc), formCells(doc.entries), lines(doc.conditions)});
    }
}

void addPublished(std::string& out, const Reference& reference) {
    if (reference.published.empty()) return;
    addHead(
        out, "Parameters that the library publishes",
        "From static entries of the device. Entries of other counts are as good as none. Rows without a key "
        "are capabilities that the library only keeps.",
        {"Key", "Capability", "What is published", "Conditions"});
    for (const PublishedDoc& doc : reference.published) {
        addRow(out, {doc.key.empty() ? "" : code(doc.key),
                     doc.capability.tag.empty() ? "" : formCells({doc.capability}), valuesOf(doc),
                     lines(doc.conditions)});
    }
}

void addMessages(std::string& out, const Reference& reference) {
    if (reference.messages.empty()) return;
    addHead(out, "Messages to the application", "From entries of capture results.",
            {"Message", "Code", "Carried by", "Content", "Result entry", "Conditions"});
    for (const MessageDoc& doc : reference.messages) {
        addRow(out,
               {doc.name, code(hex(doc.code)), doc.carriedBy, fmt::format("{}", fmt::join(doc.fields, ", ")),
                formCells(doc.from), lines(doc.conditions)});
    }
}

void addTheRest(std::string& out, const Reference& reference) {
    if (!reference.commands.empty()) {
        addHead(out, "Commands", "Any other number is answered with -22.", {"Number", "Answer"});
        for (const CommandDoc& doc : reference.commands) addRow(out, {fmt::to_string(doc.number), doc.what});
    }
    if (!reference.properties.empty()) {
        addHead(out, "System properties", "Read whenever they matter.", {"Property", "When unset", "Effect"});
        for (const PropertyDoc& doc : reference.properties) {
            addRow(out, {code(doc.name), code(doc.otherwise), doc.what});
        }
    }
}

// "  values     auto -> 0"
class Block {
  public:
    explicit Block(std::string& out, const std::string& title) : mOut(out) { mOut += title + "\n"; }

    void add(const char* label, const std::string& text) {
        if (text.empty()) return;
        mOut += fmt::format("  {:<12}{}\n", label == mLast ? "" : label, text);
        mLast = label;
    }
    void add(const char* label, const std::vector<EntryForm>& forms) {
        for (const EntryForm& form : forms) {
            if (!form.tag.empty()) add(label, fmt::format("{}  {}", form.tag, formText(form)));
        }
    }
    void add(const char* label, const std::vector<Mapping>& rows) {
        size_t width = 0;
        for (const Mapping& row : rows) width = std::max(width, row.from.size());
        for (const Mapping& row : rows) add(label, fmt::format("{:<{}}  -> {}", row.from, width, row.to));
    }
    void add(const char* label, const std::vector<std::string>& texts) {
        for (const std::string& text : texts) add(label, text);
    }

  private:
    std::string& mOut;
    std::string mLast;
};

}  // namespace

std::string referenceMarkdown(const Reference& reference) {
    std::string out =
        "# Reference\n\nParameters, messages, commands and properties of the library, as `qzcam params` "
        "finds "
        "them.\nThis file is the output of `qzcam params --markdown`.\n";
    addParameters(out, reference);
    addPublished(out, reference);
    addMessages(out, reference);
    addTheRest(out, reference);
    return out;
}

std::string referenceText(const Reference& reference) {
    std::string out;
    for (const ParameterDoc& doc : reference.parameters) {
        Block block(out, fmt::format("{}: a parameter, read as {}", doc.key, doc.readAs));
        block.add("entry", doc.entries);
        block.add("values", doc.words);
        block.add("for example", doc.examples);
        block.add(doc.words.empty() && doc.examples.empty() ? "value" : "any other", doc.otherwise);
        block.add("note", doc.conditions);
    }
    for (const PublishedDoc& doc : reference.published) {
        Block block(out, doc.key.empty() ? doc.capability.tag + ": a capability"
                                         : doc.key + ": published by the library");
        block.add("capability", std::vector<EntryForm>{doc.capability});
        block.add("values", doc.words);
        block.add("for example", doc.examples);
        block.add("note", doc.conditions);
    }
    for (const MessageDoc& doc : reference.messages) {
        Block block(out, fmt::format("{}: a message, {}, code {}", doc.name, doc.carriedBy, hex(doc.code)));
        block.add("content", fmt::format("{}", fmt::join(doc.fields, ", ")));
        block.add("from", doc.from);
        block.add("note", doc.conditions);
    }
    for (const CommandDoc& doc : reference.commands) {
        Block(out, fmt::format("{}: a command", doc.number)).add("answer", doc.what);
    }
    for (const PropertyDoc& doc : reference.properties) {
        Block block(out, fmt::format("{}: a system property", doc.name));
        block.add("when unset", doc.otherwise);
        block.add("effect", doc.what);
    }
    return out;
}

std::string referenceIndex(const Reference& reference) {
    std::string out = "Parameters that the application sets\n";
    const auto add = [&](const std::string& name, const std::string& what) {
        out += fmt::format("  {:<40} {}\n", name, what);
    };
    const auto tags = [](const std::vector<EntryForm>& forms) {
        std::vector<std::string> texts;
        for (const EntryForm& form : forms) {
            if (!form.tag.empty()) {
                texts.push_back(
                    fmt::format("{} {}", form.tag.substr(form.tag.rfind('.') + 1), formText(form)));
            }
        }
        return fmt::format("{}", fmt::join(texts, ", "));
    };
    for (const ParameterDoc& doc : reference.parameters) {
        add(doc.key, fmt::format("{:<8} {}", doc.readAs, tags(doc.entries)));
    }
    out += "\nParameters that the library publishes\n";
    for (const PublishedDoc& doc : reference.published) {
        if (!doc.key.empty()) add(doc.key, tags({doc.capability}));
    }
    out += "\nMessages to the application\n";
    for (const MessageDoc& doc : reference.messages) add(doc.name, hex(doc.code));
    out += "\nCommands\n";
    for (const CommandDoc& doc : reference.commands) add(fmt::to_string(doc.number), doc.what);
    out += "\nSystem properties\n";
    for (const PropertyDoc& doc : reference.properties) add(doc.name, doc.what);
    return out + "\n'qzcam params KEY' says more.\n";
}

}  // namespace qzcam
