// SPDX-License-Identifier: Apache-2.0
// The device of a command, with its system properties and parameters.
#pragma once

#include "device/Cameras.h"
#include "device/Device.h"
#include "device/Report.h"
#include "host/Camera.h"
#include "input/Input.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// The camera of a dump. The readable part of a broken dump is used.
struct DeviceInput {
    Device device;
    bool whole = false;  // the complete dump was understood
    InputText text;      // the report points into it
    std::shared_ptr<const Report> report;
    // For sessions that open several cameras. Null if the user chose one, or none has a number.
    std::shared_ptr<Cameras> cameras;
};

// Parts of a dump that a command needs.
enum class Wants { Camera, VendorTags };

// Prints a message and returns nothing if the parts that the command needs are missing. The text may be a
// dump, a bugreport, or a log that contains the dump.
std::optional<DeviceInput> readDevice(const InputText& dump, const std::string& camera,
                                      Wants wants = Wants::Camera);
std::optional<DeviceInput> readDevice(const std::string& path, const std::string& camera,
                                      Wants wants = Wants::Camera);

// A dump that ends before its tags and entries says nothing about the device. canBeChecked() prints a message
// and returns false for it.
bool canBeChecked(const Device& device);

// Another camera of the same dump. otherCamera() prints the damage of its entries, and faults that the camera
// of `input` does not have.
struct OtherCamera {
    Device device;
    bool whole = false;
};
OtherCamera otherCamera(const DeviceInput& input, const std::string& camera);

// Prints a line with the used parts of a bugreport; prints nothing for an input with a single part.
void reportUsedParts(const InputText& input, bool properties);

struct SetupOptions;

// All inputs of a session.
struct Setup {
    DeviceInput input;
    std::vector<Parameter> parameters;
    bool whole = true;  // no input is damaged
};

// Reads all inputs and sets the system properties. Prints a message and returns nothing if an input is
// unusable.
std::optional<Setup> readSetup(const SetupOptions& options);

// Does the same for a device that has already been read.
std::optional<Setup> readSetup(const InputText& device, const SetupOptions& options);

// Prints a message for each parameter that nothing reads, such as a misspelt one.
void reportUnread(const std::vector<Parameter>& parameters);

}  // namespace qzcam
