// SPDX-License-Identifier: Apache-2.0
#include "input/Progress.h"
#include "input/Unpack.h"

#include "base/Text.h"

#include <archive.h>
#include <archive_entry.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <utility>

namespace qzcam {

namespace {

constexpr size_t kStart = 1000;  // enough for the name of the main entry

struct Entry {
    std::string name;
    size_t size = 0;
    std::string start;  // the first bytes of the entry
};

// Reads the entries of a zip one after the other: by its directory if there is one, otherwise, for a cut zip,
// in the order of the data.
class Zip {
  public:
    Zip(std::string_view bytes, bool hasDirectory)
        : mArchive(archive_read_new(), archive_read_free), mRest(bytes) {
        mOpen = (hasDirectory ? openWhole() : openCut()) == ARCHIVE_OK;
    }

    // Returns false at the end, and if the rest cannot be read.
    bool next() {
        if (!mOpen) return false;
        const int status = archive_read_next_header(mArchive.get(), &mEntry);
        mDamaged = status != ARCHIVE_OK && status != ARCHIVE_EOF && status != ARCHIVE_WARN;
        return status == ARCHIVE_OK || status == ARCHIVE_WARN;
    }
    bool isDamaged() const { return mDamaged || !mOpen; }

    std::string name() const {
        const char* const name = archive_entry_pathname(mEntry);
        return name ? name : "";
    }
    bool isFile() const { return archive_entry_filetype(mEntry) == AE_IFREG; }
    size_t size() const { return static_cast<size_t>(std::max<la_int64_t>(archive_entry_size(mEntry), 0)); }

    // Reads the next bytes of the entry; none at its end. Returns false if the data is damaged.
    bool read(std::string_view& bytes) {
        const void* block = nullptr;
        size_t size = 0;
        la_int64_t offset = 0;
        int status = ARCHIVE_OK;
        while (status == ARCHIVE_OK && size == 0) {  // a block may be empty
            status = archive_read_data_block(mArchive.get(), &block, &size, &offset);
        }
        bytes = {static_cast<const char*>(block), status == ARCHIVE_EOF ? 0 : size};
        return status == ARCHIVE_OK || status == ARCHIVE_EOF;
    }
    std::string error() const {
        const char* const text = archive_error_string(mArchive.get());
        return std::string(text ? trimmed(text) : "no reason given");  // some texts end with a newline
    }

  private:
    int openWhole() {
        archive_read_support_format_zip_seekable(mArchive.get());
        return archive_read_open_memory(mArchive.get(), mRest.data(), mRest.size());
    }
    int openCut() {
        archive_read_support_format_zip_streamable(mArchive.get());
        return archive_read_open(mArchive.get(), this, nullptr, takeBlock, nullptr);
    }

    // The zip library drops the block in which the data ends, so blocks are small.
    static la_ssize_t takeBlock(archive*, void* zip, const void** block) {
        constexpr size_t kBlock = 128;
        std::string_view& rest = static_cast<Zip*>(zip)->mRest;
        const size_t size = std::min(rest.size(), kBlock);
        *block = rest.data();
        rest.remove_prefix(size);
        return static_cast<la_ssize_t>(size);
    }

