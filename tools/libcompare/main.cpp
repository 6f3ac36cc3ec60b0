// SPDX-License-Identifier: Apache-2.0
// Plays random steps over the library that it is loaded with, and prints a hash of each block.
#include "Session.h"
#include "Trace.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cinttypes>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace qz::compare {
namespace {

constexpr size_t kPerBlock = 1000;

constexpr char kUsage[] =
    "Usage: compare_player INPUTS KIND SEED FIRST BLOCKS [passes | PASS]\n"
    "Prints a line for each block of 1000 passes, for each pass of the blocks, or the trace of one pass\n"
    "(0: the creation of the block's objects, 1001: their destruction).\n"
    "KIND is request, capabilities, results or inspection.\n";

struct Wanted {
    Session::Step step;
    uint64_t seed;
    uint64_t first;
    uint64_t blocks;
    bool eachPass;
    int64_t pass;  // -1: none
};

uint64_t sBlockHash = 0;

void finish(const Wanted& wanted, int64_t pass) {
    const uint64_t hash = trace().hash();
    if (wanted.eachPass) printf("pass %" PRId64 " %016" PRIx64 "\n", pass, hash);
    if (wanted.pass == pass) {
        fputs(trace().text().c_str(), stdout);
        exit(0);
    }
    sBlockHash = mix(sBlockHash, hash);
    trace().clear();
}

void playBlock(const Wanted& wanted, const Inputs& inputs, Devices* devices, uint64_t block) {
    const uint64_t seed = mix(wanted.seed, block);
    {
        Session session(inputs, devices, seed);
        finish(wanted, 0);
        for (size_t pass = 1; pass <= kPerBlock; ++pass) {
            session.play(wanted.step, mix(seed, pass));
            finish(wanted, static_cast<int64_t>(pass));
        }
    }
    finish(wanted, kPerBlock + 1);
}

// If a library could not be preloaded, the player would silently use its own.
bool loadedAsWanted() {
    const char* const wanted = std::getenv("LIBRARY");
    Dl_info loaded = {};
    dladdr(dlsym(RTLD_DEFAULT, "_ZN2qz10QzName2Tag11getInstanceEv"), &loaded);
    if (wanted == nullptr || (loaded.dli_fname != nullptr && strcmp(wanted, loaded.dli_fname) == 0))
        return true;
    fprintf(stderr, "compare_player: the library is %s, not %s\n", loaded.dli_fname, wanted);
    return false;
}

// The trace up to the crash.
void crashed(int signal) {
    trace() << "ended by signal " << signal << '\n';
    fputs(trace().text().c_str(), stdout);
    fflush(stdout);
    _exit(1);
}

int play(const Wanted& wanted, const char* file) {
    if (!loadedAsWanted()) return 2;
    setvbuf(stdout, nullptr, _IOLBF, 0);  // a crash loses no line of an earlier pass
    for (const int fatal : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGILL}) {
        if (wanted.pass >= 0) signal(fatal, crashed);
    }
    const std::string loading = trace().text();
    const Inputs inputs(file, wanted.seed);
    Devices devices(inputs, wanted.seed);
    for (uint64_t block = wanted.first; block < wanted.first + wanted.blocks; ++block) {
        if (block == 0) trace() << loading;
        playBlock(wanted, inputs, &devices, block);
        if (!wanted.eachPass && wanted.pass < 0)
            printf("block %" PRIu64 " %016" PRIx64 "\n", block, sBlockHash);
        sBlockHash = 0;
    }
    return 0;
}

}  // namespace
}  // namespace qz::compare

int main(int argc, char** argv) {
    using qz::compare::Session;
    const auto number = [argv](int i) { return std::strtoull(argv[i], nullptr, 10); };
    if (argc < 6 || argc > 7 || Session::stepOf(argv[2]) == nullptr) {
        fputs(qz::compare::kUsage, stderr);
        return 2;
    }
    const bool eachPass = argc == 7 && strcmp(argv[6], "passes") == 0;
    const int64_t pass = argc == 7 && !eachPass ? std::strtoll(argv[6], nullptr, 10) : -1;
    return qz::compare::play({Session::stepOf(argv[2]), number(3), number(4), number(5), eachPass, pass},
                             argv[1]);
}
