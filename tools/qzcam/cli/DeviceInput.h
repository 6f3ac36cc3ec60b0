// SPDX-License-Identifier: Apache-2.0
// The device that a command works on, with the system properties and the parameters that go with it.
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
    bool whole = false;  // all of the dump was understood
    InputText text;      // the report points into it
    std::shared_ptr<const Report> report;
    // For sessions that open several cameras. Null if the user chose one, or none has a number.
    std::shared_ptr<Cameras> cameras;
};

// Parts of a dump that a command needs.
enum class Wants { Camera, VendorTags };

// Prints a message and returns nothing if there is nothing that the command needs. The text may be a dump, a
// bugreport, or a log that the dump was written to.
std::optional<DeviceInput> readDevice(const InputText& dump, const std::string& camera,
                                      Wants wants = Wants::Camera);
std::optional<DeviceInput> readDevice(const std::string& path, const std::string& camera,
                                      Wants wants = Wants::Camera);

// Another camera of the same dump. Prints the damage of its entries, and faults that the input's camera does
// not have.
struct OtherCamera {
    Device device;
    bool whole = false;
};
OtherCamera otherCamera(const DeviceInput& input, const std::string& camera);

// Tells in a line which parts of a bugreport are used; nothing for a text that is all one.
void tellWhatIsUsed(const InputText& input, bool properties);

// Everything that a session plays with.
struct Setup {
    DeviceInput input;
    std::vector<Parameter> parameters;
    bool whole = true;  // no input had anything that could not be used
};

struct SetupPaths {
    std::string device;      // empty: the built-in one
    std::string camera;      // empty: the first one
    std::string properties;  // empty: those of the report that the device is from, if any
    std::string parameters;  // themselves, or a file that has them
};

// Reads it all and sets the system properties. Nothing, and a message, when there is nothing to work with.
std::optional<Setup> readSetup(const SetupPaths& paths);

// The same for a device that has been read.
std::optional<Setup> readSetup(const InputText& device, const SetupPaths& paths);

}  // namespace qzcam