    std::unique_ptr<archive, int (*)(archive*)> mArchive;
    std::string_view mRest;
    archive_entry* mEntry = nullptr;
    bool mOpen = false;
    bool mDamaged = false;
};

bool isTop(std::string_view name) { return name.find('/') == std::string_view::npos; }

std::string_view extensionOf(std::string_view name) {
    const size_t dot = name.rfind('.');
    return dot == std::string_view::npos || name.find('/', dot) != std::string_view::npos ? std::string_view()
                                                                                          : name.substr(dot);
}

bool namesMainEntry(std::string_view name) {
    return name == "main_entry.txt" || name == "main-entry.txt";  // the second name is only in descriptions
}

// Ranks entries: the report itself first, then texts and packed files that may contain one, then all others.
// If two entries have the same rank, the larger one is read: a small note may be packed with a report.
int rankOf(const Entry& entry, std::string_view mainEntry) {
    constexpr std::array<std::string_view, 5> kTexts{".txt", ".log", ".dump", ".dumpsys", ""};
    constexpr std::array<std::string_view, 5> kSmall{"version.txt", "dumpstate_log.txt", "title.txt",
                                                     "description.txt", "dumpstate_board.txt"};
    const std::string_view extension = extensionOf(entry.name);
    const auto isOne = [](const auto& all, std::string_view one) {
        return std::find(all.begin(), all.end(), one) != all.end();
    };
    if (entry.name == mainEntry) return 6;
    if (startsWith(entry.name, "__MACOSX/") || namesMainEntry(entry.name)) return 0;
    if (isOne(kSmall, entry.name)) return 1;
    if (startsWith(entry.start, "====")) return isTop(entry.name) ? 5 : 4;
    const bool mayHold = isOne(kTexts, extension) || extension == ".zip" || extension == ".gz";
    if (!mayHold) return 1;
    return isTop(entry.name) ? 3 : 2;
}

// The names of a zip's entries.
struct Listing {
    std::vector<Entry> entries;
    std::string mainEntry;  // the name that the report states
    bool damaged = false;
    std::string wrong;
};

// Unpacks an entry to count its bytes if its own header does not state the size.
std::string readStart(Zip& zip, Entry& entry, bool hasDirectory, size_t packed, const UnpackLimits& limits) {
    const bool wantsStart = isTop(entry.name) || extensionOf(entry.name) == ".txt";
    if (hasDirectory && !wantsStart) return {};
    std::string_view bytes;
    bool more = zip.read(bytes);
    entry.start = bytes.substr(0, kStart);
    for (size_t all = 0; !hasDirectory && more && !bytes.empty(); more = zip.read(bytes)) {
        all += bytes.size();
        entry.size = std::max(entry.size, all);
        std::string wrong = wrongSize(all, packed, limits);
        if (!wrong.empty()) return wrong;
    }
    return {};
}

Listing list(std::string_view bytes, bool hasDirectory, const UnpackLimits& limits) {
    Listing listing;
    Zip zip(bytes, hasDirectory);
    while (listing.wrong.empty() && listing.entries.size() < limits.entries && zip.next()) {
        if (!zip.isFile()) continue;
        Entry entry{zip.name(), zip.size(), {}};
        listing.wrong = readStart(zip, entry, hasDirectory, bytes.size(), limits);
        if (namesMainEntry(entry.name)) listing.mainEntry = trimmed(entry.start);
        listing.entries.push_back(std::move(entry));
    }
    listing.damaged = zip.isDamaged();
    return listing;
}

const Entry* chosenOf(const Listing& listing) {
    const auto isWorse = [&](const Entry& a, const Entry& b) {
        return std::pair(rankOf(a, listing.mainEntry), a.size) <
               std::pair(rankOf(b, listing.mainEntry), b.size);
    };
    const auto found = std::max_element(listing.entries.begin(), listing.entries.end(), isWorse);
    const bool any =
        found != listing.entries.end() && found->size > 0 && rankOf(*found, listing.mainEntry) > 0;
    return any ? &*found : nullptr;
}

// Reads the entry into the content. Returns an empty text, or a description of the problem. `damage`: the
// reason why the entry ends early; empty if it does not.
std::string extract(std::string_view packed, bool hasDirectory, const Entry& entry, Content& content,
                    const UnpackLimits& limits, std::string& damage) {
    Zip zip(packed, hasDirectory);
    while (zip.next() && zip.name() != entry.name) {
    }
    Progress progress("unpacking " + content.name);
    content.bytes = Memory(std::min(entry.size, limits.freeBytes) + 1);
    std::string_view bytes;
    bool good = zip.read(bytes);
    for (; good && !bytes.empty(); good = zip.read(bytes)) {
        content.bytes.append(bytes);
        progress.reached(content.bytes.size(), entry.size);
        std::string wrong = wrongSize(content.bytes.size(), packed.size(), limits);
        if (!wrong.empty()) return wrong;
    }
    damage = good ? std::string() : zip.error();
    return {};
}

std::string nothingIn(const Listing& listing) {
    if (!listing.wrong.empty()) return listing.wrong;
    if (listing.damaged) return "the zip is damaged: no entry can be read; copy it again";
    return "the zip contains no text: expected the zip of 'adb bugreport', or a dump";
}

void reportMissingMainEntry(const Listing& listing, const Entry& chosen, Content& content) {
    if (listing.mainEntry.empty() || listing.mainEntry == chosen.name) return;
    content.cuts.push_back(fmt::format("main_entry.txt names {}, which is not in the zip: {} is used",
                                       excerpt(listing.mainEntry), excerpt(chosen.name)));
}

// Returns the other reports and texts of the zip. The zip of 'adb bugreport' has many files beside its
// report, which nobody expects to be read.
std::vector<std::string> othersIn(const Listing& listing, const Entry& chosen) {
    const int least = std::clamp(rankOf(chosen, listing.mainEntry), 3, 5);
    std::vector<std::string> names;
    for (const Entry& entry : listing.entries) {
        const bool isOther = entry.name != chosen.name && entry.size > 0;
        if (isOther && rankOf(entry, listing.mainEntry) >= least) names.push_back(entry.name);
    }
    return names;
}

void reportUnused(const std::vector<std::string>& names, Content& content) {
    constexpr size_t kMost = 5;
    std::vector<std::string> shown;
    for (size_t i = 0; i < std::min(names.size(), kMost); ++i) shown.push_back(excerpt(names[i]));
    const std::string more =
        names.size() > kMost ? fmt::format(" and {} more", names.size() - kMost) : std::string();
    if (!names.empty()) {
        content.cuts.push_back(
            fmt::format("also in the zip, and not used: {}{}", fmt::join(shown, ", "), more));
    }
}

const Entry* entryNamed(const Listing& listing, const std::string& name) {
    const auto found = std::find_if(listing.entries.begin(), listing.entries.end(),
                                    [&](const Entry& entry) { return entry.name == name; });
    return found == listing.entries.end() ? nullptr : &*found;
}

// Chooses the entry to read, and reports or passes on the others.
const Entry* choose(const Listing& listing, Content& content) {
    if (!listing.wrong.empty()) return nullptr;
    if (!content.entry.empty()) return entryNamed(listing, std::exchange(content.entry, {}));
    const Entry* const chosen = chosenOf(listing);
    if (!chosen) return nullptr;
    reportMissingMainEntry(listing, *chosen, content);
    constexpr size_t kMostPassed = 20;  // each is read from the whole zip
    auto others = othersIn(listing, *chosen);
    if (auto* const passed = std::exchange(content.others, nullptr)) {
        const auto end = others.begin() + static_cast<std::ptrdiff_t>(std::min(others.size(), kMostPassed));
        passed->assign(others.begin(), end);
        others.erase(others.begin(), end);
    }
    reportUnused(others, content);
    return chosen;
}

}  // namespace

std::string unpackZip(Content& content, const UnpackLimits& limits) {
    const Memory packed = std::move(content.bytes);
    content.bytes = Memory();
    content.steps.emplace_back("zip");
    Listing listing = list(packed.view(), true, limits);
    const bool isCut = listing.entries.empty() && listing.damaged;
    if (isCut) listing = list(packed.view(), false, limits);
    if (isCut) {
        content.cuts.emplace_back(
            "the zip is cut: it has no directory at its end; its readable part is used");
    }
    const Entry* const chosen = choose(listing, content);
    if (!chosen) return nothingIn(listing);
    content.name += ": " + visible(chosen->name);
    std::string damage;
    std::string wrong = extract(packed.view(), !isCut, *chosen, content, limits, damage);
    const bool hasNothing = !damage.empty() && content.bytes.size() == 0;
    if (hasNothing && !isCut) {  // small steps keep the bytes before the damage
        wrong = extract(packed.view(), false, *chosen, content, limits, damage);
    }
    if (!wrong.empty() || damage.empty()) return wrong;
    if (content.bytes.size() == 0 && isCut)
        return "the zip is cut: nothing of its text is left; copy it again";
    if (content.bytes.size() == 0) return fmt::format("it cannot be unpacked: {}", damage);
    if (!isCut) {
        content.cuts.push_back(
            fmt::format("the zip's data is damaged ({}): the part before it is used", damage));
    }
    return {};
}

}  // namespace qzcam
