// SPDX-License-Identifier: Apache-2.0
#include "support/DumpComposer.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

namespace qzcam::test {

namespace {

size_t valuesPerLine(const std::string& type) {
    if (type == "byte") return 16;
    if (type == "float") return 8;
    return type == "int32" || type == "double" ? 4 : 2;
}

std::string tagsText(const std::vector<DumpTag>& tags, int indentation) {
    const char* const types[] = {"byte", "int32", "float", "int64", "double", "rational"};
    const std::string margin(static_cast<size_t>(indentation), ' ');
    std::string text =
        margin + fmt::format("Dumping configured vendor tag descriptors: {} entries\n", tags.size());
    for (const DumpTag& tag : tags) {
        text += fmt::format("{}  {:#010x} ({}) with type {} ({}) defined in section {}\n", margin, tag.id,
                            tag.name, tag.type, types[tag.type], tag.section);
    }
    return text;
}

std::string clientArrays(const std::vector<DumpArray>& arrays) {
    std::string text;
    for (const DumpArray& array : arrays) text += "    " + array.heading + "\n" + arrayText(array.entries, 6);
    return text;
}

std::string clientText(const DumpPhone& phone, const DumpCamera& camera, const std::vector<DumpArray>& arrays,
                       bool closing) {
    std::string text = fmt::format("  {}Device {} is open. Client instance dump:\n",
                                   phone.platform >= 12 ? "03-05 10:11:12 : " : "", camera.id);
    text += phone.platform == 7
                ? "\nClient priority level: 0\nClient PID: 1301\nClient package: com.example.camera\n"
                : "    Client priority score: 0 state: 2\n    Client PID: 1301\n"
                  "    Client package: com.example.camera\n";
    text += "  CameraDeviceClient[" + camera.id + "] (0xe1234567) dump:\n      Request ID counter: 5\n";
    text +=
        "  Device dump:\n    Device status: ACTIVE\n    Stream configuration:\n      No input stream.\n"
        "    Stream[0]: Output\n      Dims: 1920 x 1080, format 0x22, dataspace 0x0\n"
        "    In-flight requests:\n      None\n";
    text += clientArrays(arrays);
    if (!closing) text += phone.monitor;
    return text + "     HAL device dump:\n== HAL title that means nothing ==\n    state (0): byte[1]\n";
}

std::string dynamicText(const DumpPhone& phone, const DumpCamera& camera) {
    std::string text;
    if (!camera.shim.empty()) {
        text += "  Camera1 API shim is using parameters:\n        CameraParameters::dump: mMap.size = " +
                std::to_string(camera.shim.size()) + "\n";
    }
    for (const auto& [key, value] : camera.shim) text += fmt::format("\t{}: {}\n", key, value).substr(0, 254);
    return text + (camera.client.empty()
                       ? fmt::format("  Device {} is closed, no client instance\n", camera.id)
                       : clientText(phone, camera, camera.client, false));
}

std::string modulePhone(const DumpPhone& phone) {
    std::string text =
        "Camera module HAL API version: 0x1\nCamera module API version: 0x204\n"
        "Camera module name: Composed\nCamera module author: Nobody\n";
    text += fmt::format("Number of camera devices: {0}\nNumber of normal camera devices: {0}\n",
                        phone.cameras.size());
    text += "Active Camera Clients:\n[]\nAllowed users:\n0\nVendor tag definitions:\n" +
            tagsText(phone.blocks.front().tags, 4);
    text +=
        "Prior client events log (most recent at top):\n"
        "  03-05 10:11:12 : CONNECT device 0 client for package com.example.camera (PID 1301)\n";
    for (const DumpCamera& camera : phone.cameras) {
        std::string facing = camera.facing;
        std::transform(facing.begin(), facing.end(), facing.begin(),
                       [](unsigned char c) { return std::toupper(c); });
        text += fmt::format(
            "Camera {} information:\n  Facing: {}\n  Orientation: {}\n  Resource Cost: 50\n"
            "  Conflicting Devices: NONE\n  Device version: 0x303\n  Device static metadata:\n",
            camera.id, facing, camera.orientation);
        text += arrayText(camera.entries, 4) + dynamicText(phone, camera);
    }
    return text + "\nNo active camera clients yet.\n\nCamera traces (0):\n  No camera traces collected.\n";
}

std::string staticText(const DumpPhone& phone, const DumpCamera& camera) {
    const std::string name =
        "device@3.4/" + camera.provider.substr(0, camera.provider.find('/')) + "/" + camera.id;
    std::string text = fmt::format(
        "== Camera HAL device {} (v3.4) static information: ==\n  Resource cost: 100\n"
        "  Conflicting devices: None\n  API1 info:\n    Has a flash unit: true\n"
        "    Facing: {}\n    Orientation: {}\n  API2 camera characteristics:\n",
        name, camera.facing, camera.orientation);
    text += arrayText(camera.entries, 4);
    for (const auto& [id, entries] : camera.physical) {
        if (phone.platform >= 10)
            text += "  Physical camera " + id + " characteristics:\n" + arrayText(entries, 4);
    }
    if (phone.platform >= 9) text += "== Camera HAL device " + name + " (v3.4) dumpState: ==\n<HAL>: fine\n";
    return text;
}

std::string providersText(const DumpPhone& phone) {
    std::string text;
    std::set<std::string> seen;
    for (const DumpCamera& first : phone.cameras) {
        if (!seen.insert(first.provider).second) continue;
        std::string devices;
        size_t count = 0;
        for (const DumpCamera& camera : phone.cameras) {
            if (camera.provider != first.provider) continue;
            devices += staticText(phone, camera);
            ++count;
        }
        text += fmt::format("\n== Camera Provider HAL {} (v2.4, remote) static info: {} devices: ==\n",
                            first.provider, count);
        text += devices;
    }
    return text;
}

std::string servicePhone(const DumpPhone& phone) {
    std::string text = "== Service global info: ==\n\n";
    text += fmt::format("Number of camera devices: {0}\nNumber of normal camera devices: {0}\n",
                        phone.cameras.size());
    for (size_t i = 0; phone.platform >= 9 && i < phone.cameras.size(); ++i) {
        text += fmt::format("    Device {} maps to \"{}\"\n", i, phone.cameras[i].id);
    }
    text +=
        "Active Camera Clients:\n[\n(Camera ID: 0, Cost: 100, PID: 1301, Score: 0, State: 2User Id: 0, Client "
        "Package Name: com.example.camera, Conflicting Client Devices: {})\n]\nAllowed user IDs: 0\n"
        "\n== Camera service events log (most recent at top): ==\n"
        "  03-05 10:11:12 : CONNECT device 0 client for package com.example.camera (PID 1301)\n";
    for (const DumpCamera& camera : phone.cameras) {
        text += "\n== Camera device " + camera.id + " dynamic info: ==\n" + dynamicText(phone, camera);
    }
    text += providersText(phone) + "\n== Vendor tags: ==\n\n";
    for (const DumpBlock& block : phone.blocks) {
        text += fmt::format("  Dumping vendor tag descriptors for vendor with id {} \n", block.vendorId);
        text += tagsText(block.tags, 2);
    }
    text += "\n== Camera error traces (0): ==\n  No camera traces collected.\n";
    if (phone.platform < 12 || phone.previousSession.empty()) return text;
    return text + "**********Dumpsys from previous open session**********\n== Camera device " +
           phone.cameras.front().id + " dynamic info: ==\n" +
           clientText(phone, phone.cameras.front(), phone.previousSession, true) +
           "**********End of Dumpsys from previous open session**********\n";
}

}  // namespace

std::string arrayText(const std::vector<DumpEntry>& entries, int indentation) {
    const std::string margin(static_cast<size_t>(indentation), ' ');
    std::string text = margin + fmt::format(
                                    "Dumping camera metadata array: {} / {} entries, 20 / 640 bytes of extra "
                                    "data.\n{}  Version: 1, Flags: 00000000\n",
                                    entries.size(), entries.size() + 7, margin);
    for (const DumpEntry& entry : entries) {
        text += fmt::format("{}  {} ({:05x}): {}[{}]\n", margin, entry.name, entry.id, entry.type,
                            entry.values.size());
        const size_t perLine = valuesPerLine(entry.type);
        for (size_t start = 0; start < entry.values.size(); start += perLine) {
            const auto first = entry.values.begin() + static_cast<std::ptrdiff_t>(start);
            const size_t count = std::min(perLine, entry.values.size() - start);
            text += fmt::format("{}    [{} ]\n", margin,
                                fmt::join(first, first + static_cast<std::ptrdiff_t>(count), " "));
        }
    }
    return text;
}

std::string dumpOf(const DumpPhone& phone) {
    return phone.platform == 7 ? modulePhone(phone) : servicePhone(phone);
}

DumpPhone samplePhone(int platform) {
    const DumpEntry iso{"com.ambrix.capture.metadata.iso", 0x80000000, "byte", {"7"}};
    const DumpEntry delay{"com.ambrix.capture.metadata.burst-delay-ms", 0x80000001, "int32", {"-40"}};
    const DumpEntry keys{"android.request.availableRequestKeys", 0xc000d, "int32",
                         platform >= 14
                             ? std::vector<std::string>{"65537 (aeExposureCompensation)", "-2147483648 (iso)"}
                             : std::vector<std::string>{"65537", "-2147483648"}};
    const DumpEntry level{"android.info.supportedHardwareLevel", 0x150000, "byte", {"FULL"}};
    const DumpEntry facing{"android.lens.facing", 0x80005, "byte", {"BACK"}};
    const DumpEntry step{"android.control.aeCompensationStep", 0x10016, "rational", {"(1 / 3)"}};
    const DumpEntry apertures{"android.lens.info.availableApertures", 0x90000, "float", {"1.79999995"}};
    const DumpEntry isoValues{"com.ambrix.device.capabilities.supported_iso_values",
                              0x80010000,
                              "byte",
                              {"0", "2", "3", "4", "5", "7", "8", "9"}};
    const DumpEntry sizes{"android.scaler.availableStreamConfigurations",
                          0xd000a,
                          "int32",
                          {"33", "4000", "3000", "OUTPUT", "35", "1920", "1080", "OUTPUT"}};
    DumpPhone phone;
    phone.platform = platform;
    DumpCamera back{"0", "legacy/0", "Back", 90, {facing, level, keys, isoValues, sizes, step, apertures},
                    {},  {},         {}};
    if (platform >= 9) {
        back.entries.push_back(
            {"android.logicalMultiCamera.physicalIds", 0x1a0000, "byte", {"50", "0", "51", "0"}});
    }
    back.physical = {{"2", {facing, apertures}}};
    back.client = {{"Latest received frame:", {iso}}, {"Last request sent:", {iso, delay}}};
    back.shim = {{"preview-size", "1920x1080"}, {"qz-long", std::string(300, 'x')}, {"zoom", "0"}};
    phone.monitor =
        "     Tag monitoring enabled for tags:\n        com.ambrix.capture.metadata.iso\n"
        "     Monitored tag event log:\n"
        "        f1203:81234567890123ns:            REQ:com.ambrix.capture.metadata.iso: [7 ]\n";
    DumpCamera front{"1", platform == 7 ? "legacy/0" : "external/0", "Front", 270, {}, {}, {}, {}};
    front.entries = {{"android.lens.facing", 0x80005, "byte", {"FRONT"}}, level};
    phone.blocks = {{3571857947,
                     {{0x80000000, 0, "com.ambrix.capture.metadata", "iso"},
                      {0x80000001, 1, "com.ambrix.capture.metadata", "burst-delay-ms"},
                      {0x80010000, 0, "com.ambrix.device.capabilities", "supported_iso_values"}}}};
    if (platform > 7) {
        phone.blocks.push_back({77, {{0x80000000, 1, "org.external", "image.brightness"}}});
        front.entries.push_back({"org.external.image.brightness", 0x80000000, "int32", {"5"}});
    }
    phone.cameras = {back, front};
    phone.previousSession = {{"Latest received frame:", {delay}}, {"Last request sent:", {delay, iso}}};
    return phone;
}

}  // namespace qzcam::test
