// SPDX-License-Identifier: Apache-2.0
#include "input/Progress.h"
#include "input/Unpack.h"

#include <fmt/format.h>
#include <zlib.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace qzcam {

namespace {

constexpr size_t kInflateStep = size_t{256} << 10U;

// Inflates one member after the other.
class Inflater {
  public:
    explicit Inflater(std::string_view packed) : mPacked(packed) {
        constexpr int kGzipOnly = 15 + 16;
        mReady = inflateInit2(&mStream, kGzipOnly) == Z_OK;
    }
    ~Inflater() { inflateEnd(&mStream); }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    // Adds the next bytes. Returns false at the end, or if the data is damaged.
    bool step(Memory& to);

    size_t offset() const { return mOffset; }
    std::string damage() const;

  private:
    void feed();
    bool nextMember();

    std::string_view mPacked;
    z_stream mStream{};
    size_t mOffset = 0;  // position of the first byte that zlib has not used
    bool mReady = false;
    int mStatus = Z_OK;
};

void Inflater::feed() {
    const size_t size = std::min<size_t>(mPacked.size() - mOffset, std::numeric_limits<uInt>::max());
    // zlib does not write to its input.
    mStream.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(mPacked.data() + mOffset));
    mStream.avail_in = static_cast<uInt>(size);
}

bool Inflater::step(Memory& to) {
    if (!mReady) return false;
    feed();
    const uInt before = mStream.avail_in;
    mStream.next_out = reinterpret_cast<Bytef*>(to.room(kInflateStep));
    mStream.avail_out = kInflateStep;
    mStatus = inflate(&mStream, Z_NO_FLUSH);
    mOffset += before - mStream.avail_in;
    to.filled(kInflateStep - mStream.avail_out);
    if (mStatus == Z_STREAM_END) return nextMember();
    return mStatus == Z_OK;
}

bool Inflater::nextMember() {
    if (mPacked.substr(mOffset, 2) != "\x1f\x8b") return false;
    return inflateReset(&mStream) == Z_OK;
}

std::string Inflater::damage() const {
    if (mStatus == Z_STREAM_END) return {};
    if (mStatus == Z_BUF_ERROR) return "the gzip data is cut: its readable part is used";
    return fmt::format("the gzip data is damaged at byte {}: the part before it is used", mOffset);
}

}  // namespace

std::string unpackGzip(Content& content, const UnpackLimits& limits) {
    const Memory packed = std::move(content.bytes);
    content.bytes = Memory(packed.size());
    content.steps.emplace_back("gzip");
    Inflater inflater(packed.view());
    Progress progress("unpacking " + content.name);
    bool more = true;
    while (more) {
        more = inflater.step(content.bytes);
        progress.reached(inflater.offset(), packed.size());
        std::string wrong = wrongSize(content.bytes.size(), packed.size(), limits);
        if (!wrong.empty()) return wrong;
    }
    std::string damage = inflater.damage();
    if (damage.empty()) return {};
    if (content.bytes.size() == 0) return "the gzip data is damaged at its beginning: nothing can be read";
    content.cuts.push_back(std::move(damage));
    return {};
}

}  // namespace qzcam
