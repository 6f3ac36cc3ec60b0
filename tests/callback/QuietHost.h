// A host that hands out a result's own entries and ignores messages.
#pragma once

#include "QzHostInterfaces.h"

namespace qz::test {

class QuietHost : public ExtCallBackInterface {
    status_t notifyCallback(int32_t, int32_t, int32_t) override { return 0; }
    status_t dataCallback(int32_t, const void*, uint32_t) override { return 0; }
    camera_metadata_ro_entry findResultEntry(const android::CameraMetadata& from, uint32_t tag) override {
        return from.find(tag);
    }
};

}  // namespace qz::test
