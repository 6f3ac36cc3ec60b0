// The handler shape, written once: a vendor entry of a capture result, as its handler asks for it.
//
//     status_t CameraQzCallBack::processSmartMode(const CameraMetadata& result) {
//         const ResultEntry<int32_t> hint(mExtCallBackIntf, result, CAPTURE("hintUser"), __func__);
//         if (hint.count() != 0) callbackSmartMode(hint[0]);
//         return hint.status();
//     }
#pragma once

#include "QzHostInterfaces.h"
#include "core/EntryView.h"
#include "tags/TagNames.h"
#include "core/VendorTag.h"

namespace qz {

// Every lookup goes through the host. Null after an error line in the caller's name.
ExtCallBackInterface* hostOrReport(ExtCallBackInterface* host, const char* caller);

template <typename T>
class ResultEntry {
  public:
    ResultEntry(ExtCallBackInterface* host, const android::CameraMetadata& result, const char* tagName,
                const char* caller) {
        if (host == nullptr) {
            hostOrReport(host, caller);
            mStatus = android::BAD_VALUE;
            return;
        }
        // Looked for in the results of every frame, and nearly always found: the cheap way in.
        const uint32_t tag = findVendorTag(tagName);
        mDeclared = tag != kNoTag;
        if (mDeclared) mView = EntryView<T>(host->findResultEntry(result, tag));
    }

    status_t status() const { return mStatus; }  // what the handler returns: -22 without a host
    bool declared() const { return mDeclared; }

    size_t count() const { return mView.count(); }
    size_t bytes() const { return mView.count() * sizeof(T); }
    const T& operator[](size_t index) const { return mView[index]; }
    const T* data() const { return mView.begin(); }

    // Element `index`, or 0 when the driver sent fewer.
    T valueOrZero(size_t index) const { return index < count() ? mView[index] : T{}; }

  private:
    status_t mStatus = android::OK;
    bool mDeclared = false;
    EntryView<T> mView;
};

}  // namespace qz
