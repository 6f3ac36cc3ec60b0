#include "request/Entry.h"

namespace qz {

status_t EntryState::refuseNull(const char* setter) {
    LOGE("%s: metaData is NULL!", setter);
    return android::BAD_VALUE;
}

}  // namespace qz
