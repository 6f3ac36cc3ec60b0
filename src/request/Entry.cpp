#include "request/Entry.h"

namespace qz {

status_t refuseNull(const char* setter) {
    LOG(line::NoRequest, setter);
    return android::BAD_VALUE;
}

}  // namespace qz
