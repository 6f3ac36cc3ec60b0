// SPDX-License-Identifier: Apache-2.0
// One camera whose setters are called one at a time. Each call declares a new device. Inputs and results are
// texts, so that a case is one line.
#pragma once

#include "request/RequestPass.h"
#include "support/Device.h"
#include "support/Log.h"
#include "support/Peer.h"

#include <cutils/properties.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace qz::test {

using Texts = std::vector<std::string>;

inline Texts split(const std::string& text, const std::string& separator) {
    Texts parts;
    for (size_t at = 0, end = 0; at < text.size(); at = end + separator.size()) {
        end = std::min(text.find(separator, at), text.size());
        parts.push_back(text.substr(at, end - at));
    }
    return parts;
}

inline Texts wordsOf(const std::string& text) {
    Texts words;
    std::istringstream stream(text);
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

// Returns the lines of a text without their indentation. A line that begins with "|" continues the line
// before it.
inline Texts linesOf(const std::string& text) {
    Texts lines;
    for (const std::string& line : split(text, "\n")) {
        const size_t start = line.find_first_not_of(' ');
        if (start == std::string::npos) continue;
        if (line[start] != '|') lines.emplace_back();
        lines.back() += (line[start] == '|' ? " " : "") + line.substr(start);
    }
    return lines;
}

// Returns the parts that are not empty.
inline std::string join(const Texts& parts) {
    std::string all;
    for (const std::string& part : parts) {
        if (!part.empty()) all += (all.empty() ? "" : " | ") + part;
    }
    return all;
}

// Declares tags: "name:b name:i" are tags of the capture section with their types b, i, f and r. A name with
// a dot belongs to another section. `how` has a character for each tag: '+' declared, '-' not declared, 'x'
// declared with a type that nothing writes.
inline Declarations declare(const std::string& tags, const std::string& how) {
    const std::map<char, int> types = {
        {'b', TYPE_BYTE}, {'i', TYPE_INT32}, {'f', TYPE_FLOAT}, {'r', TYPE_RATIONAL}};
    Declarations declarations = {{capture("decoy"), TYPE_BYTE}};
    size_t at = 0;
    for (const std::string& tag : wordsOf(tags)) {
        const std::string name = tag.substr(0, tag.find(':'));
        const std::string full = name.find('.') == std::string::npos ? capture(name) : name;
        const char state = how.at(at++);
        if (state != '-') declarations.emplace_back(full, state == '+' ? types.at(tag.back()) : TYPE_DOUBLE);
    }
    return declarations;
}

// Returns "name=1,2" for each entry.
inline Texts entriesOf(const android::CameraMetadata& request) {
    Texts entries;
    const camera_metadata_t* buffer = request.getAndLock();
    for (size_t i = 0; i < request.entryCount(); ++i) {
        camera_metadata_ro_entry entry = {};
        get_camera_metadata_ro_entry(buffer, i, &entry);
        entries.push_back(get_camera_metadata_tag_name(entry.tag) + std::string("="));
        for (size_t j = 0; j < entry.count; ++j) {
            char text[32];
            if (entry.type == TYPE_FLOAT) {
                snprintf(text, sizeof(text), "%.9g", static_cast<double>(entry.data.f[j]));
            } else if (entry.type == TYPE_RATIONAL) {
                snprintf(text, sizeof(text), "%d/%d", entry.data.r[j].numerator, entry.data.r[j].denominator);
            } else {
                const int number = entry.type == TYPE_BYTE ? entry.data.u8[j] : entry.data.i32[j];
                snprintf(text, sizeof(text), "%d", number);
            }
            entries.back() += (j == 0 ? "" : ",") + std::string(text);
        }
    }
    request.unlock(buffer);
    return entries;
}

class ScriptCamera {
  public:
    ScriptCamera() = default;
    ~ScriptCamera() {
        for (const std::string& property : mProperties) property_set(property.c_str(), "");
    }
    ScriptCamera(const ScriptCamera&) = delete;
    ScriptCamera& operator=(const ScriptCamera&) = delete;

    // Sets "key=text;key=text": parameters, properties that begin with "camera.", and after '@' other inputs.
    // A key without a value is removed.
    void set(const std::string& all) {
        for (const std::string& one : split(all, ";")) {
            const size_t end = one.find('=');
            if (end == std::string::npos) camera.adapter->remove(one.c_str());
            if (end != std::string::npos) set(one.substr(0, end), one.substr(end + 1));
        }
    }
    void set(const std::string& key, const std::string& text) {
        if (key[0] == '@') setInput(key, text);
        camera.parameters.set(key.c_str(), text.c_str());
        if (key.rfind("camera.", 0) != 0) return;
        mProperties.push_back(key);
        property_set(key.c_str(), text.c_str());
    }

    // Runs a setter, "takeBurstCapture" or the pass "paramToMetaData". Returns a status other than 0, the
    // entries, and the log of the translator and its adapter as "I text" and "E text".
    std::string call(const std::string& setter, const Declarations& tags) {
        const VendorTags device(tags);
        if (!mArray.empty()) camera.info.update(tagOf(kArray), mArray.data(), mArray.size());
        android::CameraMetadata request;
        const camera_metadata_t* locked = mRequest == "locked" ? request.getAndLock() : nullptr;
        const TestPeer::Members before = TestPeer::members(translator());
        mLog.take();
        const status_t status = setter == "paramToMetaData"
                                    ? translator().paramToMetaData(&request)
                                    : runSetter(translator(), setter.c_str(), &request);
        if (mRequest == "locked") request.unlock(locked);
        Texts parts = entriesOf(request);
        parts.insert(parts.begin(), status != 0 ? std::to_string(status) : "");
        for (const LogLine& line : mLog.take()) {
            if (line.tag != "CameraQzParam" && line.tag != "QzParametersEx") continue;
            parts.push_back(std::string(1, "??VDIWEF"[line.priority]) + " " + line.text);
        }
        changes = changesOf(before, TestPeer::members(translator()));
        return join(parts);
    }

    CCameraQzParam& translator() { return camera.translator(); }

  private:
    static constexpr const char* kArray = "com.ambrix.device.capabilities.qzSubActiveArraySize";

    void setInput(const std::string& what, const std::string& text) {
        const auto number = static_cast<uint32_t>(strtoul(text.c_str(), nullptr, 0));
        if (what == "@lightPainting") translator().*TestPeer::lightPainting = static_cast<uint8_t>(number);
        if (what == "@ownCamera") translator().*TestPeer::isQzCamera = number != 0;
        if (what == "@flag") translator().setCallBackFlag(number);
        if (what == "@client") translator().setClientName(android::String16(text.c_str()));
        if (what == "@request") mRequest = text;
        if (what == "@maximum") {
            std::vector<float> zooms;
            for (const std::string& zoom : split(text, ",")) zooms.push_back(strtof(zoom.c_str(), nullptr));
            camera.info.update(ANDROID_SCALER_AVAILABLE_MAX_DIGITAL_ZOOM, zooms.data(), zooms.size());
        }
        if (what == "@array") mArray.clear();
        if (what == "@array") {
            for (const std::string& size : split(text, ",")) mArray.push_back(atoi(size.c_str()));
        }
    }

    LogCapture mLog;  // before the camera, which logs
    Texts mProperties;
    std::vector<int32_t> mArray;
    std::string mRequest;

  public:
    Camera camera;
    std::string changes;  // returns "member: value" for each change of state by the last call
};

// Plays a script. A line without an arrow names a setter and its tags, and creates a new camera. A step is
// "inputs, declared tags -> result of the call and changes of state". The result may continue after "|" in
// the next line. "~" is the setter's name. "$word text" defines $word as the text.
inline void play(const std::string& script) {
    std::map<std::string, std::string> words;
    std::unique_ptr<ScriptCamera> camera;
    std::string tags;
    for (const std::string& line : linesOf(script)) {
        const size_t arrow = line.find(" ->");
        const size_t space = std::min(line.find(' '), line.size());
        if (line[0] == '$') {
            words[line.substr(0, space)] = line.substr(space + 1);
        } else if (arrow == std::string::npos) {
            words["~"] = line.substr(0, space);
            tags = line.substr(space);
            camera.reset();  // one at a time
            camera = std::make_unique<ScriptCamera>();
        } else {
            std::string expected = line.substr(std::min(arrow + 4, line.size()));
            for (const auto& [word, text] : words) {
                for (size_t at = 0; (at = expected.find(word)) != std::string::npos;) {
                    expected.replace(at, word.size(), text);
                }
            }
            const size_t how = line.rfind(' ', arrow - 1) + 1;
            camera->set(line.substr(0, how == 0 ? 0 : how - 1));
            const std::string outcome =
                camera->call(words["~"], declare(tags, line.substr(how, arrow - how)));
            EXPECT_EQ(join({outcome, camera->changes}), expected) << words["~"] << ": " << line;
        }
    }
}

}  // namespace qz::test
