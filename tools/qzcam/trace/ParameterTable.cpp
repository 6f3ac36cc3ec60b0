// SPDX-License-Identifier: Apache-2.0
#include "trace/ParameterTable.h"

#include "facts/Lookup.h"

#include <iterator>

namespace qzcam {

namespace {

using Kind = TraceItem::Kind;

}  // namespace

void ParameterTable::addTo(const TraceItem& item, const std::vector<std::string>& keys, Count Row::*count) {
    for (const std::string& key : keys) {
        Row& row = mRows[key];
        (row.*count).times += item.times;
        (row.*count).lines.push_back(item.line);
        (row.*count).inputs.push_back(item.input);
        if (count != &Row::refused) continue;
        if (item.status) row.statuses.insert(*item.status);
        if (!item.declared.empty()) row.declared.insert(item.declared);
    }
}

void ParameterTable::add(const TraceItem& item) {
    for (const VerdictRow& verdict : item.verdicts) {
        const bool isFallback = verdict.verdict == Verdict::Fallback;
        addTo(item, {verdict.key},
              verdict.verdict == Verdict::Overflows ? &Row::overflows
              : isFallback                          ? &Row::fallback
                                                    : &Row::notOffered);
    }
    const bool isRequest = item.side == TraceItem::Side::Request;
    switch (item.kind) {
        case Kind::Entry:
            if (isRequest && !item.isRemoved) addTo(item, item.keys, &Row::written);
            break;
        case Kind::List:
            for (const std::string& tag : item.tags) {
                if (isRequest) addTo(item, keysWriting(tag), &Row::written);
            }
            break;
        case Kind::Logged:
            addTo(item, item.keys, &Row::logged);
            break;
        case Kind::Refused:
            addTo(item, item.keys, &Row::refused);
            break;
        case Kind::Undeclared:
            if (isRequest) addTo(item, item.keys, &Row::undeclared);
            break;
        case Kind::Gated:
            addTo(item, item.keys, &Row::gated);
            break;
        case Kind::Parameters:
            if (item.camera.empty()) addTo(item, item.keys, &Row::set);
            break;
        default:
            break;
    }
}

void ParameterTable::keepOnly(const std::string& key) {
    for (auto row = mRows.begin(); row != mRows.end();)
        row = row->first == key ? std::next(row) : mRows.erase(row);
}

std::vector<std::string> ParameterTable::neverSeen() const {
    std::vector<std::string> keys;
    for (const std::string& key : readKeys()) {
        if (mRows.count(key) == 0) keys.push_back(key);
    }
    return keys;
}

}  // namespace qzcam
