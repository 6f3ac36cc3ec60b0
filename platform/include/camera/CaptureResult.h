// SPDX-License-Identifier: Apache-2.0
// The result of one capture request.
#pragma once

#include <camera/CameraMetadata.h>
#include <utils/RefBase.h>

#include <cstdint>

namespace android {

struct CaptureResultExtras {
    // Belongs to no request yet. Has a body, so that no compiler takes the structure for an aggregate.
    CaptureResultExtras() {}  // NOLINT(modernize-use-equals-default)

    int32_t requestId = -1;  // negative: belongs to no request
    int32_t burstId = 0;     // place in a burst, from 0
    int32_t afTriggerId = 0;
    int32_t precaptureTriggerId = 0;
    int64_t frameNumber = 0;
    int32_t partialResultCount = 0;  // number of this partial result
    int32_t errorStreamId = -1;      // negative: no stream failed

    bool isValid() const { return requestId >= 0; }
};

struct CaptureResult : public LightRefBase<CaptureResult> {
    CameraMetadata mMetadata;
    CaptureResultExtras mResultExtras;
};

}  // namespace android
